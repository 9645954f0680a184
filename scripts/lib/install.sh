# Installs the Debian packages that a script needs and lacks. Sourced after common.sh.

HOST_PACKAGES=(cmake ninja-build g++ googletest)
WINDOWS_PACKAGES=(g++-mingw-w64-i686 g++-mingw-w64-x86-64 halibut faketime)
CLANG_PACKAGES=(clang libclang-rt-dev)
CHECK_PACKAGES=(git clang-format clang-tidy yamllint)
PACKAGE_PACKAGES=(nsis zip git)
# The fonts are those that the panel and the dialogs fall back to where the Windows ones are missing.
RUN_PACKAGES=(wine wine64 xvfb xauth imagemagick procps util-linux fonts-dejavu-core
    fonts-dejavu-extra)

# Everything is taken from the release that this system is, and nothing from its updates: only so do
# the two architectures that Wine needs go together at any hour.
SUITE=$(. /etc/os-release && echo "$VERSION_CODENAME")

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null)" = "ii " ]; }

# The package lists, fetched at most once. A list that cannot be fetched (the one of the other
# architecture's security updates now and then) is no reason to stop: what matters is whether the
# packages can be installed.
AMBRIO_LISTS_FETCHED=
fetch_lists() {
    [ -z "$AMBRIO_LISTS_FETCHED" ] || return 0
    as_root apt-get update -qq >/dev/null 2>&1 || true
    AMBRIO_LISTS_FETCHED=yes
}

install_packages() {
    mkdir -p "$AMBRIO_BUILD"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -t "$SUITE" "$@" >"$AMBRIO_BUILD/install.log" 2>&1 </dev/null
}

# need PACKAGE...: makes sure that all of them are there.
need() {
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    step "Installing ${missing[*]}"
    fetch_lists
    install_packages "${missing[@]}" || {
        tail -n 20 "$AMBRIO_BUILD/install.log" >&2
        fail "these packages cannot be installed: ${missing[*]}"
    }
}

# unpack_package PACKAGE FOLDER: puts a package's files below a folder without installing it.
unpack_package() {
    [ ! -d "$2" ] || return 0
    fetch_lists
    mkdir -p "$2.part"
    (cd "$2.part" && apt-get download -qq -t "$SUITE" "$1" && dpkg-deb -x ./*.deb . && rm ./*.deb) >/dev/null 2>&1 ||
        fail "the package $1 cannot be had"
    mv "$2.part" "$2"
}

# Installs Wine and says, in AMBRIO_PRESET, which product it can run: win32, or win64 where the
# 32-bit Wine is not to be had.
need_wine() {
    need "${RUN_PACKAGES[@]}"
    AMBRIO_PRESET=win32
    if ! is_installed wine32:i386; then
        step "Installing the 32-bit Wine"
        as_root dpkg --add-architecture i386
        AMBRIO_LISTS_FETCHED=
        fetch_lists
        if ! install_packages wine wine64 wine32:i386; then
            step "The 32-bit Wine cannot be installed here; going on with the 64-bit program"
            AMBRIO_PRESET=win64
        fi
    fi
}
