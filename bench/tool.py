# SPDX-License-Identifier: Apache-2.0
"""tool.py VXMETA LIBRARY_GET CARTON: prints what the tool costs, beside the library and others."""
import os
import re
import subprocess
import sys
import tempfile
import time

VXMETA, LIBRARY_GET, CARTON = sys.argv[1:4]


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def seconds(*command, rounds=5):
    """The least of several runs."""
    best = float("inf")
    for _ in range(rounds):
        start = time.perf_counter()
        run(*command)
        best = min(best, time.perf_counter() - start)
    return best


def instructions(*command):
    told = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *command], check=True,
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True).stderr
    return int(re.search(r"Collected : (\d+)", told).group(1))


def peak_megabytes(*command):
    told = subprocess.run(["/usr/bin/time", "-f", "%M", *command], check=True,
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True).stderr
    return int(told.split()[-1]) / 1024


def pdf(packet, ballast=0):
    """A PDF of one page with the packet, and an unused stream of `ballast` bytes."""
    objects = [b"<</Type/Catalog/Pages 2 0 R/Metadata 4 0 R>>",
               b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
               b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 100 100]>>"]
    for extra, data in ((b"/Type/Metadata/Subtype/XML", packet), (b"", b"x" * ballast)):
        objects.append(b"<<%s/Length %d>>\nstream\n%s\nendstream" % (extra, len(data), data))
    out, places = bytearray(b"%PDF-1.7\n"), []
    for number, content in enumerate(objects, 1):
        places.append(len(out))
        out += b"%d 0 obj\n%s\nendobj\n" % (number, content)
    start = len(out)
    out += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    for place in places:
        out += b"%010d 00000 n \n" % place
    return out + b"trailer\n<</Size %d/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % (
        len(objects) + 1, start)


def row(what, value, goal):
    print(f"| {what} | {value} | {goal} |")


def main():
    with open(CARTON, "rb") as file:
        packet = file.read()
    start = instructions(VXMETA, "--version")
    work = instructions(LIBRARY_GET, CARTON) - instructions(LIBRARY_GET)
    get = instructions(VXMETA, "get", CARTON, "job.id")
    print("| the tool | measured | goal |\n|---|---|---|")
    row("`get` over the library's load and read and the tool's start, instructions",
        f"{get / (start + work):.2f}", "1.5")
    row("start-up, ms", f"{1000 * seconds(VXMETA, '--version', rounds=20):.1f}", "10")
    with tempfile.TemporaryDirectory() as folder:
        files = [os.path.join(folder, f"{i}.pdf") for i in range(1000)]
        for name in files:
            with open(name, "wb") as file:
                file.write(pdf(packet))
        one = seconds(VXMETA, "json", *files, rounds=3)
        row("`json` of 1,000 PDFs, one job over two, time",
            f"{one / seconds(VXMETA, 'json', '-j', '2', *files, rounds=3):.2f}", "2")
        row("exiftool over `json`, time per file",
            f"{seconds('exiftool', '-j', files[0]) / seconds(VXMETA, 'json', files[0]):.0f}", "10")
        large = os.path.join(folder, "large.pdf")
        with open(large, "wb") as file:
            file.write(pdf(packet, 500_000_000))
        get_large = (VXMETA, "get", large, "job.id")
        row("`get` of a PDF of 500 MB over a small one, time",
            f"{seconds(*get_large) / seconds(VXMETA, 'get', files[0], 'job.id'):.2f}", "1.2")
        row("peak memory of that, MB", f"{peak_megabytes(*get_large):.0f}", "-")
        for other in (("qpdf", "--show-object=4", "--filtered-stream-data", large),
                      ("exiftool", large)):
            row(f"{other[0]} over `get` on it, time", f"{seconds(*other) / seconds(*get_large):.1f}",
                "-")


main()
