# shellcheck shell=bash disable=SC2034
# What ./run, ./test and ./package share. To be sourced, with set -euo pipefail.

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
jobs=$(nproc)

packages=(g++ cmake ninja-build qt6-base-dev qt6-multimedia-dev qt6-wayland libicu-dev
    gstreamer1.0-plugins-good fonts-noto-core fonts-dejavu-core fonts-noto-color-emoji)
web_packages=(emscripten cmake ninja-build python3)

# Where Debian's Emscripten has the JavaScript libraries that it needs.
export NODE_PATH=/usr/share/nodejs

as_root() {
    if ((EUID == 0)); then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        return 1
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300 "$@" >/dev/null
}

# Installs those of the Debian packages named that are missing. Where that cannot be done it says what
# is needed and goes on, as the same things may be there under other names: the build will tell.
install_packages() {
    if ! command -v apt-get >/dev/null; then
        echo "This needs what Debian calls: $*" >&2
        return
    fi
    local present package
    local missing=()
    present=$(dpkg-query -W -f '${Package}=${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        grep -qxF "$package=installed" <<<"$present" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    echo "Installing ${missing[*]}" >&2
    { apt_get update && apt_get install --no-install-recommends "${missing[@]}"; } \
        || echo "Could not install them. As root: apt-get install ${missing[*]}" >&2
}

# configure <preset> [cmake's options...]
configure() {
    cmake -S "$root" --preset "$1" --log-level=WARNING "${@:2}" >/dev/null
}

# The tests stay as ./test left them: no command makes another build anything again.
# configure_once <preset> <folder below build/>
configure_once() {
    [[ $root/build/$2/build.ninja -nt $root/CMakePresets.json ]] || configure "$1" -DVELMORATH_TESTS=OFF
}

# build <folder below build/> [targets...]: one line of progress on a terminal, elsewhere only what goes
# wrong. All on standard error: standard output is the program's.
build() {
    local quiet=()
    [[ -t 2 ]] || quiet=(--quiet)
    cmake --build "$root/build/$1" --parallel "$jobs" -- "${quiet[@]}" "${@:2}" >&2
}
