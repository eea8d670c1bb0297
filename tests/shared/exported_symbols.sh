#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# exported_symbols.sh LIBRARY [also-std]: nothing leaves the library but the class, the records'
# operators and XMP_Error's type, and nothing of a thread's own has a destructor. Visibility alone
# cannot hide what comes of the standard library's templates: with also-std that may leave it too.
set -euo pipefail
symbols=$(nm -D --defined-only -C "$1" | cut -d' ' -f3-)
[ "${2:-}" != also-std ] || symbols=$(grep -vE '^([^(]* )?(std|__gnu_cxx)::' <<<"$symbols")
unexpected=$(grep -vE '^XMPlib::~?[A-Za-z_]+(\[abi:cxx11\])?\(|^XMPl(ib|[A-Za-z]+)::operator(==|<|=)\(|^typeinfo (name )?for XMP_Error$|^(__bss_start|_edata|_end)$' <<<"$symbols" || true)
if [ -n "$unexpected" ]; then
  echo "These symbols should stay inside:"
  echo "$unexpected"
  exit 1
fi
# glibc ends the process where it has no memory for what a thread's end is to destroy.
if nm -D --undefined-only "$1" | grep -q '__cxa_thread_atexit'; then
  echo "Something of a thread's own has a destructor."
  exit 1
fi
grep -q '^typeinfo for XMP_Error$' <<<"$symbols"
grep -q '^XMPlib::SetXML(' <<<"$symbols"
