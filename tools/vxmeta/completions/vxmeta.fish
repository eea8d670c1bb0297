# SPDX-License-Identifier: Apache-2.0
# fish completion for vxmeta. What there is to complete, the tool itself says.

# The options of a command, or of the tool, with what they say; $argv: the command.
function __vxmeta_options
    vxmeta $argv --help 2>/dev/null | string match -r '^  -.*' | while read -l line
        set -l parts (string match -r '^ *(\S+)( [A-Z]+)?  +(.*)' -- $line)
        for name in (string split , -- $parts[2])
            printf '%s\t%s\n' $name $parts[-1]
        end
    end
end

# What the value of an option of a command is called.
function __vxmeta_value_of --argument-names command option
    vxmeta $command --help 2>/dev/null |
        string match -r -g -- "^  (?:\S+,)?$option(?:,\S+)? ([A-Z]+)  "
end

# What the arguments of a command are called.
function __vxmeta_arguments --argument-names command
    vxmeta $command --help 2>/dev/null | string match -r -g '^Usage: vxmeta \S+ \[OPTIONS\] (.*)' |
        string replace -ar '[\[\].]' '' | string split ' '
end

# What the word that is being written is called, behind the command and the words in $argv.
function __vxmeta_value --argument-names command
    set -l words $argv[2..]
    if string match -q -- '-*' "$words[-1]"
        __vxmeta_value_of $command $words[-1] && return
    end
    set -l count 1
    set -l i 1
    while test $i -le (count $words)
        if not string match -q -- '-?*' $words[$i]
            set count (math $count + 1)
        else if __vxmeta_value_of $command $words[$i] >/dev/null
            set i (math $i + 1)
        end
        set i (math $i + 1)
    end
    set -l names (__vxmeta_arguments $command)
    test $count -gt (count $names) && set count -1
    echo $names[$count]
end

function __vxmeta_complete
    set -l words (commandline -opc)[2..]
    set -l word (commandline -ct)
    if test (count $words) -eq 0
        vxmeta --help | string replace -rf '^  ([a-z]+)  +' '$1\t'
        __vxmeta_options
        return
    end
    set -l value (__vxmeta_value $words)
    switch "$value"
        case PATH CHANGE SECTION
            vxmeta schema --complete (string unescape -- $word; or string trim -lc '\'"' -- $word)
        case ID
            vxmeta check --list-checks | string replace -r ' +' '\t'
        case WAY
            printf '%s\n' splice append rewrite
        case WHEN
            printf '%s\n' auto always never
        case HOW
            printf '%s\n' separations pages
        case N ''
        case '*'
            __fish_complete_path $word
    end
    string match -q -- '-*' $word && __vxmeta_options $words[1]
end

complete -c vxmeta -f -a '(__vxmeta_complete)'
