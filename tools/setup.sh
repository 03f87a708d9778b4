# shellcheck shell=bash
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and ./test have in common: installing packages and building. To be sourced.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s\n' "$*" >&2; }
die() {
    say "${0##*/}: $*"
    exit 1
}

# is_installed PACKAGE
is_installed() { [[ $(dpkg-query --show --showformat='${Status}' "$1" 2>/dev/null) == *' ok installed' ]]; }

apt_install() {
    local -a apt=(env DEBIAN_FRONTEND=noninteractive apt-get --yes --option DPkg::Lock::Timeout=120)
    say "Installing: $*"
    if ((EUID != 0)); then
        command -v sudo >/dev/null || { say "You are not root and sudo is not here. As root: apt-get install $*"; return 1; }
        apt=(sudo "${apt[@]}")
    fi
    # The package lists at hand may be missing or too old: only then are they fetched.
    "${apt[@]}" install --no-install-recommends "$@" ||
        { "${apt[@]}" update && "${apt[@]}" install --no-install-recommends "$@"; }
}

# install_packages required|all: what is missing of packages.txt, without or with its optional lines
install_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian system: packages.txt tells what must be installed."
        return
    fi
    local name kind
    local -a missing=() wished=()
    while read -r name kind; do
        if [[ -z $name || $name == '#'* ]] || is_installed "$name"; then
            continue
        elif [[ $kind == optional ]]; then
            wished+=("$name")
        else
            missing+=("$name")
        fi
    done <"$root/packages.txt"

    if ((${#missing[@]})); then
        apt_install "${missing[@]}" >&2 || die "these packages could not be installed: ${missing[*]}"
    fi
    if [[ $1 == all ]] && ((${#wished[@]})); then
        apt_install "${wished[@]}" >&2 || say "Going on without: ${wished[*]}"
    fi
}

# build PRESET [TARGET...]: into build/PRESET, everything or only those targets
build() {
    cd "$root" || return
    local -a fresh=()
    # A build that has come with a copy of the folder still means the original.
    grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "build/$1/CMakeCache.txt" || fresh=(--fresh)
    cmake "${fresh[@]}" --preset "$1" >/dev/null && cmake --build --preset "$1" ${2:+--target "${@:2}"}
}
