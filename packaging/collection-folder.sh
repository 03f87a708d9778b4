# shellcheck shell=bash
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and the installed start script have in common: preparing the folder of a collection. To be sourced, by a
# script that has a function "die MESSAGE".

# in_folder NAME: the path of that file in $folder, whatever the letter case of its name. The folder may be a link.
in_folder() { find -H "$folder" -maxdepth 1 -iname "$1" -print -quit; }

# put FILE NAME [OPTION]: a whole copy of a delivered file into $folder, or none; the option is one of mv. The name may
# be one in a folder below.
put() {
    local new="$folder/.${2##*/}.$$" error
    error=$({ cp -- "$1" "$new" && chmod u+w -- "$new" && sync -- "$new" &&
        mv ${3:+"$3"} -- "$new" "$folder/$2" && rm -f -- "$new"; } 2>&1) ||
        die "$2 could not be put into the folder of the collection. $error"
}

# prepare_folder DELIVERED FOLDER DATABASE: makes the folder and puts the delivered files into it. A database is placed
# only where there is none: a collection is never overwritten. What lies delivered in a folder of the database's name
# (pictures, reports) comes with it.
prepare_folder() {
    local found error file delivered=$1 database=$3
    folder=$2
    error=$(mkdir -p -- "$folder" 2>&1) || die "the folder of the collection could not be made. $error"
    trap 'rm -f -- "$folder"/.*.$$' EXIT
    # The program itself finishes a packing that was interrupted between its last two steps.
    if [[ -z $(in_folder coin.mdb) && (-z $(in_folder coindb.bak) || -z $(in_folder coinnew.mdb)) ]]; then
        found=$(in_folder 'coin*.mdb*')
        found=${found:-$(in_folder coindb.bak)}
        [[ -z $found ]] || die "there is no coin.mdb, but $found is there. Rename the file that holds your" \
            "collection to coin.mdb, or move it elsewhere to start with an empty collection."
        while IFS= read -r file; do
            mkdir -p -- "$folder/$(dirname "$file")" || die "the folder of the collection could not be made."
            put "$delivered/${database%.mdb}/$file" "$file" --no-clobber
        done < <([[ ! -d $delivered/${database%.mdb} ]] || find "$delivered/${database%.mdb}" -type f -printf '%P\n')
        put "$delivered/$database" coin.mdb --no-clobber
    fi
    if [[ -z $(in_folder rptspec.mdb) ]]; then
        put "$delivered/rptspec.mdb" rptspec.mdb --no-clobber
    fi
    found=$(in_folder coin.hlp)
    cmp --quiet "$delivered/coin.hlp" "${found:-$folder/coin.hlp}" ||
        put "$delivered/coin.hlp" "$(basename "${found:-coin.hlp}")"
}
