# shellcheck shell=bash disable=SC2034
# What the commands share: the packages of Debian 12 they need, and how the tree is built.
# To be sourced by a script that stands in the root of the tree.

buildPackages=(cmake ninja-build g++ pkg-config qt6-base-dev qt6-webengine-dev qt6-qpa-plugins
    libxcb-xkb-dev libxkbcommon-x11-dev libcurl4-openssl-dev librsvg2-bin)
runPackages=(fonts-dejavu-core fonts-liberation xdg-utils)
desktopTestPackages=(xvfb openbox xdotool scrot x11-xkb-utils xauth procps python3)
readerTestPackages=(at-spi2-core dbus-daemon libatspi2.0-dev xclip)
printTestPackages=(cups-daemon poppler-utils mupdf-tools ghostscript)
mailTestPackages=(python3-aiosmtpd openssl)
packagingTestPackages=(lintian desktop-file-utils appstream dpkg-dev shared-mime-info)
fontPackages=(python3-fonttools libharfbuzz-bin fonts-noto-core)
benchPackages=(libbenchmark-dev libxcb-xtest0-dev libxcb-damage0-dev cups-filters)
testPackages=(libgtest-dev "${desktopTestPackages[@]}" "${readerTestPackages[@]}"
    "${printTestPackages[@]}" "${mailTestPackages[@]}" "${packagingTestPackages[@]}"
    "${fontPackages[@]}" "${benchPackages[@]}")
ciPackages=(clang clang-format clang-tidy cppcheck gcovr libclang-rt-14-dev)

# Those of the given packages that are not installed, one a line.
missingPackages() {
    local installed name
    installed=" $(dpkg-query -W -f '${Package}=${db:Status-Status} ' "$@" 2>/dev/null || true)"
    for name in "$@"; do
        [[ $installed == *" $name=installed "* ]] || echo "$name"
    done
}

canInstall() {
    command -v apt-get >/dev/null && { ((EUID == 0)) || command -v sudo >/dev/null; }
}

asRoot() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

# One failing source of packages need not matter, so an incomplete update is no failure yet.
aptInstall() {
    asRoot apt-get update || true
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120 install \
        --yes --no-install-recommends "$@"
}

# Installs what is missing of the given packages. What could not be installed is left in
# `missing`; it is no failure here, for the same may have come another way.
installPackages() {
    mapfile -t missing < <(missingPackages "$@")
    ((${#missing[@]})) || return 0
    echo "Missing packages: ${missing[*]}"
    if canInstall && aptInstall "${missing[@]}"; then
        missing=()
    else
        echo "They could not be installed. As root: apt-get install ${missing[*]}" >&2
    fi
}

# Removes a build folder that was made for a tree elsewhere and came along with a copy of it.
dropForeignBuild() {
    local cache=$1/CMakeCache.txt
    [[ -e $cache ]] || return 0
    [[ $(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache") -ef . ]] || rm -rf "$1"
}

# The program at build/quillet, up to date.
buildProgram() {
    dropForeignBuild build
    grep -qs '^build quillet: ' build/build.ninja ||
        cmake --preset release -DQUILLET_DESKTOP=ON
    cmake --build build --target quillet
}
