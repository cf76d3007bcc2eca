#!/usr/bin/env bash
# setup/install.sh [--ci | --bench]
# Installs the missing packages of setup/packages.txt (with --ci also of setup/packages-ci.txt, with --bench of
# setup/packages-bench.txt), then builds luabind for Lua 5.1 if necessary. If nothing is missing, it needs no network
# and takes less than a second. Reports on standard error; standard output stays empty.
set -euo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)

say() { printf 'setup: %s\n' "$*" >&2; }

lists=("$here/packages.txt")
case "${1:-}" in
    "") ;;
    --ci) lists+=("$here/packages-ci.txt") ;;
    --bench) lists+=("$here/packages-bench.txt") ;;
    *)
        say "usage: setup/install.sh [--ci | --bench]"
        exit 2
        ;;
esac

# Prints the names of the wanted packages that are not installed, one per line.
missingPackages() {
    local wanted installed
    wanted=$(sed 's/#.*//' "${lists[@]}" | tr -s '[:space:]' '\n' | sed '/^$/d' | sort -u)
    # dpkg-query fails if it does not know one of the names, but still prints the others.
    # shellcheck disable=SC2086
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
        sed -n 's/^installed //p' | sort -u || true)
    comm -23 <(printf '%s\n' "$wanted") <(printf '%s\n' "$installed")
}

# Runs apt-get with its output in $log. Asks no questions, and waits for another apt to finish.
aptGet() {
    DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 \
        "$@" >>"$log" 2>&1 </dev/null
}

installPackages() {
    local log
    log=$(mktemp)
    say "installing what is missing: $*"
    # A broken third-party archive must not stop us: what counts is whether the installation then works.
    aptGet update || say "apt-get update reported an error, going on with what it fetched"
    if ! aptGet install --no-install-recommends "$@"; then
        tail -n 40 "$log" >&2
        say "apt-get could not install the packages (the whole record: $log)"
        exit 1
    fi
    rm -f "$log"
}

if ! command -v dpkg-query >/dev/null; then
    say "this is no Debian system; install by hand what is listed in: ${lists[*]}"
    exit 1
fi

mapfile -t missing < <(missingPackages)
if ((${#missing[@]} > 0)); then
    if [ "$(id -u)" -ne 0 ]; then
        say "these packages are missing and only root can install them:"
        say "    apt-get install --no-install-recommends ${missing[*]}"
        exit 1
    fi
    installPackages "${missing[@]}"
fi

exec "$here/luabind.sh"
