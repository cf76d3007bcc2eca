#!/usr/bin/env bash
# setup/abi.sh check LIBRARY         compares a library's interface with the last release's (docs/abi/release.abi.xz)
# setup/abi.sh dump LIBRARY [FILE]   writes the interface there, or to FILE; to be done for each release
# The library must be built with full debugging information. A difference is an error unless the changelog mentions it:
# "### Interface" under the first "##" heading, the coming release, has one line per change.
set -euo pipefail
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
kept="$root/docs/abi/release.abi.xz"
suppressions="$root/setup/abi.abignore"

usage() {
    sed -n '2,3s/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
}

# Prints what a client can use, without implementation details and without anything that depends on the machine.
dump() {
    abidw --exported-interfaces-only --headers-dir "$root/libs/traderbase/base/config" --headers-dir "$root/base/src/luaconfig" \
        --headers-dir "$root/platform/include/ttplatform" --drop-private-types --no-corpus-path --no-comp-dir-path \
        --no-show-locs --no-elf-needed --type-id-style hash --suppressions "$suppressions" "$1" |
        sed "s|'$root/|'|g"
}

# Prints the lines under "### Interface" in the changelog's first release.
interfaceLines() {
    awk '/^## /{if (++release > 1) exit} /^### /{inside = ($0 == "### Interface"); next} inside && /^- /' "$root/CHANGELOG.md"
}

check() {
    local folder status=0
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' RETURN
    dump "$1" >"$folder/now.abi"
    xz -dc "$kept" >"$folder/release.abi"
    abidiff --suppressions "$suppressions" --no-redundant "$folder/release.abi" "$folder/now.abi" || status=$?
    if [ "$status" -eq 0 ]; then
        echo "the interface is the last release's"
    elif [ $((status & 3)) -ne 0 ]; then
        echo "abidiff failed with $status" >&2
        return 1
    elif [ -n "$(interfaceLines)" ]; then
        echo "the interface has changed, and CHANGELOG.md tells of it:"
        interfaceLines
    else
        echo 'the interface has changed: say so in CHANGELOG.md, under "### Interface" of the coming release' >&2
        return 1
    fi
}

case "${1:-} $#" in
    "check 2") check "$2" ;;
    "dump 2") dump "$2" | xz -9 >"$kept" ;;
    "dump 3") dump "$2" | xz -9 >"$3" ;;
    *) usage ;;
esac
