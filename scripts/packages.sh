# shellcheck shell=bash
# What the machine must have, by the package names of Debian 12, and how missing packages are installed.

# packages_for PURPOSE: page (lay pages out), program (run scripts), package (make one), test, display (windows without a screen), bench,
# fuzz or lint.
packages_for() {
    case $1 in
        page | program | package) base_packages ;;
        test) base_packages && documentation_packages && font_packages && echo lld poppler-utils ;;
        display) echo xvfb openbox x11-utils xdotool imagemagick valgrind dbus-daemon dbus-bin weston qt6-wayland \
            at-spi2-core python3-gi gir1.2-atspi-2.0 ibus ibus-m17n m17n-db ;;
        bench) base_packages && bench_packages ;;
        fuzz) base_packages && echo clang libclang-rt-dev llvm ;;
        lint) base_packages && echo clang-format-14 clang-tidy-14 shellcheck ;;
    esac
}

# Enough to build everything that the preset `dev` builds.
base_packages() {
    echo g++ cmake ninja-build libicu-dev libuv1-dev qt6-base-dev libgtest-dev fonts-dejavu-core \
        qt6-multimedia-dev libqt6multimedia6 qt6-image-formats-plugins libqt6svg6
}

# The benchmark library, and the libraries that pages and windows are compared with.
bench_packages() {
    echo libbenchmark-dev libgumbo-dev libxml2-dev libxcb1-dev liblitehtml-dev libwxgtk3.2-dev pkg-config
}

# Pages from elsewhere, for the tests to load: 5 MB, unpacked outside /usr/share/doc, which small systems leave out.
documentation_packages() {
    echo libglib2.0-doc swi-prolog-doc
}

# One small font for each script that fonts-dejavu-core has not: 20 MB.
font_packages() {
    echo culmus fonts-hosny-amiri fonts-tlwg-garuda-ttf fonts-wqy-microhei fonts-noto-color-emoji
}

# Node.js may have been installed in some other way; Debian's package is only fetched where there is none.
interpreter_packages() {
    command -v node >/dev/null || echo nodejs
    command -v npm >/dev/null || echo npm
}

needed_packages() {
    local purpose
    for purpose in "$@"; do packages_for "$purpose"; done | tr ' ' '\n' | sort -u
    interpreter_packages
}

# missing_packages PACKAGE...: those that are not installed, one per line.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | sed -n 's/ installed$//p')
    printf '%s\n' "$@" | grep -vxF "${installed:- }"
}

install_step() {
    local needed missing
    if ! command -v dpkg-query >/dev/null; then
        step_ready 'packages: no dpkg here, taken for installed'
        return
    fi
    mapfile -t needed < <(needed_packages "$@")
    mapfile -t missing < <(missing_packages "${needed[@]}")
    if [ "${#missing[@]}" -eq 0 ]; then
        step_ready 'packages'
        return
    fi
    check_may_install "${missing[@]}"
    step "installing ${#missing[@]} packages" install_packages "${missing[@]}"
}

# check_may_install PACKAGE...: asks for the password here if sudo wants one: later the question would be lost
# among the figures of progress.
check_may_install() {
    [ "$(id -u)" -ne 0 ] || return 0
    command -v sudo >/dev/null && { sudo -n true 2>/dev/null || sudo -v; } && return
    die "please have these packages installed: $*"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y -o DPkg::Lock::Timeout=300 -o APT::Status-Fd=1 "$@" </dev/null
}

# The package lists are only fetched when an installation fails without them: on a bare machine they are empty, on a
# used one they may name files that the mirror no longer has.
install_packages() {
    apt_get install --no-install-recommends "$@" || { apt_get update && apt_get install --no-install-recommends "$@"; }
}
