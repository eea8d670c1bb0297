# SPDX-License-Identifier: Apache-2.0
"""schema_test.py VXMETA PACKET: what the tool prints obeys the schema that it prints, and the
schema refuses what is no such document."""
import copy
import json
import subprocess
import sys

try:
    import jsonschema
except ImportError:
    sys.exit(77)

tool, packet = sys.argv[1:]


def run(*arguments, text=None):
    return json.loads(subprocess.run([tool, *arguments], input=text, stdout=subprocess.PIPE,
                                     stderr=subprocess.DEVNULL, text=True).stdout)


schema = run("schema")
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)

odd = """<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF
 xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"><rdf:Description rdf:about=""
 xmlns:vxGr="http://ns.orvo.example/xmp/grinfo/1.0/"
 xmlns:vxInk="http://ns.orvo.example/xmp/inkinfo/1.0/"
 xmlns:o="http://other.example/"><o:p>1</o:p><vxGr:nrpages>many</vxGr:nrpages>
 <vxGr:inks><rdf:Seq><rdf:li vxInk:name="a" vxInk:type="b" vxInk:frequency="nan"
 vxInk:angle="-inf" vxInk:r="1" vxInk:g="1" vxInk:b="1" vxInk:attribute="" o:q="x"/>
 <rdf:li/></rdf:Seq></vxGr:inks></rdf:Description></rdf:RDF></x:xmpmeta>"""

document = run("json", packet)
for good in (document, run("json", "-", text=odd), run("json", "no such file")):
    validator.validate(good)


def changed(change):
    wrong = copy.deepcopy(document)
    change(wrong)
    return wrong


faults = {
    "another version": lambda d: d.update(vxmeta=2),
    "an unknown section": lambda d: d.update(colours=[]),
    "an unknown field": lambda d: d["inks"][0].update(colour="red"),
    "a missing field": lambda d: d["inks"][0].pop("angle"),
    "a text for a number": lambda d: d["inks"][0].update(angle="15"),
    "a number for a text": lambda d: d["job"].update(orderid=20261121),
    "a number for a truth value": lambda d: d["layers"][0].update(printable=1),
    "too large an integer": lambda d: d["scalars"].update(nrPages=2**31),
    "a broken integer": lambda d: d["scalars"].update(nrPages=1.5),
    "a record for a list": lambda d: d.update(fonts=d["fonts"][0]),
    "null": lambda d: d.update(page=None),
}
accepted = [name for name, change in faults.items() if validator.is_valid(changed(change))]
sys.exit(f"the schema accepts {accepted}" if accepted else 0)
