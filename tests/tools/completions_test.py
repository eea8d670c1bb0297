# SPDX-License-Identifier: Apache-2.0
"""Types at the tool's completions in a real shell: completions_test.py SHELL VXMETA FOLDER."""
import os
import pty
import select
import shlex
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
BASH_COMPLETION = '/usr/share/bash-completion/bash_completion'

# What is typed, and what becomes of it; options and commands also take a blank behind them.
CASES = [
    ('vxmeta sho', 'vxmeta show'),
    ('vxmeta --vers', 'vxmeta --version'),
    ('vxmeta show --sec', 'vxmeta show --section'),
    ('vxmeta show -s scre', 'vxmeta show -s screens'),
    ('vxmeta show one.pdf tw', 'vxmeta show one.pdf two.pdf'),
    ('vxmeta get one.pdf job.ord', 'vxmeta get one.pdf job.orderid'),
    ('vxmeta get one.pdf inks[0].an', 'vxmeta get one.pdf inks[0].angle'),
    ('vxmeta get one.pdf screens[0][1].dotn', 'vxmeta get one.pdf screens[0][1].dotname'),
    ('vxmeta get --object 3 one.pdf job.ord', 'vxmeta get --object 3 one.pdf job.orderid'),
    ('vxmeta set --how spl', 'vxmeta set --how splice'),
    ("vxmeta set one.pdf 'inks[na", "vxmeta set one.pdf 'inks[name="),
    ('vxmeta set one.pdf inks[name=Gold].an', 'vxmeta set one.pdf inks[name=Gold].angle'),
    ("vxmeta set one.pdf 'inks[name=Leaf green].an",
     "vxmeta set one.pdf 'inks[name=Leaf green].angle"),
    ('vxmeta set one.pdf job.name=x job.ord', 'vxmeta set one.pdf job.name=x job.orderid'),
    ('vxmeta check --only curve-f', 'vxmeta check --only curve-fall'),
    ('vxmeta merge --films sep', 'vxmeta merge --films separations'),
    ('vxmeta merge one.pdf one.pdf tw', 'vxmeta merge one.pdf one.pdf two.pdf'),
    ('vxmeta embed one.pdf pac', 'vxmeta embed one.pdf packet.xmp'),
    ('vxmeta embed -o tw', 'vxmeta embed -o two.pdf'),
    ('vxmeta embed --backup --dr', 'vxmeta embed --backup --dry-run'),
    ('vxmeta diff --color alw', 'vxmeta diff --color always'),
]

# The keys that write the line as it stands into the file "line".
BASH = '''PS1=; bind 'set bell-style none'; bind 'set enable-bracketed-paste off'
source {bash_completion}; source {folder}/vxmeta.bash
bind -x '"\\C-g": printf %s. "$READLINE_LINE" >line.part; mv line.part line'
'''
ZSH = '''PS1=; fpath=({folder} $fpath); autoload -Uz compinit; compinit -u -d zcompdump
unsetopt beep zle_bracketed_paste
unset zle_bracketed_paste
keep() {{ printf %s. "$BUFFER" >line.part; mv line.part line }}
zle -N keep; bindkey '^G' keep; bindkey '^U' kill-whole-line
'''


def without_quotes(line):
    """The line's words; what the shell had to quote, and the end of it, does not count."""
    for end in ('', "'", '"'):
        try:
            return shlex.split(line + end)
        except ValueError:
            pass
    return [line]


class Terminal:
    """An interactive shell in the folder that the files are in."""

    def __init__(self, arguments, setup):
        self.child, self.fd = pty.fork()
        if self.child == 0:
            os.execvp(arguments[0], arguments)
        self.send(setup + 'touch ready\n')
        self.wait_for('ready')

    def send(self, text):
        data = text.encode()
        while data:
            data = data[os.write(self.fd, data[:200]):]
            self.drain()

    def drain(self):
        while select.select([self.fd], [], [], 0.02)[0]:
            os.read(self.fd, 65536)

    def wait_for(self, name):
        for _ in range(1500):  # half a minute at least: a failure, not a measurement
            if os.path.exists(name):
                return
            self.drain()
        sys.exit(f'the shell does not answer: no {name}')

    def completed(self, line):
        self.send('\x15' + line + '\t\x07')
        self.wait_for('line')
        with open('line', encoding='utf-8') as file:
            text = file.read()
        os.remove('line')
        return text[:-1]


def in_terminal(arguments, setup, folder):
    terminal = Terminal(arguments, setup.format(folder=folder, bash_completion=BASH_COMPLETION))
    return terminal.completed


def in_fish(folder):
    """fish tells by itself what it would offer."""
    def completed(line):
        script = 'source $argv[1]; complete -C $argv[2]'
        offers = subprocess.run(['fish', '-c', script, f'{folder}/vxmeta.fish', line],
                                capture_output=True, text=True, check=True).stdout.splitlines()
        if len(offers) != 1:
            return f'{len(offers)} offers: {offers[:5]}'
        cut = line.rfind("'") if "'" in line else line.rfind(' ') + 1
        return line[:cut] + shlex.quote(offers[0].split('\t')[0])
    return completed


def completer(shell, folder):
    if shutil.which(shell) is None or shell == 'bash' and not os.path.exists(BASH_COMPLETION):
        print(f'{shell}, or its completion, is not installed')
        sys.exit(SKIPPED)
    if shell == 'fish':
        return in_fish(folder)
    if shell == 'zsh':
        return in_terminal(['zsh', '-f', '-i'], ZSH, folder)
    return in_terminal(['bash', '--norc', '-i'], BASH, folder)


def failures(completed):
    for line, wanted in CASES:
        got = completed(line)
        if without_quotes(got) != without_quotes(wanted):
            yield f'{line!r}: {got!r}, not {wanted!r}'


def main():
    shell, vxmeta, folder = sys.argv[1], sys.argv[2], os.path.abspath(sys.argv[3])
    with tempfile.TemporaryDirectory() as scratch:
        os.environ.update(HOME=scratch, TERM='dumb' if shell == 'bash' else 'xterm', LC_ALL='C.UTF-8',
                          PATH=os.path.dirname(vxmeta) + ':' + os.environ['PATH'])
        os.chdir(scratch)
        for name in ('one.pdf', 'two.pdf', 'packet.xmp'):
            open(name, 'w', encoding='utf-8').close()
        found = list(failures(completer(shell, folder)))
    print('\n'.join(found) or f'{shell}: {len(CASES)} completions')
    sys.exit(1 if found else 0)


main()
