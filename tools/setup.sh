# What ./run and ./test share: the packages they need, and the building of a preset.
# To be sourced, with `root` set to the project's folder.

# package, and what it is for
declare -A reasons=(
    [g++]="compiles the program"
    [cmake]="describes the build"
    [ninja-build]="runs the build"
    [qtbase5-dev]="Qt: the windows and dialogs"
    [libpugixml-dev]="the simulated bench reads its bench file with it"
    [fonts-dejavu-core]="without a font file every label stays empty"
    [xvfb]="a virtual display, as there is no display here"
    [qtwayland5]="lets Qt draw on a Wayland display"
    [python3]="runs the checks of the source tree"
    [clang-format]="checks the layout of the sources"
    [clang-tidy]="looks for common mistakes"
    [clang]="builds the fuzzers"
    [clazy]="looks for common mistakes in the use of Qt"
    [valgrind]="counts instructions"
    [gcovr]="puts together which lines and branches were run"
    [dpkg-dev]="finds out what a package depends on, and the compiler flags of Debian"
    [file]="tells the packer which files are programs"
    [lintian]="checks the packages"
    [desktop-file-utils]="checks the desktop entries"
    [appstream]="checks the metadata for software centres"
    [mandoc]="checks the manual pages"
    [debootstrap]="sets up a bare Debian to build or to try packages in"
)
build_packages=(g++ cmake ninja-build qtbase5-dev libpugixml-dev fonts-dejavu-core)
test_packages=(python3 clang-format)
lint_packages=(clang-tidy clazy)
fuzz_packages=(clang)
coverage_packages=(gcovr)
package_packages=(dpkg-dev file lintian desktop-file-utils appstream mandoc)
root_packages=(debootstrap)

say() { printf '%s\n' "$*" >&2; }

# Runs a command as the administrator, who may be us.
as_administrator() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    elif command -v su >/dev/null; then
        say "The administrator's (root's) password is needed for this."
        su -c "$(printf '%q ' "$@")"
    else
        return 1
    fi
}

# missing_packages PACKAGE... prints those of them that are not installed, one a line.
missing_packages() {
    local installed package
    installed=" $(dpkg-query -W -f '${Package}=${db:Status-Status} ' "$@" 2>/dev/null || true)"
    for package in "$@"; do
        [[ $installed == *" $package=installed "* ]] || printf '%s\n' "$package"
    done
}

# require_packages PACKAGE... installs those of them that are missing. Where there is no Debian
# package manager it says what is needed and lets the build find out.
require_packages() {
    local missing package
    if ! command -v dpkg-query >/dev/null; then
        [ -d "$root/build" ] || say "Not a Debian system: please see to it that there is: $*"
        return 0
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    say "To be installed from Debian:"
    for package in "${missing[@]}"; do
        say "$(printf '  %-18s %s' "$package" "${reasons[$package]}")"
    done
    if ! as_administrator apt-get update -q ||
        ! as_administrator env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends "${missing[@]}"; then
        say "These packages could not be installed. As the administrator, run:"
        say "  apt-get update && apt-get install ${missing[*]}"
        return 1
    fi
}

# configure_preset PRESET, unless that has been done for this folder with these presets.
# (Changes of the CMake files themselves are noticed by the build.)
configure_preset() {
    local preset=$1 folder=$root/build/$1 fresh=()
    if [ -f "$folder/build.ninja" ] && [ "$folder/build.ninja" -nt "$root/CMakePresets.json" ] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
        return 0
    fi
    # A cache that came along with a copied or moved folder speaks of other places.
    [ ! -f "$folder/CMakeCache.txt" ] || fresh=(--fresh)
    (cd "$root" && cmake --preset "$preset" "${fresh[@]}") >&2
}

# build_preset PRESET [TARGET...] builds these targets, or everything.
build_preset() {
    local preset=$1
    shift
    configure_preset "$preset" && (cd "$root" && cmake --build --preset "$preset" ${1:+--target "$@"}) >&2
}
