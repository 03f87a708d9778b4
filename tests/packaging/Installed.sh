#!/usr/bin/env bash
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build, or the Debian package that was made of it, and uses what is there as a desktop and its user would:
# Installed.sh BUILD [PACKAGE]
set -euo pipefail
# shellcheck source=tools/setup.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/setup.sh"
# shellcheck source=tools/screenshot.sh
source "$root/tools/screenshot.sh"

build=$1
open_screen
system=$scratch/system
prefix=$system/usr
delivered=$prefix/share/obelmark
if (($# == 1)); then
    cmake --install "$build" --prefix "$prefix" >/dev/null
else
    # Into a system of its own: the machine stays as it is. The libraries are those of the machine.
    apt-get --simulate install "$(realpath "$2")" >/dev/null || die "what the package depends on cannot be had"
    mkdir -p "$system"/var/lib/dpkg/{info,updates}
    touch "$system/var/lib/dpkg/status"
    dpkg --root="$system" --force-not-root --force-depends --install "$2" >"$scratch/dpkg.log" 2>&1 ||
        die "the package cannot be installed: $(cat "$scratch/dpkg.log")"
fi

# --- what desktops and software centres read ---

entry=$prefix/share/applications/obelmark.desktop
problems=$(desktop-file-validate "$entry" 2>&1) || die "the desktop entry: $problems"
[[ -z $problems ]] || die "the desktop entry: $problems"
while read -r command _; do
    [[ -x $prefix/bin/$command ]] || die "the desktop entry starts $command, which is not installed"
done < <(sed -n 's/^Exec=//p' "$entry")
icon=$(sed -n 's/^Icon=//p' "$entry")
for size in scalable 16x16 24x24 32x32 48x48 64x64 128x128 256x256; do
    compgen -G "$prefix/share/icons/hicolor/$size/apps/$icon.*" >/dev/null || die "no icon $icon of the size $size"
done
problems=$(appstreamcli validate-tree --no-net --no-color "$system" 2>&1) || die "the metainfo: $problems"

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' "$build/CMakeCache.txt")
changes=$prefix/share/doc/obelmark
[[ $(zcat "$changes/changelog.gz") == "obelmark ($version) "* ]] || die "the changelog does not begin with $version"
[[ $(zcat "$changes/CHANGELOG.md.gz") == *"## $version "* ]] || die "CHANGELOG.md has no $version"
grep -q "<release version=\"$version\"" "$prefix"/share/metainfo/*.xml || die "the metainfo has no release $version"

# --- starting it ---

export HOME=$scratch/home
unset OBELMARK_FOLDER XDG_CONFIG_HOME
mkdir "$HOME"
# The libraries of X and D-Bus, which no other test loads, stand neither of these checks of the sanitizers.
export ASAN_OPTIONS=${ASAN_OPTIONS-}:strict_string_checks=0:detect_leaks=0

coins_in() { sqlite3 "$1" 'select count(*) from Coin'; }

has_open() {
    local file
    for file in /proc/"$program"/fd/*; do
        [[ $file -ef $1 ]] && return
    done
    return 1
}

# opens FOLDER COINS [ARGUMENT...]: the start script must bring up the program on that folder, which has so many coins
opens() {
    local folder=$1 coins=$2
    start_program "$prefix/bin/obelmark" "${@:3}"
    save_picture "$scratch/picture.png"
    [[ /proc/$program/exe -ef $prefix/lib/obelmark/obelmark ]] || die "another program was started"
    has_open "$folder/coin.mdb" || die "the program has not opened $folder/coin.mdb"
    end_program
    [[ $(coins_in "$folder/coin.mdb") == "$coins" ]] || die "$folder/coin.mdb does not have $coins coins"
    cmp "$delivered/rptspec.mdb" "$folder/rptspec.mdb"
    cmp "$delivered/coin.hlp" "$folder/coin.hlp"
    [[ -z $(find "$folder/" -name '.*.*') ]] || die "the start script has left files in $folder"
}

# refuses WHY: the start script must say so and end without making a collection
refuses() {
    local said
    said=$(DISPLAY='' "$prefix/bin/obelmark" 2>&1) && die "the program was started although $1"
    [[ $said == "obelmark: $1"* ]] || die "when $1 the start script said: $said"
}

opens "$HOME/Obelmark" 0

# The collection of a user who keeps it elsewhere, with a help file of an older version.
mv "$HOME/Obelmark" "$HOME/Münzen"
ln -s "$HOME/Münzen" "$HOME/Obelmark"
sqlite3 "$HOME/Münzen/coin.mdb" "insert into Coin (descr) values ('Maria Theresa thaler')"
mv "$HOME/Münzen/coin.mdb" "$HOME/Münzen/Coin.MDB.moved"
echo old >"$HOME/Münzen/coin.hlp"
refuses "there is no coin.mdb, but $HOME/Obelmark/Coin.MDB.moved is there"
[[ ! -e $HOME/Münzen/coin.mdb ]] || die "an empty collection was put beside one with another name"
mv "$HOME/Münzen/Coin.MDB.moved" "$HOME/Münzen/coin.mdb"
opens "$HOME/Obelmark" 1

sample=$(coins_in "$delivered/sample.mdb")
((sample > 0)) || die "the sample collection is empty"
opens "$HOME/Obelmark-sample" "$sample" sample
diff -r "$delivered/sample/images" "$HOME/Obelmark-sample/images" || die "not the pictures of the sample collection"
for report in "$delivered"/sample/*.rpt; do
    cmp "$report" "$HOME/Obelmark-sample/$(basename "$report")"
done
# What the user has thrown away stays away.
rm "$HOME/Obelmark-sample/images"/*
opens "$HOME/Obelmark-sample" "$sample" sample
[[ -z $(ls "$HOME/Obelmark-sample/images") ]] || die "the pictures of the sample collection have come back"

HOME=/dev/null refuses "the folder of the collection could not be made"
