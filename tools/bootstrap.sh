# Sourced by ./run, ./test and the tools beside this file: what brings a bare Debian to where it can build.
# shellcheck shell=bash

readonly EXIT_USAGE=2
readonly EXIT_NOT_DEBIAN=3
readonly EXIT_PACKAGES=4
readonly OLDEST_DEBIAN=12

readonly BUILD_PACKAGES=(
    ccache
    cmake
    dbus-daemon
    fonts-dejavu-core
    fonts-dejavu-extra
    g++
    libqt5multimedia5-plugins
    libqt5positioning5-plugins
    libqt5serialport5-dev
    libqt5sql5-sqlite
    librsvg2-bin
    libudunits2-dev
    ninja-build
    python3
    qtbase5-dev
    qtmultimedia5-dev
    qtpositioning5-dev
)
readonly LINT_PACKAGES=(
    clang
    clang-format
    clang-tidy
    clazy
    git
    libbenchmark-dev
)

# say LINE...: to the operator, beside whatever a tool prints.
say() { printf '%s\n' "$@" >&2; }

die() {
    local status=$1
    shift
    say "$@"
    exit "$status"
}

# debian_release ETC: the release of Debian that the system with these settings is or stems from, as a number or
# a name such as "trixie/sid"; nothing for another system.
debian_release() {
    local etc=$1 id='' like='' version='' key value
    [[ -r $etc/os-release ]] || return 0
    while IFS='=' read -r key value; do
        value=${value//\"/}
        case $key in
            ID) id=$value ;;
            ID_LIKE) like=$value ;;
            VERSION_ID) version=$value ;;
        esac
    done <"$etc/os-release"
    if [[ $id == debian ]]; then
        printf '%s\n' "${version:-sid}"
    elif [[ " $like " == *' debian '* && -r $etc/debian_version ]]; then
        cat "$etc/debian_version"
    fi
}

# require_debian [ETC]: ends the script on a system that is not Debian or too old.
require_debian() {
    local release
    release=$(debian_release "${1:-/etc}")
    if [[ -z $release ]] || ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        die "$EXIT_NOT_DEBIAN" "This needs Debian $OLDEST_DEBIAN or newer, or a system derived from it, with apt-get." \
            "On another system install the equivalents of: ${BUILD_PACKAGES[*]}"
    fi
    local major=${release%%.*}
    case $major in
        jessie* | stretch* | buster* | bullseye* | [0-9] | 10 | 11)
            die "$EXIT_NOT_DEBIAN" "This needs Debian $OLDEST_DEBIAN or newer; this system is of release $release."
            ;;
    esac
}

# missing_packages NAME...: prints those that are not installed; asks dpkg alone, so it needs no network.
missing_packages() {
    local -A installed=()
    local name status
    while read -r name status; do
        [[ $status == ii* ]] && installed[$name]=1
    done < <(dpkg-query --show --showformat='${Package} ${db:Status-Abbrev}\n' "$@" 2>/dev/null || true)
    for name in "$@"; do
        [[ -n ${installed[$name]-} ]] || printf '%s\n' "$name"
    done
}

# as_root COMMAND...: by sudo for everyone else; without a terminal sudo must not ask for a password.
as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif ! command -v sudo >/dev/null; then
        return 1
    elif [[ -t 0 ]]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# install_packages NAME...: installs what is missing; does nothing, and asks no server, when nothing is.
install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    say "Installing: ${missing[*]}"
    if ! { as_root apt-get update -q && as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"; } >&2; then
        die "$EXIT_PACKAGES" "These packages are missing and could not be installed: ${missing[*]}" \
            "Install them as root:" "    apt-get update && apt-get install --no-install-recommends ${missing[*]}"
    fi
}

# configure PRESET: ninja itself repeats the configuration for a changed CMake list, but not for changed presets.
configure() {
    local preset=$1
    if [[ ! build/$preset/build.ninja -nt CMakePresets.json ]]; then
        cmake --preset "$preset" >&2
    fi
}

build() {
    local preset=$1
    shift
    cmake --build "build/$preset" "$@" >&2
}
