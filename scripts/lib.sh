# SPDX-License-Identifier: Apache-2.0
# Shared by the scripts beside it: what the project needs and how it is had on Debian 12.
# Sourced, not run.

set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
toolkit_dir=${XMP_TOOLKIT_SOURCE_DIR:-"$root/.deps/xmp-toolkit"}
cd "$root"

die() {
  echo "${0##*/}: $*" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    die "needs root or sudo to run: $*"
  fi
}

# Runs a command that is of interest only when it fails; then its output is shown.
quietly() {
  local log status=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 || status=$?
  [ "$status" -eq 0 ] || cat "$log" >&2
  rm -f "$log"
  return "$status"
}

installed() {
  dpkg-query -W -f '${Status}\n' "$1" 2>/dev/null | grep -q '^install ok installed$'
}

# As many jobs as the machine has cores.
cores() {
  getconf _NPROCESSORS_ONLN
}

# need_packages NAME... installs the Debian packages that are missing. Elsewhere what is missing
# shows in the build.
need_packages() {
  local missing=() name
  command -v apt-get >/dev/null || return 0
  for name in "$@"; do
    installed "$name" || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing: ${missing[*]}"
  quietly as_root apt-get update || die "could not update the package lists"
  quietly as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}" ||
    die "could not install: ${missing[*]}"
}

# Writes Debian's own package sources, as sources of the kind $2 (deb or deb-src), into the folder $1.
write_source_lists() {
  local found=
  if [ -f /etc/apt/sources.list.d/debian.sources ]; then
    sed "s/^Types:.*/Types: $2/" /etc/apt/sources.list.d/debian.sources >"$1/debian.sources"
    found=1
  fi
  if [ -f /etc/apt/sources.list ] && grep -q '^deb ' /etc/apt/sources.list; then
    sed -n "s/^deb /$2 /p" /etc/apt/sources.list >"$1/debian.list"
    found=1
  fi
  [ -n "$found" ] || die "found no Debian package sources in /etc/apt"
}

# fetch KIND COMMAND...: runs an apt-get command in a new folder $work, with lists of packages of its
# own: the system's configuration stays as it is.
fetch() {
  local kind=$1 options
  shift
  mkdir -p "$root/.deps"
  work=$(mktemp -d "$root/.deps/fetch.XXXXXX")
  trap 'rm -rf "$work"' EXIT
  mkdir -p "$work/sources" "$work/lists/partial"
  write_source_lists "$work/sources" "$kind"
  options=(-o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$work/sources"
    -o "Dir::State::lists=$work/lists" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache=
    -o APT::Sandbox::User=root)
  [ -z "${foreign:-}" ] || options+=(-o "APT::Architecture=$foreign" -o "APT::Architectures::=$foreign")
  # A mirror that is being brought up to date lacks a list for a while: the others may do.
  apt-get "${options[@]}" update >/dev/null 2>&1 || true
  (cd "$work" && quietly apt-get "${options[@]}" "$@") || die "could not download: ${*: -1}"
}

# The toolkit's source tree, from Debian's source package, whose signature apt checks.
need_toolkit() {
  [ -d "$toolkit_dir" ] && return
  command -v apt-get >/dev/null ||
    die "has no XMP Toolkit: set XMP_TOOLKIT_SOURCE_DIR to an SDK tree"
  echo "Fetching the XMP Toolkit's source package"
  fetch deb-src source --download-only exempi
  (cd "$work" && quietly dpkg-source -x exempi_*.dsc tree) ||
    die "could not unpack the source package exempi"
  mv "$work/tree" "$toolkit_dir"
  rm -rf "$work"
  trap - EXIT
}

# What the tool vxmeta is built with.
tool_packages=(libcli11-dev nlohmann-json3-dev libfmt-dev libqpdf-dev libexempi-dev
  libutf8proc-dev pkg-config scdoc)

# Everything a build needs.
need_build_tools() {
  need_packages g++ cmake ninja-build dpkg-dev libexpat1-dev libfast-float-dev \
    "${tool_packages[@]}" "$@"
  need_toolkit
}

need_test_tools() {
  need_build_tools libgtest-dev binutils locales qpdf python3-jsonschema strace tidy zsh fish \
    bash-completion jq parallel sqlite3 "$@"
}

# build PRESET TARGETS [OPTION...] configures build/PRESET and builds TARGETS in it, and shows output
# only of failures.
build() {
  local preset=$1 targets
  read -r -a targets <<<"$2"
  shift 2
  echo "Building ($preset)"
  quietly cmake --preset "$preset" "$@" || die "could not configure the build '$preset'"
  quietly cmake --build --preset "$preset" --target "${targets[@]}" || die "could not build '$preset'"
}

# Our own C++ files.
source_files() {
  git ls-files --cached --others --exclude-standard '*.h' '*.cpp'
}
