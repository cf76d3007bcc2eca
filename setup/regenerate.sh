#!/usr/bin/env bash
# setup/regenerate.sh            writes everything that is printed from the tables: after a change to a .def file
# setup/regenerate.sh FOLDER     takes tool, library and tests from a build folder, as they are, not from build/release
# Writes the reference pages, the list of exported names, the tests' records, and for each switch that lacks them a
# word for libFuzzer and its lines in the seeds of the targets session and explain. git diff shows what has changed.
set -euo pipefail
export LC_ALL=C
. "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/steps.sh"
build="$root/build/release"
if [ $# -gt 0 ]; then
    build=$(readlink -f "$1")
else
    configureAndBuild release
fi
cd "$root"

tool() { "$build/bin/ttconfig" "$@"; }

# replace FILE COMMAND...: FILE holds what the command prints, unless the command fails.
replace() {
    local file=$1
    shift
    "$@" >"$file.new"
    mv "$file.new" "$file"
}

exportedNames() {
    grep '^#' tests/reliability/exportedsymbols.txt
    nm -DC --defined-only "$build/lib/libtraderbaseconfig.so" | sed -E 's/^[0-9a-f]* +[A-Za-z] //' | sort -u
}

# "predicate key" of each switch.
switches() { tool switches | awk 'NR > 1 { print $2, $1 }'; }

# holds TEXT FILE...: whether one of the files holds the text, letter case aside.
holds() { grep -qiF -- "$1" "${@:2}"; }

# Adds what the fuzz targets session and explain want of each switch: a word, a call, an answer that a file decides.
completeSeeds() {
    local words=fuzz/words/session.dict calls=fuzz/corpus/session answers=fuzz/corpus/explain predicate key line
    while read -r predicate key; do
        if ! holds "\"$predicate\\\"" "$words"; then
            # libFuzzer takes words of up to 64 bytes.
            line="\"\\x0a{\\\"call\\\":\\\"$predicate\\\",\\\"args\\\":[12]}\\x0a\""
            [ "${#predicate}" -le 39 ] || line="\"\\\"$predicate\\\"\""
            printf '%s\n' "$line" >>"$words"
        fi
        holds "\"$predicate\"" "$calls"/* ||
            printf '{"call":"%s","args":[12]}\n' "$predicate" >>"$calls/switches-added"
        if ! grep -qiE "^ *$key *=" "$answers"/*; then
            [ -e "$answers/switches-added" ] || printf '[setting]\n' >"$answers/switches-added"
            printf '%s=12,15\n;? %s 12\n' "$key" "$predicate" >>"$answers/switches-added"
        fi
    done < <(switches)
}

for page in switches keys; do replace "docs/reference/$page.md" tool "$page" --format markdown; done
replace docs/reference/checks.md tool check --explain all --format markdown
replace tests/reliability/exportedsymbols.txt exportedNames
completeSeeds
TT_REGENERATE=1 quietly "recording" ctest --test-dir "$build" --no-tests=error -R Recorded
git status --short 2>/dev/null || true
