# SPDX-License-Identifier: Apache-2.0
"""Packets for reports: a big one, and one of difficult texts."""
from xml.sax.saxutils import quoteattr

BASE = "http://ns.orvo.example/xmp/"
SPACES = {"vxGr": "grinfo", "vxInk": "inkinfo", "vxInkCov": "inkcov", "vxInkCovL": "inkcovlist",
          "vxScreen": "screeninfo", "vxScreenC": "screencontainer", "vxScreenL": "screenlist",
          "vxDGC": "dgc", "vxDGCL": "dgclist", "vxExtF": "extfile", "vxProd": "prodinfo",
          "vxPag": "pagerange", "vxPagL": "pagerangelist", "vxSRRep": "vxRepeat",
          "vxSrLayout": "srlayout", "vxSmName": "smname", "vxSmNameL": "smnamelist",
          "vxLay": "layer", "vxLayL": "laylist"}


def packet(properties):
    spaces = "".join(f' xmlns:{prefix}="{BASE}{path}/{"1.1" if prefix == "vxPag" else "1.0"}/"'
                     for prefix, path in SPACES.items())
    return ('<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">'
            f'<rdf:Description rdf:about="" xmlns:vxExtFL2="{BASE}extfileslist/2.0/"{spaces}>'
            f'{properties}</rdf:Description></rdf:RDF>')


def item(prefix, **fields):
    return "<rdf:li" + "".join(f" {prefix}:{name}={quoteattr(str(text))}"
                               for name, text in fields.items()) + "/>"


def items(name, kind, rows):
    return f"<{name}><rdf:{kind}>{''.join(rows)}</rdf:{kind}></{name}>"


def simple(prefix, **fields):
    return "".join(f"<{prefix}:{name}>{text}</{prefix}:{name}>" for name, text in fields.items())


def ink(name, number, angle):
    return item("vxInk", name=name, type="spot" if number > 3 else "process", book="House colours",
                frequency=150, angle=angle, dotshape="Round", r=(number * 37 % 100) / 100,
                g=(number * 53 % 100) / 100, b=(number * 71 % 100) / 100, attribute="normal",
                printingmethod="flexo" if number % 3 == 0 else "offset")


def screen(number):
    curves = {name: f"Curve {number % 20}" for name in
              ("singlepressDGC", "autoplateDGCreq", "autoplateDGCLW", "autoplateDGCCT",
               "autopressDGCreq", "autopressDGCLW", "autopressDGCCT")}
    return item("vxScreen", **curves, gamma="", usedrefs=f"Ink {number}", frequencyreq=150,
                frequency=149.6, anglereq=number * 7.5, angle=number * 7.5 + 0.2,
                dotshapereq="Round", dotshape="Round")


def big():
    groups = "".join(
        '<rdf:li rdf:parseType="Resource"><vxScreenL:screens><rdf:Bag>'
        + "".join(screen(group * 8 + i) for i in range(8))
        + "</rdf:Bag></vxScreenL:screens></rdf:li>" for group in range(6))
    ranges = "".join(
        f'<rdf:li rdf:parseType="Resource">{simple("vxPag", start=i * 4, end=i * 4 + 3)}'
        + items("vxPag:inks", "Seq", [f"<rdf:li>{(i * 7 + k) % 500}</rdf:li>" for k in range(6)])
        + "</rdf:li>" for i in range(60))
    return packet(
        simple("vxGr", nrpages=240, units="mm", vsize=1020, hsize=720, margtop=12, margbot=14.5,
               margleft=10, margright=10, vshrink=0.985, hshrink=1, readerspread="False")
        + items("vxGr:inks", "Seq", [ink(f"Spot colour {i}", i, i * 15 % 180) for i in range(500)])
        + items("vxInkCovL:coverage", "Seq",
                [item("vxInkCov", pct=i / 5, mm2=i * 1234.5) for i in range(500)])
        + f"<vxScreenC:screenContainer><rdf:Seq>{groups}</rdf:Seq></vxScreenC:screenContainer>"
        + items("vxDGCL:dgcs", "Bag",
                [item("vxDGC", name=f"Curve {i}",
                      values="".join(f"{100 * (k / 10) ** (1 + i / 10):.6f} " for k in range(11)))
                 for i in range(20)])
        + items("vxExtFL2:files", "Bag",
                [item("vxExtF", instanceID=f"file:/jobs/of a long name/{i}/placed_artwork_{i}.pdf",
                      renditionClass="default", pagenr=i, type="pdf", count=1)
                 for i in range(10000)])
        + f"<vxPagL:pagelist><rdf:Seq>{ranges}</rdf:Seq></vxPagL:pagelist>"
        + items("vxSrLayout:repeats", "Bag",
                [item("vxSRRep", type="grid", name=f"Sheet {i}", vnr=i * i + 1, hnr=i * 3 + 1,
                      front="front.pdf", frontpage=i + 1, back="back of the sheet.pdf",
                      backpage=i + 2, count=12) for i in range(12)]))


LONG = "Averylongnamewithoutanyblankinit" * 8
HOSTILE = ['</title></svg><script>document.title="x"</script>', '"><img src="http://x.example/">',
           "\u202eright to left\u202c and \u05d0\u05d1\u05d2", "&amp; &#38; ]]>", LONG,
           "two\nlines\tand a tab", "\u0627\u0644\u062d\u0628\u0631 \u0627\u0644\u0623\u062e\u0636\u0631"]


def hostile():
    return packet(
        simple("vxGr", nrpages=1, units="a unit that nobody knows", vsize=1e-3, hsize=1e6,
               margtop=0, margbot=0, margleft=0, margright=0, vshrink=1, hshrink=1,
               readerspread="False")
        + items("vxGr:inks", "Seq", [ink(text, i, 7 * i) for i, text in enumerate(HOSTILE)])
        + items("vxDGCL:dgcs", "Bag", [item("vxDGC", name=text, values="0.000000 nan 1.000000 ")
                                       for text in HOSTILE])
        + items("vxSmNameL:smartnames", "Bag",
                [item("vxSmName", name=text, value=text) for text in HOSTILE])
        + items("vxSrLayout:repeats", "Bag",
                [item("vxSRRep", type="grid", name=text, vnr=100000, hnr=3, front=text, frontpage=1,
                      back=text, backpage=1, count=1) for text in HOSTILE])
        + items("vxLayL:layers", "Seq",
                [item("vxLay", name=text, printable="True", locked="False") for text in HOSTILE]))
