# SPDX-License-Identifier: Apache-2.0
"""Runs the commands of docs/vxmeta.md and compares what they print: tour_test.py VXMETA SOURCE.

tour_test.py files VXMETA SOURCE FOLDER makes the files that they work on, to follow by hand.
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
NEEDED = ('bash', 'jq', 'sqlite3', 'parallel', 'xargs')

EMPTY = ('<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?><x:xmpmeta xmlns:x="adobe:ns:meta/">'
         '<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"/></x:xmpmeta>\n'
         '<?xpacket end="w"?>')


def pdf(packet=''):
    """A page of 246 by 182.5 mm, and a packet with room to grow."""
    packet = packet.replace('<?xpacket end', ' ' * 14000 + '\n<?xpacket end')
    reference = '/Metadata 4 0 R' if packet else ''
    objects = [f'<</Type/Catalog/Pages 2 0 R{reference}>>', '<</Type/Pages/Kids[3 0 R]/Count 1>>',
               '<</Type/Page/Parent 2 0 R/MediaBox[0 0 697.323 517.323]/Resources<<>>>>']
    if packet:
        objects.append(f'<</Type/Metadata/Subtype/XML/Length {len(packet.encode())}>>stream\n'
                       f'{packet}\nendstream')
    text, table = '%PDF-1.7\n', ''
    for number, content in enumerate(objects, 1):
        table += f'{len(text.encode()):010} 00000 n \n'
        text += f'{number} 0 obj\n{content}\nendobj\n'
    size = len(objects) + 1
    return (f'{text}xref\n0 {size}\n0000000000 65535 f \n{table}'
            f'trailer\n<</Size {size}/Root 1 0 R>>\nstartxref\n{len(text.encode())}\n%%EOF\n')


def write(name, text):
    with open(name, 'w', encoding='utf-8', newline='') as file:
        file.write(text)


def changed(vxmeta, name, changes):
    subprocess.run([vxmeta, 'apply', name, '-'], input=json.dumps(changes), text=True, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def film(ink):
    return {'film': {'version': {'version': 100, 'type': 'Film', 'structure': 'Separation'},
                     'dimensions': {'units': 'mm', 'hsize': 246, 'vsize': 182.5},
                     'inks': [{'name': ink}]},
            'colorSpace': {'colorprofdesc': 'Offset on coated board'},
            'screens': [[{'hasScreening': True, 'frequency': 175, 'dotshape': 'Ellipse',
                          'dotname': 'Ellipse'}]],
            'usedRefs': [{'instanceID': 'file:/jobs/4711/carton.pdf',
                          'renditionClass': 'default'}],
            'pageRanges': [{'start': 1, 'end': 1, 'inks': [1]}]}


def make_files(vxmeta, source):
    """In the folder that we are in."""
    with open(os.path.join(source, 'examples/folding_carton.xmp'), encoding='utf-8') as file:
        carton = file.read()
    for name in ('carton.pdf', 'plate.pdf', 'in/tea.pdf', 'in/soup.pdf'):
        os.makedirs(os.path.dirname(name) or '.', exist_ok=True)
        write(name, pdf(carton))
    subprocess.run([vxmeta, 'set', 'plate.pdf', 'inks[name=Gold].frequency=133',
                    'inks[name=Yellow].angle=90', 'document.modifyDate=2026-11-21T08:00:00+01:00'],
                   check=True, stdout=subprocess.DEVNULL)
    subprocess.run([vxmeta, 'set', 'in/soup.pdf', 'barcodes[0].code=4006381333932'], check=True,
                   stdout=subprocess.DEVNULL)
    for name, changes in {
            'logo.ai': {'inks': [{'name': 'Black'}, {'name': 'Deep red', 'type': 'spot'}],
                        'fonts': [{'name': 'Logo Bold', 'type': 'OpenType'}]},
            'leaf.pdf': {'inks': [{'name': 'Leaf green', 'type': 'spot', 'frequency': 150,
                                   'angle': 45}],
                         'extRefs': [{'instanceID': 'file:/jobs/4711/leaf.tif'}]}}.items():
        write(name, pdf(EMPTY))
        changed(vxmeta, name, changes)
    for ink in ('cyan', 'magenta', 'yellow', 'black'):
        write(ink + '.xmp', EMPTY)
        changed(vxmeta, ink + '.xmp', film(ink.capitalize()))
    write('layout.pdf', pdf())
    os.mkdir('jobs')
    for number in range(1, 201):  # the packets of some were lost on the way
        write(f'jobs/label-{number:03}.pdf', pdf(EMPTY if number % 50 else ''))


def blocks(text):
    """Commands with what is printed, of each block of the page."""
    for block in re.findall(r'^```console\n(.*?)^```', text, re.M | re.S):
        command = None
        for line in block.splitlines(keepends=True):
            if line.startswith('$ '):
                if command:
                    yield command, printed
                command, printed = line[2:], ''
            elif line.startswith('> ') and not printed:
                command += line[2:]
            else:
                printed += line
        yield command, printed


def matches(printed, wanted):
    """A line of three dots stands for any number of lines."""
    parts = [re.escape(part) for part in re.split(r'^\.\.\.\n', wanted, flags=re.M)]
    return re.fullmatch('(?:.*\n)*?'.join(parts), printed) is not None


def run_tour(vxmeta, source):
    environment = dict(os.environ, PATH=os.path.dirname(vxmeta) + ':' + os.environ['PATH'],
                       HOME=os.getcwd(), LC_ALL='C.UTF-8')
    environment.pop('VXMETA_PASSWORD', None)
    with open(os.path.join(source, 'docs/vxmeta.md'), encoding='utf-8') as file:
        commands = list(blocks(file.read()))
    wrong = 0
    for command, wanted in commands:
        printed = subprocess.run(['bash', '-c', command], env=environment, text=True,
                                 stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                 stderr=subprocess.STDOUT, check=False).stdout
        if not matches(printed, wanted):
            wrong += 1
            print(f'$ {command}--- printed\n{printed}--- in the page\n{wanted}')
    print(f'{len(commands)} commands, {wrong} print something else')
    return wrong == 0 and len(commands) >= 20


def main():
    if sys.argv[1] == 'files':
        vxmeta, source = map(os.path.abspath, sys.argv[2:4])
        os.makedirs(sys.argv[4], exist_ok=True)
        os.chdir(sys.argv[4])
        return make_files(vxmeta, source)
    missing = [name for name in NEEDED if shutil.which(name) is None]
    if missing:
        print('not installed:', ', '.join(missing))
        sys.exit(SKIPPED)
    vxmeta, source = map(os.path.abspath, sys.argv[1:3])
    with tempfile.TemporaryDirectory() as scratch:
        os.chdir(scratch)
        make_files(vxmeta, source)
        good = run_tour(vxmeta, source)
        os.chdir('/')
    sys.exit(0 if good else 1)


main()
