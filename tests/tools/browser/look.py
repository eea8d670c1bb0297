# SPDX-License-Identifier: Apache-2.0
"""look.py VXMETA FOLDER [REPORT...]: makes reports, looks at them in a browser, and keeps the pictures."""
import os
import signal
import subprocess
import sys

import packets
from chromium import Browser

HERE = os.path.dirname(os.path.abspath(__file__))
CARTON = os.path.normpath(os.path.join(HERE, "../../../examples/folding_carton.xmp"))
VIEWS = {"light": (1100, "light", "screen"), "dark": (1100, "dark", "screen"),
         "narrow": (400, "light", "screen"), "paper": (688, "light", "print")}
PAPERS = {"a4": (8.27, 11.69), "letter": (8.5, 11)}


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def reports(program, folder, chosen):
    big = write(os.path.join(folder, "big.xmp"), packets.big())
    hostile = write(os.path.join(folder, "hostile.xmp"), packets.hostile())
    for name, files in {"carton": [CARTON], "big": [big], "hostile": [hostile],
                        "several": [CARTON, hostile, big]}.items():
        if chosen and name not in chosen:
            continue
        page = os.path.join(folder, name + ".html")
        subprocess.run([program, "report", *files, "-o", page], check=True)
        yield name, page


def is_valid(page):
    """Whether tidy has nothing to say about the page."""
    end = subprocess.run(["tidy", "-q", "-e", "--drop-empty-elements", "no", page],
                         capture_output=True, text=True, check=False)
    print("".join(f"{page}: {line}\n" for line in end.stderr.splitlines()[:10]), end="")
    return end.stderr == ""


def faults_of(browser, name, page, folder):
    faults = [f"{name}: loads {url}" for url in browser.open(page)]
    with open(os.path.join(HERE, "layout.js"), encoding="utf-8") as file:
        script = file.read()
    for view, (width, scheme, media) in VIEWS.items():
        browser.look(width, scheme, media)
        faults += [f"{name}, {view}: {fault}" for fault in browser.run(script)]
        browser.picture(os.path.join(folder, f"{name}-{view}.png"))
    for paper, inches in PAPERS.items():
        browser.print_to(os.path.join(folder, f"{name}-{paper}.pdf"), inches)
    return faults


def main(program, folder, *chosen):
    signal.alarm(900)  # a browser that hangs ends the run
    os.makedirs(folder, exist_ok=True)
    faults, browser = [], Browser()
    for name, page in reports(program, folder, chosen):
        if not is_valid(page):
            faults.append(f"{name}: is not valid")
        faults += faults_of(browser, name, page, folder)
    browser.close()
    for fault in faults:
        print(fault)
    print(f"{len(faults)} faults; pictures are in {folder}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
