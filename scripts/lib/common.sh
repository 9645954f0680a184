# What every script shares: where things are, how progress is shown, what is cleaned up.
# Sourced, not run.

set -euo pipefail

AMBRIO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
AMBRIO_BUILD=$AMBRIO_ROOT/build

# One line a step, with the seconds since the first of the scripts that call each other was started.
export AMBRIO_STARTED=${AMBRIO_STARTED:-$EPOCHSECONDS}
step() { printf '[%3ds] %s\n' "$((EPOCHSECONDS - AMBRIO_STARTED))" "$*"; }

fail() {
    printf 'ambrio: %s\n' "$*" >&2
    exit 1
}

# Commands to be run when the script ends, however it ends; the last one registered runs first.
AMBRIO_CLEANUPS=()
on_exit() { AMBRIO_CLEANUPS+=("$1"); }
run_cleanups() {
    local status=$? i
    trap '' INT TERM HUP
    trap - EXIT
    for ((i = ${#AMBRIO_CLEANUPS[@]} - 1; i >= 0; i--)); do
        eval "${AMBRIO_CLEANUPS[i]}" || true
    done
    exit "$status"
}
trap run_cleanups EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Runs a command with its output in a log; shows the end of the log only when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >"$log" 2>&1 </dev/null; then
        tail -n 60 "$log" >&2
        fail "failed: $* (all of it: $log)"
    fi
}

# Runs a command as root: directly, or through sudo; with -n before it, without asking anybody.
as_root() {
    local ask=()
    if [ "$1" = -n ]; then
        ask=(-n)
        shift
    fi
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "${ask[@]}" "$@"; fi
}
