# SPDX-License-Identifier: Apache-2.0
# bash completion for vxmeta. What there is to complete, the tool itself says.

# The long names of the command's options, or of the tool's.
__vxmeta_options() {
  vxmeta "$@" --help 2>/dev/null | sed -n 's/^  \(-.,\)\{0,1\}\(--[^ ]*\) .*/\2/p'
}

# What the value of the option $2 of the command $1 is called.
__vxmeta_value_of() {
  vxmeta "$1" --help 2>/dev/null |
    sed -n "s/^  \(-[^ ]*,\)\{0,1\}$2\(,[^ ]*\)\{0,1\} \([A-Z][A-Z]*\)  .*/\3/p" 2>/dev/null
}

# What the command's $2-th argument is called; the last one may come several times.
__vxmeta_argument() {
  local names
  read -r -a names < <(vxmeta "$1" --help 2>/dev/null |
    sed -n 's/^Usage: vxmeta [a-z]* \[OPTIONS\] *//p' | tr -d '[].')
  local last=$((${#names[@]} - 1))
  [ "$last" -lt 0 ] || echo "${names[$(($2 < last ? $2 : last))]}"
}

# Values may begin with a quote, which is not a part of them.
__vxmeta_paths() {
  vxmeta schema --complete "${1#[\"\']}" 2>/dev/null | cut -f 1
}

__vxmeta_values() {
  case $1 in
    WAY) echo splice append rewrite ;;
    WHEN) echo auto always never ;;
    HOW) echo separations pages ;;
    ID) vxmeta check --list-checks | cut -d ' ' -f 1 ;;
  esac
}

# Takes the lines of standard input that begin with $1, and from them what bash takes for words of
# their own: "=" ends one.
__vxmeta_reply() {
  local line before=
  [[ $1 != *=* || $1 == [\"\']* ]] || before=${1%"${1##*=}"}
  while read -r line; do
    [[ $line == "${1#[\"\']}"* ]] && COMPREPLY+=("${line#"$before"}")
  done
}

# Completes the word $1, a value called $2.
__vxmeta_complete() {
  case $2 in
    PATH | CHANGE | SECTION)
      __vxmeta_reply "$1" < <(__vxmeta_paths "$1")
      compopt -o nospace
      ;;
    WAY | WHEN | HOW | ID) __vxmeta_reply "$1" < <(__vxmeta_values "$2" | tr ' ' '\n') ;;
    N) ;;
    *) _filedir ;;
  esac
}

# What the word that is being written is called: the value of the option in front of it, or an
# argument. Reads the variables of _vxmeta.
__vxmeta_called() {
  local i count=0 value
  [[ $prev != -* ]] || value=$(__vxmeta_value_of "$command" "$prev")
  [[ -z $value ]] || { echo "$value" && return; }
  [[ $cur != -?* ]] || return
  for ((i = 2; i < cword; i++)); do
    if [[ ${words[i]} != -?* ]]; then
      count=$((count + 1))
    elif [[ -n $(__vxmeta_value_of "$command" "${words[i]}") ]]; then
      i=$((i + 1))
    fi
  done
  __vxmeta_argument "$command" "$count"
}

_vxmeta() {
  local cur prev words cword command= value=
  _init_completion -n '=:' || return
  if [ "$cword" -eq 1 ]; then
    __vxmeta_reply "$cur" < <(vxmeta --help | sed -n '1,/^Subcommands/d; s/^  \([a-z]*\)  .*/\1/p')
  else
    command=${words[1]}
    value=$(__vxmeta_called)
  fi
  if [[ -n $value ]]; then
    __vxmeta_complete "$cur" "$value"
  elif [[ $cur == -* ]]; then
    __vxmeta_reply "$cur" < <(__vxmeta_options ${command:+"$command"})
  fi
} && complete -F _vxmeta vxmeta
