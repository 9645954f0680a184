# What every script shares: where things are, how progress is shown, what is cleaned up.
# Sourced, not run.

set -euo pipefail

AMBRIO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
AMBRIO_BUILD=$AMBRIO_ROOT/build
AMBRIO_CHECK=$AMBRIO_BUILD/check-underway # says what scripts/check looks at, or looked at last

# One line a step, with the seconds since the first of the scripts that call each other was started.
export AMBRIO_STARTED=${AMBRIO_STARTED:-$EPOCHSECONDS}
step() { printf '[%3ds] %s\n' "$((EPOCHSECONDS - AMBRIO_STARTED))" "$*"; }

# timed NAME COMMAND...: runs a step and keeps for show_times how long it took and how much work the
# processors had with it, also when it fails.
timed() {
    local TIMEFORMAT="$1|%R|%U|%S"
    shift
    { time ("$@" 2>&3); } 3>&2 2>>"$AMBRIO_TIMES"
}

# Begins the record anew; a script that is called by another adds to that one's.
begin_times() {
    [ -z "${AMBRIO_TIMES:-}" ] || return 0
    export AMBRIO_TIMES=$AMBRIO_BUILD/times.txt
    mkdir -p "$AMBRIO_BUILD"
    : >"$AMBRIO_TIMES"
}
show_times() {
    awk -F '|' -v elapsed="$((EPOCHSECONDS - AMBRIO_STARTED))" '
        { work = $3 + $4; sum += work; line[NR] = sprintf("%8.0f s %8.0f s  %s", $2, work, $1) }
        END {
            print "   lasted     worked  step"
            for (i = 1; i <= NR; i++) print line[i]
            printf "%8.0f s %8.0f s  in all; several steps run at once\n", elapsed, sum
        }' "$AMBRIO_TIMES"
}

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
