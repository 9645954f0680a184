# A private Wine with a display of its own. Sourced after common.sh and install.sh.
#
#   wine_open [unprivileged]   makes the prefix and the display, in a temporary folder that is
#                              removed when the script ends. With "unprivileged", and when the
#                              caller is root, everything runs under a user id without rights, so
#                              that a refused file is refused. What AMBRIO_WINE names, win32 or
#                              win64, is the kind of Windows that it is to be.
#   wine_do COMMAND...         runs a command in that world (wine, wineserver, xdotool, ...)
#   wine_program LOG EXE ARGS  runs a PE program, its output in LOG
#   wine_small_disk            mounts a disk of 4 MiB for the tests that fill one, and names it to
#                              them in AMBRIO_SMALL_DISK; where that is refused they are skipped
#   wine_stage FILE...         copies files to $WINE_STAGE/programs, where that user may read them
#   wine_picture FILE [PLACE]  writes what the display shows into a file, all of it or the place
#                              WIDTHxHEIGHT+LEFT+TOP

WINE_USER_ID=1234

# Without TMPDIR: Wine 10 dies of it.
wine_do() {
    ${WINE_AS_USER[@]+"${WINE_AS_USER[@]}"} env -u TMPDIR HOME="$WINE_STAGE/home" \
        WINEPREFIX="$WINE_STAGE/prefix" WINEARCH="$WINE_PREFIX_KIND" WINEDEBUG="${WINEDEBUG:--all}" \
        DISPLAY="$WINE_DISPLAY" XDG_RUNTIME_DIR="$WINE_STAGE/home" \
        WINEDLLOVERRIDES="mscoree=;mshtml=" LC_ALL="${WINE_LOCALE:-C.UTF-8}" \
        "$@" </dev/null
}

wine_program() {
    local log=$1
    shift
    # Into a file and never into a pipe: Wine's services inherit the output and keep a pipe open.
    wine_do wine "$@" >"$log" 2>&1
}

wine_stage() {
    mkdir -p "$WINE_STAGE/programs"
    cp -- "$@" "$WINE_STAGE/programs/"
    wine_own "$WINE_STAGE/programs"
}

# Not with xwd: it takes windows of different colour maps apart, as Wine's are, and leaves each that
# lies over another one black.
wine_picture() {
    wine_do import -silent -window root ${2:+-crop "$2"} +repage png:- >"$1"
}

wine_small_disk() {
    local place=$WINE_STAGE/small-disk
    mkdir -p "$place"
    export AMBRIO_SMALL_DISK=
    if as_root -n mount -t tmpfs -o "size=4m,mode=0777" tmpfs "$place" 2>/dev/null; then
        on_exit "as_root -n umount -l '$place'"
        AMBRIO_SMALL_DISK=Z:${place//\//\\}
    fi
}

wine_own() {
    if [ ${#WINE_AS_USER[@]} -gt 0 ]; then chown -R "$WINE_USER_ID:$WINE_USER_ID" "$@"; fi
}

# A Wine that can makes a 64-bit Windows, where the 32-bit program is what it is on most machines: a
# guest with system folders of its own. Older ones do that too, but at twice the cost in time and room.
wine_prefix_kind() {
    local version
    version=$(env -u TMPDIR wine --version 2>/dev/null | grep -oE '[0-9]+' | head -n 1)
    if [ "${version:-0}" -ge 9 ]; then echo win64; else echo "$AMBRIO_PRESET"; fi
}

# The server names the folder of its socket after the prefix, and does not remove it.
wine_forget_server() {
    local device file name folder
    read -r device file < <(stat -c '%d %i' "$WINE_STAGE/prefix")
    printf -v name 'server-%x-%x' "$device" "$file"
    for folder in /run/user/*/wine/"$name" /tmp/wine-*/"$name"; do
        [ -d "$folder" ] || continue
        rm -rf "$folder"
        rmdir "${folder%/*}" 2>/dev/null || true # unless another server has a folder there
    done
}

wine_close() {
    if [ -d "$WINE_STAGE/prefix" ]; then
        wine_do wineserver -k >/dev/null 2>&1 || true
        wine_do wineserver -w >/dev/null 2>&1 || true
        wine_forget_server
    fi
    if [ -n "${WINE_XVFB_PID:-}" ]; then
        kill "$WINE_XVFB_PID" 2>/dev/null || true
        wait "$WINE_XVFB_PID" 2>/dev/null || true
    fi
    rm -rf "$WINE_STAGE"
}

wine_start_display() {
    local size=${WINE_SCREEN:-1024x768} answer=$WINE_STAGE/display waited
    : >"$answer"
    wine_own "$answer"
    ${WINE_AS_USER[@]+"${WINE_AS_USER[@]}"} Xvfb -displayfd 3 -screen 0 "${size}x24" -noreset \
        -nolisten tcp 3>"$answer" >/dev/null 2>&1 </dev/null &
    WINE_XVFB_PID=$!
    for ((waited = 0; waited < 100; waited++)); do
        if [ -s "$answer" ]; then
            WINE_DISPLAY=:$(tr -d '[:space:]' <"$answer")
            return 0
        fi
        kill -0 "$WINE_XVFB_PID" 2>/dev/null || break
        sleep 0.1
    done
    fail "Xvfb does not start"
}

wine_registry() {
    wine_do wine reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1 ||
        fail "the Wine registry refuses $1 $2"
}

wine_open() {
    WINE_STAGE=$(mktemp -d "${TMPDIR:-/tmp}/ambrio.XXXXXXXX")
    WINE_AS_USER=()
    WINE_DISPLAY=${DISPLAY:-}
    WINE_XVFB_PID=
    on_exit wine_close
    if [ "${1:-}" = unprivileged ] && [ "$(id -u)" = 0 ]; then
        WINE_AS_USER=(setpriv "--reuid=$WINE_USER_ID" "--regid=$WINE_USER_ID" --clear-groups)
    fi
    mkdir -p "$WINE_STAGE/home" "$WINE_STAGE/prefix" "$WINE_STAGE/programs"
    wine_own "$WINE_STAGE"
    WINE_PREFIX_KIND=${AMBRIO_WINE:-$(wine_prefix_kind)}
    if [ -z "$WINE_DISPLAY" ] || [ "${1:-}" = unprivileged ]; then
        wine_start_display
    fi
    # One server for the whole session: starting it anew for each program costs seconds.
    wine_do wineserver -p >/dev/null 2>&1 || fail "the Wine server does not start"
    wine_do wineboot --init >"$WINE_STAGE/wineboot.log" 2>&1 ||
        fail "Wine cannot make its prefix: $(tail -n 5 "$WINE_STAGE/wineboot.log")"
    # A crash must end the program instead of waiting behind a box.
    wine_registry 'HKCU\Software\Wine\WineDbg' ShowCrashDialog REG_DWORD 0
    # Without a window manager a managed window takes seconds to close.
    if [ -n "$WINE_XVFB_PID" ]; then
        wine_registry 'HKCU\Software\Wine\X11 Driver' Managed REG_SZ N
    fi
}
