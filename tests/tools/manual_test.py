# SPDX-License-Identifier: Apache-2.0
"""The manual page and --help name the same: manual_test.py VXMETA PAGE."""
import re
import subprocess
import sys

HELP = {'-h', '--help'}  # of every command, and not repeated
OPTION = r'(?<![\w-])--?[a-z][\w-]*'


def help_of(vxmeta, *command):
    return subprocess.run([vxmeta, *command, '--help'], capture_output=True, text=True,
                          check=True).stdout


def options_in(help_text):
    """The names in front of each line's description, and the values that they take."""
    found = {}
    for names, value in re.findall(r'^  (-\S+)(?: ([A-Z]+))?(?=  )', help_text, re.M):
        found.update({name: value for name in names.split(',')})
    return found


def arguments_in(help_text):
    return re.search(r'^Usage: vxmeta \w+ \[OPTIONS\] ?(.*)$', help_text, re.M).group(1)


def section_of(page, name):
    return re.search(rf'^# {name}$(.*?)(?=^# |\Z)', page, re.M | re.S).group(1)


def synopses(page):
    """Of each command: its options with their values, and its arguments."""
    commands = {}
    for name, text in re.findall(r'^## (\w+)\n\n(.*?)\n\n', section_of(page, 'COMMANDS'), re.M | re.S):
        plain = re.sub(r'[*_\\]', '', text).replace('\n', ' ')
        options = dict(re.findall(rf'\[({OPTION})(?: ([A-Z]+))?\]', plain))
        commands[name] = options, re.sub(rf'^vxmeta {name} ?|\[-.*?\](\.\.\.)? ?', '', plain)
    return commands


def described(page):
    lines = re.findall(r'^(\*-.*)$', section_of(page, 'OPTIONS'), re.M)
    return [name for line in lines for name in re.findall(OPTION, line)]


def long_names(options, names):
    """Where an option has two names, a synopsis has the short one."""
    pairs = {short: long for short, long in names}
    return {pairs.get(name, name): value for name, value in options.items()}


def failures(vxmeta, page):
    top = help_of(vxmeta)
    commands = re.findall(r'^  ([a-z]+)  ', top.split('Subcommands:')[1], re.M)
    pages = synopses(page)
    if sorted(commands) != sorted(pages):
        yield f'commands: {sorted(commands)} in --help, {sorted(pages)} in the page'
    known = set(options_in(top))
    for command in commands:
        text = help_of(vxmeta, command)
        pairs = re.findall(r'^  (-\w),(--\S+)', text, re.M)
        options = options_in(text)
        known |= set(options)
        wanted = long_names({n: v for n, v in options.items() if n not in HELP}, pairs)
        got_options, got_arguments = pages.get(command, ({}, ''))
        if wanted != long_names(got_options, pairs):
            yield f'{command}: {wanted} in --help, {long_names(got_options, pairs)} in the page'
        if arguments_in(text) != got_arguments:
            yield f'{command}: "{arguments_in(text)}" in --help, "{got_arguments}" in the page'
    names = described(page)
    if sorted(names) != sorted(known):
        yield f'described: {set(names) ^ known}, or twice'


def main():
    with open(sys.argv[2], encoding='utf-8') as file:
        found = list(failures(sys.argv[1], file.read()))
    print('\n'.join(found) or 'the page and --help agree')
    sys.exit(1 if found else 0)


main()
