# SPDX-License-Identifier: Apache-2.0
"""table.py TIMES COUNTS PEAKS [--markdown]: prints the table of ratios.

TIMES is Google Benchmark's JSON, COUNTS has a line "case instructions" for each case, PEAKS a line
"case bytes" for each side of the memory's rows.
"""
import json
import sys

SIZES = [1, 10, 100, 1000, 10000, 100000]
HEADINGS = ["what", "over", "one packet"] + [f"{size:,}" for size in SIZES[1:]] + ["goal", "met"]
GOAL_SIZE = 1000
GROWN_SIZE = 10000

# What, its group of cases, the side that ours is compared with, and how much at most.
RATIOS = [
    ("read inks, 14 fields", "read_inks", "by_hand", 0.25),
    ("read fonts, 5 fields", "read_fonts", "by_hand", 0.30),
    ("read references, 5 fields", "read_refs", "by_hand", 0.30),
    ("read inks", "read_inks", "exempi", 0.22),
    ("read fonts", "read_fonts", "exempi", 0.22),
    ("read references", "read_refs", "exempi", 0.22),
    ("read inks in a comma locale", "read_inks_in_locale", "c_locale", 1.05),
    ("write inks, only names differ", "write_alike_inks", "by_hand", 0.50),
    ("write fonts, only names differ", "write_alike_fonts", "by_hand", 0.50),
    ("write inks, all texts differ", "write_distinct_inks", "by_hand", 0.75),
    ("write fonts, all texts differ", "write_distinct_fonts", "by_hand", 0.75),
    ("write references, both layouts", "write_refs", "by_hand", None),
    ("read document-level records and scalars", "read_document", "by_hand", 0.25),
    ("SetXML, inks", "parse_inks", "by_hand", 0.42),
    ("SetXML, fonts", "parse_fonts", "by_hand", 0.42),
    ("SetXML, BlueSquare.ai", "parse_artwork", "by_hand", 0.45),
    ("SetXML, folding_carton.xmp", "parse_carton", "by_hand", 0.50),
    ("SetXML, inks", "parse_inks", "expat", 1.6),
    ("SetXML, fonts", "parse_fonts", "expat", 1.6),
    ("SetXML, BlueSquare.ai", "parse_artwork", "expat", 1.6),
    ("SetXML, folding_carton.xmp", "parse_carton", "expat", 1.8),
    ("GetXML, inks", "serialise_inks", "by_hand", 0.22),
    ("GetXML, fonts", "serialise_fonts", "by_hand", 0.22),
    ("GetXML, BlueSquare.ai", "serialise_artwork", "by_hand", 0.22),
    ("GetXML, folding_carton.xmp", "serialise_carton", "by_hand", 0.22),
    ("load, read all, change, save BlueSquare.ai", "cycle_artwork", "by_hand", 0.33),
    ("load, read all, change, save folding_carton.xmp", "cycle_carton", "by_hand", 0.38),
    ("parse and read inks", "load_inks", "by_hand", None),
    ("parse and read inks", "load_inks", "exempi", None),
    ("parse and read inks", "load_inks", "exiv2", None),
    ("parse and read inks", "load_inks", "pugixml", None),
    ("parse and read fonts", "load_fonts", "by_hand", None),
    ("parse and read fonts", "load_fonts", "exempi", None),
    ("parse and read fonts", "load_fonts", "exiv2", None),
    ("parse and read fonts", "load_fonts", "pugixml", None),
]
COSTLY_GOAL = 20
SIDES = {"by_hand": "by hand", "c_locale": "C locale", "exiv2": "Exiv2", "expat": "expat alone",
         "plain_list": "a plain list of its size", "text": "its text"}

# Peak memory of loading, over the side, and how much at most.
PEAKS = [("text", 6), ("by_hand", None)]

GROWTH = ["MergeFonts", "MergeInks", "MergeBarcodes", "MergeExtRefs", "MergeCadFiles",
          "MergeLayers", "SimplifyExtRefs", "ExpandExtRefs", "GetFonts_without_duplicates",
          "GetDgcs", "MergeXML_films"]
GROWTH_GOAL = 11


def read_times(path):
    """The best time of each case: what disturbs a run makes it longer, never shorter."""
    times = {}
    with open(path) as file:
        for run in json.load(file)["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            case = run["run_name"].removesuffix("/manual_time")
            times[case] = min(run["real_time"], times.get(case, run["real_time"]))
    return times


def read_counts(path):
    with open(path) as file:
        return {case: int(count) for case, count in map(str.split, file)}


def ratio(values, case, base):
    return values[case] / values[base] if case in values and base in values else None


def number(value):
    if value is None:
        return "–"
    return f"{value:.3f}" if value < 2 else f"{value:.1f}"


def cell(measures, case, base):
    ratios = [ratio(values, case, base) for values in measures]
    return "" if ratios == [None, None] else " / ".join(map(number, ratios))


def verdict(value, goal):
    if goal is None or value is None:
        return ["", ""]
    return [f"≤ {goal:.2f}" if goal < 2 else f"≤ {goal}", "yes" if value <= goal else "NO"]


def ratio_row(measures, what, group, side, goal):
    def pair(size):
        return f"{group}/ours/{size}", f"{group}/{side}/{size}"
    cells = [cell(measures, *pair(size)) for size in SIZES]
    instructions = ratio(measures[0], *pair(GOAL_SIZE)) or ratio(measures[0], *pair(1))
    return [what, SIDES.get(side, side), *cells, *verdict(instructions, goal)]


def growth_row(measures, group):
    pair = [f"{group}/ours/{size}" for size in (GROWN_SIZE, GROWN_SIZE // 10)]
    cells = [cell(measures, *pair) if size == GROWN_SIZE else "" for size in SIZES]
    what = group.replace("_", " ")
    return [what, "a tenth of the records", *cells, *verdict(ratio(measures[0], *pair), GROWTH_GOAL)]


def costly_rows(measures):
    """Packets that are made to cost; the case names are the list of them."""
    groups = [case.split("/")[0] for case in measures[0] if case.startswith("costly_")]
    return [ratio_row(measures, "SetXML, " + group.removeprefix("costly_").replace("_", " "), group,
                      "plain_list", COSTLY_GOAL)
            for group in dict.fromkeys(groups)]


def peak_row(peaks, side, goal):
    value = ratio(peaks, "memory/ours/1", f"memory/{side}/1")
    cells = [number(value)] + [""] * len(SIZES[1:])
    return ["SetXML, 50 MB of fonts: memory", SIDES[side], *cells, *verdict(value, goal)]


def threads_row(times):
    """Twice the work, in so many times the time of one: 2 is all that can be had."""
    one, two = (times[f"load_on_threads/{side}/{GOAL_SIZE}"] for side in ("one", "two"))
    cells = [f"– / {2 * one / two:.2f}" if size == GOAL_SIZE else "" for size in SIZES]
    return ["SetXML on two threads: throughput", "one thread", *cells, "", ""]


def table(measures, peaks):
    return ([ratio_row(measures, *row) for row in RATIOS] +
            [peak_row(peaks, *row) for row in PEAKS] +
            [threads_row(measures[1])] +
            costly_rows(measures) +
            [growth_row(measures, group) for group in GROWTH])


def aligned(row, widths):
    return [text.ljust(width) for text, width in zip(row, widths)]


def print_table(rows, markdown):
    widths = [max(map(len, column)) for column in zip(HEADINGS, *rows)]
    lines = [aligned(row, widths) for row in [HEADINGS, ["-" * width for width in widths], *rows]]
    for line in lines:
        print("| " + " | ".join(line) + " |" if markdown else "  ".join(line).rstrip())


def print_summary(rows):
    judged = [row for row in rows if row[-1]]
    missed = [f"{row[0]} over {row[1]}" for row in judged if row[-1] == "NO"]
    print(f"\n{len(judged) - len(missed)} of {len(judged)} goals are met"
          + (": all but " + "; ".join(missed) if missed else "") + ".")


def main():
    measures = read_counts(sys.argv[2]), read_times(sys.argv[1])
    rows = table(measures, read_counts(sys.argv[3]))
    print_table(rows, "--markdown" in sys.argv)
    print_summary(rows)


main()
