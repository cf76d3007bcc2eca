# shellcheck shell=bash
# The steps shared by run, test, bench and .ci/run, which source this file. "root" is the top of the source tree.
# All functions report on standard error and read nothing; standard input and output belong to the scripts' callers.

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
tickerPid=

# ticker LABEL: reports every 20 seconds that the step is still running, until the script that started it is gone.
ticker() {
    local start=$SECONDS idle
    exec {idle}<> <(:) # reading this pipe pauses without a child process that could outlive us
    while read -r -t 20 -u "$idle" || kill -0 "$$" 2>/dev/null; do
        printf '%s: %d s\n' "$1" $((SECONDS - start)) >&2
    done
}

stopTicker() {
    [ -n "$tickerPid" ] || return 0
    kill "$tickerPid" 2>/dev/null || true
    wait "$tickerPid" 2>/dev/null || true
    tickerPid=
}
trap stopTicker EXIT

# quietly LABEL COMMAND...: runs the command and shows its output only when it fails.
quietly() {
    local label=$1 log status=0
    shift
    log=$(mktemp)
    ticker "$label" </dev/null >/dev/null &
    tickerPid=$!
    "$@" >"$log" 2>&1 </dev/null || status=$?
    stopTicker
    if [ "$status" -ne 0 ]; then
        cat "$log" >&2
        printf '%s: failed\n' "$label" >&2
    fi
    rm -f "$log"
    return "$status"
}

# installDependencies [--ci | --bench]: installs what this machine lacks; returns at once if nothing is missing.
installDependencies() { "$root/setup/install.sh" "$@" </dev/null >&2; }

# configureAndBuild PRESET [TARGET...]: brings build/PRESET up to date. Concurrent scripts wait for each other.
configureAndBuild() {
    local preset=$1 folder="$root/build/$1" lock status=0
    shift
    mkdir -p "$root/build"
    exec {lock}>"$root/build/.$preset.lock"
    flock "$lock"
    # The build folder of a copied or moved source tree still refers to the old location.
    if [ -f "$folder/CMakeCache.txt" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
        rm -rf "$folder"
    fi
    quietly "configuring $preset" cmake -S "$root" --preset "$preset" &&
        quietly "building $preset" cmake --build "$folder" -j "$(nproc)" ${1:+--target "$@"} || status=$?
    exec {lock}>&-
    return "$status"
}
