#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# jobs_test.sh VXMETA FILE...: several files at once are the same as one after the other, the
# unreadable ones too.
set -eu
tool=$1
shift
files=()
for round in 1 2 3 4 5 6 7 8; do
  files+=("$@" "/nowhere/$round")
done
run() {
  "$tool" "$1" -j "$2" "${files[@]}" 2>&1 || echo "exit $?"
}
for command in json check; do
  [ "$(run $command 8)" = "$(run $command 1)" ] || {
    echo "$command -j 8 differs from $command -j 1"
    exit 1
  }
done
