#!/usr/bin/env bash
# setup/layers.sh [FOLDER]   checks the includes below FOLDER (default: the project's root) against setup/layers.txt
# Reports each include that does not go down, each source without a layer and each room without sources; exits with 1 if
# there are any.
set -euo pipefail
export LC_ALL=C
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
cd "${1:-$here/..}"

# The project's files come first, so that its includes can be told from third-party ones.
{
    cat setup/layers.txt
    printf '@files\n'
    find libs base platform tools tests fuzz benchmarks -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.def' -o -name '*.inc' \) | sort
    printf '@includes\n'
    find libs base platform tools -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.def' \) -exec \
        grep -nE '^[[:space:]]*#[[:space:]]*include[[:space:]]*[<"]' /dev/null {} + | sort
} | awk '
    function complain(text) { print text; wrong = 1 }
    # The room of a file: its folder, unless the layers list files by its extension.
    function room(path,    folder, ending) {
        folder = ending = path
        sub(/\/[^\/]*$/, "", folder)
        sub(/^.*\./, "", ending)
        return (folder "/*." ending) in layer ? folder "/*." ending : folder
    }
    # The project file to which an include refers, or nothing.
    function meant(from, name,    i, folder) {
        folder = from
        sub(/[^\/]*$/, "", folder)
        if ((folder name) in known) return folder name
        for (i = 1; i <= count; i++) if ((root[i] name) in known) return root[i] name
        return ""
    }
    BEGIN { count = split("libs/,base/src/,platform/include/,platform/,tools/,", root, ","); part = "layers" }
    /^@/ { part = substr($0, 2); next }
    part == "layers" {
        sub(/#.*/, "")
        if (NF > 0) lines++
        for (i = 1; i <= NF; i++) layer[$i] = lines
        next
    }
    part == "files" {
        known[$0]
        if ($0 ~ /^(libs|base|platform|tools)\// ) {
            used[room($0)]
            if (!(room($0) in layer)) complain($0 ": its folder has no place in setup/layers.txt")
        }
        next
    }
    {
        split($0, place, ":")
        name = $0
        sub(/^[^<"]*[<"]/, "", name)
        sub(/[>"].*/, "", name)
        target = meant(place[1], name)
        if (target == "") next
        here = room(place[1])
        there = room(target)
        if (here == there || !(here in layer)) next
        if (!(there in layer)) complain(place[1] ":" place[2] ": includes " name ", which no layer holds")
        else if (layer[there] <= layer[here]) complain(place[1] ":" place[2] ": includes " name ", which lies in no lower layer")
    }
    END {
        for (name in layer) if (!(name in used)) complain("setup/layers.txt: " name " holds no sources")
        exit wrong
    }
'
