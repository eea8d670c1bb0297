// SPDX-License-Identifier: Apache-2.0
// What is wrong with the layout of the page, as a list of sentences.
(() => {
  const found = [];
  const width = document.documentElement.clientWidth;
  const name = (element) => {
    const place = element.closest("[id]");
    const text = (element.textContent || "").trim().slice(0, 40);
    return `${element.tagName.toLowerCase()} in #${place ? place.id : "?"} "${text}"`;
  };
  const isShown = (element) =>
      element.checkVisibility() && element.getClientRects().length > 0 && !element.closest("caption");

  if (document.documentElement.scrollWidth > width + 1) {
    found.push(`the page is ${document.documentElement.scrollWidth} px wide, there are ${width}`);
  }

  const mayScroll = (element) => {
    const frame = element.closest(".scroll");
    return frame && getComputedStyle(frame).overflowX === "auto";
  };
  for (const element of document.querySelectorAll("body *")) {
    if (!isShown(element) || mayScroll(element) || element.closest("svg")) continue;
    const box = element.getBoundingClientRect();
    if (box.right > width + 1 || box.left < -1) found.push(`beyond the page: ${name(element)}`);
    const style = getComputedStyle(element);
    const cuts = style.overflowX === "hidden" || style.overflowX === "clip";
    if (cuts && element.scrollWidth > element.clientWidth + 1) found.push(`cut: ${name(element)}`);
  }

  // Texts of drawings: inside, readable, and not on one another.
  for (const drawing of document.querySelectorAll("svg")) {
    if (!isShown(drawing)) continue;
    const frame = drawing.getBoundingClientRect();
    const texts = [...drawing.querySelectorAll("text")];
    const boxes = texts.map((text) => text.getBoundingClientRect());
    boxes.forEach((box, i) => {
      const isOut = box.left < frame.left - 2 || box.right > frame.right + 2 ||
          box.top < frame.top - 2 || box.bottom > frame.bottom + 2;
      if (isOut) found.push(`out of its drawing: ${name(texts[i])} by ${
          Math.round(Math.max(frame.left - box.left, box.right - frame.right,
                              frame.top - box.top, box.bottom - frame.bottom))} px`);
      for (let k = i + 1; k < boxes.length; ++k) {
        const across = Math.min(box.right, boxes[k].right) - Math.max(box.left, boxes[k].left);
        const down = Math.min(box.bottom, boxes[k].bottom) - Math.max(box.top, boxes[k].top);
        if (across > 1 && down > 5) found.push(`on one another: ${name(texts[i])}, ${name(texts[k])}`);
      }
      if (box.height > 0 && box.height < 9 && box.width > box.height) found.push(`too small: ${name(texts[i])}`);
    });
  }

  // Contrast of texts with what is behind them: 4.5 to 1, by WCAG.
  const parts = (colour) => (colour.match(/[\d.]+/g) || []).map(Number);
  const luminance = (colour) => {
    const [r, g, b] = parts(colour).slice(0, 3).map((part) => {
      const share = part / 255;
      return share <= 0.03928 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
    });
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  const isClear = (colour) => parts(colour).length === 4 && parts(colour)[3] === 0;
  const behind = (element) => {
    for (let at = element; at; at = at.parentElement) {
      const colour = getComputedStyle(at).backgroundColor;
      if (!isClear(colour)) return colour;
    }
    return "rgb(255, 255, 255)";
  };
  const seen = new Set();
  for (const element of document.querySelectorAll("body *")) {
    const hasText = [...element.childNodes].some((node) => node.nodeType === 3 && node.data.trim());
    if (!hasText || !isShown(element) || element.tagName === "title") continue;
    const style = getComputedStyle(element);
    const colour = element.closest("svg") ? style.fill : style.color;
    const pair = `${colour} on ${behind(element)}`;
    if (seen.has(pair)) continue;
    seen.add(pair);
    const lights = [luminance(colour), luminance(behind(element))];
    const ratio = (Math.max(...lights) + 0.05) / (Math.min(...lights) + 0.05);
    if (ratio < 4.5) found.push(`hard to read (${ratio.toFixed(1)}, ${pair}): ${name(element)}`);
  }

  // Links go somewhere; headings do not skip a level.
  for (const link of document.querySelectorAll("a")) {
    const id = link.getAttribute("href").slice(1);
    if (!document.getElementById(id)) found.push(`goes nowhere: #${id}`);
  }
  let level = 0;
  for (const heading of document.querySelectorAll("h1, h2, h3, h4, h5, h6")) {
    const next = Number(heading.tagName[1]);
    if (next > level + 1) found.push(`skips a level: ${name(heading)}`);
    level = next;
  }
  return found;
})()
