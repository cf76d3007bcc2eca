#!/usr/bin/env bash
# setup/luabind.sh          builds luabind against Lua 5.1, unless that is done already
# setup/luabind.sh --path   prints the folder of the build, and builds nothing
#
# The packaged luabind is linked against Lua 5.2, so we compile the distribution's source package against 5.1, as a
# static, position-independent library with hidden symbols, so that our shared library does not export them.
# The folder lies outside every build folder, so that all presets and all clones share one build:
#     $TRADERBASE_CACHE, else $XDG_CACHE_HOME/traderbase, else ~/.cache/traderbase, else /var/tmp/traderbase-<uid>
set -euo pipefail
export LC_ALL=C

# Increase this number when the build changes; every machine then rebuilds luabind.
recipe=2

say() { printf 'setup: %s\n' "$*" >&2; }

cacheRoot() {
    local home
    if [ -n "${TRADERBASE_CACHE:-}" ]; then
        printf '%s\n' "$TRADERBASE_CACHE"
    elif [[ "${XDG_CACHE_HOME:-}" == /* ]]; then
        printf '%s\n' "$XDG_CACHE_HOME/traderbase"
    else
        home=${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6 || true)}
        if [[ "$home" == /?* ]] && [ -d "$home" ] && [ -w "$home" ]; then
            printf '%s\n' "$home/.cache/traderbase"
        else
            printf '%s\n' "/var/tmp/traderbase-$(id -u)"
        fi
    fi
}

isComplete() { [ -s "$1/lib/libluabind.a" ] && [ -s "$1/include/luabind/build_information.hpp" ]; }

# Fetches and unpacks the source package NAME into FOLDER. Debian machines rarely have deb-src entries, so we derive
# them from the machine's deb entries, in our own lists, without touching /etc and /var.
fetchSource() {
    local name=$1 folder=$2 file entry
    local apt="$folder/apt"
    mkdir -p "$apt/sources" "$apt/lists/partial" "$apt/cache/archives/partial"
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -e "$file" ] || continue
        sed -E -e 's/^Types:.*/Types: deb-src/' -e '/^Architectures:/d' "$file" >"$apt/sources/${file##*/}"
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -e "$file" ] || continue
        entry="$apt/sources/$(basename "$file" .list).list"
        sed -nE 's/^[[:space:]]*deb[[:space:]]/deb-src /p' "$file" >"$entry"
    done
    local options=(-q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$apt/sources"
        -o Dir::State::lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User=
        -o Acquire::Languages=none -o Acquire::Retries=3)
    # The update fails for an archive without sources; what counts is whether the package is found.
    apt-get "${options[@]}" update || true
    (cd "$folder" && apt-get "${options[@]}" source "$name")
}

# Prints the flags of cmake/TraderbaseHardening.cmake that the compiler accepts: luabind is hardened like the library.
hardening() {
    local flag
    for flag in -fstack-protector-strong -fstack-clash-protection -fcf-protection; do
        ! g++ "$flag" -x c++ -fsyntax-only /dev/null 2>/dev/null || printf '%s ' "$flag"
    done
    printf -- '-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2'
}

# Compiles the sources in FOLDER and installs headers and library below PREFIX. Ignores compiler flags in the caller's
# environment.
compile() {
    local source=$1 build=$2 prefix=$3
    unset CC CXX CFLAGS CXXFLAGS CPPFLAGS LDFLAGS CMAKE_GENERATOR CMAKE_BUILD_TYPE DESTDIR
    cmake -S "$source" -B "$build" -G Ninja -Wno-dev -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_COMPILER=gcc -DCMAKE_CXX_COMPILER=g++ \
        -DCMAKE_CXX_FLAGS="-w -fvisibility=hidden -fvisibility-inlines-hidden $(hardening)" \
        -DCMAKE_POSITION_INDEPENDENT_CODE=ON -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_INSTALL_LIBDIR=lib \
        -DLUABIND_LUA_VERSION=51 -DLUABIND_USE_CXX11=ON -DLUABIND_ENABLE_WARNINGS=OFF \
        -DBoost_NO_BOOST_CMAKE=ON -DBUILD_TESTING=OFF
    cmake --build "$build" --target luabind
    cmake --install "$build"
}

# Does everything in a scratch folder next to the target; a finished result is renamed to the target in one step.
build() {
    local target=$1 scratch=$2
    mkdir -p "$scratch/source"
    fetchSource luabind "$scratch/source"
    local unpacked=("$scratch"/source/luabind-*/)
    compile "${unpacked[0]}" "$scratch/build" "$scratch/prefix"
    isComplete "$scratch/prefix"
    sed -n 's/^Version: //p' "$scratch"/source/luabind_*.dsc | head -n 1 >"$scratch/prefix/VERSION"
    # Another run may have finished first: then the rename fails, and that run's result is just as good.
    isComplete "$target" || rm -rf "$target"
    mv -T "$scratch/prefix" "$target" || isComplete "$target"
}

root=$(cacheRoot)
if [[ "$root" != /* ]]; then
    say "TRADERBASE_CACHE must be an absolute path, it is '$root'"
    exit 2
fi
target="$root/luabind51-$recipe"

case "${1:-}" in
    "") ;;
    --path)
        printf '%s\n' "$target"
        exit 0
        ;;
    *)
        say "usage: setup/luabind.sh [--path]"
        exit 2
        ;;
esac
isComplete "$target" && exit 0

say "building luabind for Lua 5.1 into $target (about half a minute, once a machine)"
mkdir -p "$root"
find "$root" -maxdepth 1 -name '.luabind-*' -mmin +60 -exec rm -rf {} + # left behind by a run that was killed
scratch=$(mktemp -d "$root/.luabind-XXXXXX")
trap 'rm -rf "$scratch"' EXIT
trap 'exit 130' INT TERM HUP
# In a subshell: "set -e" has no effect inside a function called from a condition.
set +e
(set -e; build "$target" "$scratch") >"$scratch/log" 2>&1 </dev/null
status=$?
set -e
if [ "$status" -ne 0 ]; then
    tail -n 40 "$scratch/log" >&2
    say "luabind could not be built (see above)"
    exit 1
fi
