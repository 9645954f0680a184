# What a power failure leaves of the copies that the real program makes under Wine. Sourced after
# common.sh, install.sh and wine.sh, and used while a private Wine is open.
#
#   power_cuts STATES   the tests, told of as GoogleTest does

POWER_CUT_PACKAGES=(python3 python3-fusepy fuse3 e2fsprogs mount strace)
POWER_CUT_SIZE=67108864 # bytes
POWER_CUT_FILES=40      # of a generation
POWER_CUT_RUNS=3
POWER_CUT_TOOLS=$AMBRIO_ROOT/scripts/lib/powercut

# power_cut_result NAME LOG STATUS, power_cut_skip NAME REASON: how a test has ended.
power_cut_result() {
    tail -n 20 "$2"
    if [ "$3" = 0 ]; then echo "[       OK ] $1 (0 ms)"; else echo "[  FAILED  ] $1 (0 ms)"; fi
}
power_cut_skip() { printf '%s\n[  SKIPPED ] %s (0 ms)\n' "$2" "$1"; }

power_cut_value() {
    wine_registry "HKCU\\Software\\VB and VBA Program Settings\\Ambrio\\$1" "$2" REG_SZ "$3"
}

# A disk of its own below $1, everything written to it in $1/journal; fails where that is refused.
power_cut_disk() {
    local waited
    mkdir -p "$1/shown" "$1/disk"
    as_root -n /usr/bin/python3 "$POWER_CUT_TOOLS/recorder.py" "$1/shown" "$POWER_CUT_SIZE" "$1/journal" \
        >"$1/recorder.log" 2>&1 </dev/null &
    for ((waited = 0; waited < 50; waited++)); do
        [ ! -e "$1/shown/disk" ] || break
        sleep 0.1
    done
    [ -e "$1/shown/disk" ] || return 1
    on_exit "as_root -n umount -l '$1/shown' 2>/dev/null"
    # Without what ext4 does to hide a missing flush. With data=writeback it would go too far: it then
    # gives away the blocks of a replaced file before the replacement is on the disk.
    as_root -n mkfs.ext4 -q -F "$1/shown/disk" >/dev/null 2>&1 &&
        as_root -n mount -o loop,noauto_da_alloc,commit=1 "$1/shown/disk" "$1/disk" || {
        as_root -n umount -l "$1/shown"
        return 1
    }
    on_exit "as_root -n umount -l '$1/disk' 2>/dev/null"
    mkdir -p "$1/disk/copies" "$1/disk/program"
    cp "$WINE_STAGE/programs/Ambrio.scr" "$WINE_STAGE/programs/filecopy.avi" "$1/disk/program/"
    wine_own "$1/disk/copies" "$1/disk/program"
    sync -f "$1/disk"
    stat "$1/shown/mark-end-0" >/dev/null 2>&1 || true # ready
}

# The sources of a generation: about half of the files get a new content, a few files are new. Each is
# newer than before by more than a second.
power_cut_sources() {
    /usr/bin/python3 - "$1" "$2" "$POWER_CUT_FILES" <<'END'
import os, random, sys
folder, generation, files = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
chance = random.Random(generation)
now = 1_700_000_000 + 100 * generation
for number in range(files + 8 * generation):
    path = os.path.join(folder, f"folder{number % 4}", f"{number}.dat")
    if os.path.exists(path) and chance.random() < 0.4:
        continue
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        mark = f"{number} in generation {generation}\n".encode()
        file.write((mark * 3000)[:chance.randrange(1, 60_000)] + mark)
    os.utime(path, (now, now))
END
    wine_own "$1"
}

# Ends the program of that path, and nothing else that has it in its command line but Wine's loader.
power_cut_end() {
    local process
    for process in $(pgrep -f "^[^ ]*$1 /S\$"); do as_root -n kill -KILL "$process" 2>/dev/null || true; done
}

# power_cut_run FOLDER PREFIX...: one run of the program that lies on the disk, started by a command
# that is put before Wine's; true when its closing block is in the log.
power_cut_run() {
    local folder=$1 ended before waited log=$1/disk/program/Ambrio.log
    shift
    ended() { if [ -e "$log" ]; then grep -c '^Ambrio completed ' "$log" || true; else echo 0; fi; }
    before=$(ended)
    wine_do "$@" wine "$folder/disk/program/Ambrio.scr" /S >/dev/null 2>&1 &
    local saver=$!
    for ((waited = 0; waited < 1800; waited++)); do
        [ "$(ended)" = "$before" ] || break
        sleep 0.1
    done
    sleep 0.3 # from the last line of the log to its flush
    power_cut_end "$folder/disk/program/Ambrio.scr"
    wait "$saver" 2>/dev/null || true
    [ "$(ended)" != "$before" ]
}

# power_cut_storm FOLDER PREFIX...: all runs, one a generation.
power_cut_storm() {
    local folder=$1 run
    shift
    mkdir -p "$folder/source" "$folder/versions"
    wine_own "$folder/source"
    power_cut_value General Sets Storm
    power_cut_value Storm Source "Z:${folder//\//\\}\\source"
    power_cut_value Storm Destination "Z:${folder//\//\\}\\disk\\copies"
    power_cut_value Storm Recursive Yes
    for ((run = 1; run <= POWER_CUT_RUNS; run++)); do
        power_cut_sources "$folder/source" "$run"
        cp -a "$folder/source" "$folder/versions/$run"
        power_cut_run "$folder" "$@" || return 1
        stat "$folder/shown/mark-end-$run" >/dev/null 2>&1 || true
    done
    as_root -n umount "$folder/disk"
    as_root -n umount "$folder/shown"
}

# power_cut_test NAME STATES [--until-torn] PREFIX...: a storm, and what its power cuts leave.
power_cut_test() {
    local name=$1 states=$2 until= folder=$WINE_STAGE/$1 status=0 seed=${AMBRIO_SEED:-$RANDOM}
    shift 2
    if [ "${1:-}" = --until-torn ]; then
        until=$1
        shift
    fi
    mkdir -p "$folder"
    wine_own "$folder"
    if ! power_cut_disk "$folder"; then
        power_cut_skip "$name" "no disk can be mounted here"
        return 0
    fi
    echo "AMBRIO_SEED=$seed" >"$folder/log"
    if power_cut_storm "$folder" "$@"; then
        as_root -n /usr/bin/python3 "$POWER_CUT_TOOLS/states.py" "$folder/journal" "$POWER_CUT_SIZE" \
            "$folder/versions" "$states" "$seed" $until >>"$folder/log" 2>&1 || status=$?
    else
        echo "a run did not come to its end" >>"$folder/log"
        status=1
    fi
    power_cut_result "$name" "$folder/log" "$status"
    rm -rf "$folder"
}

# Each rename of a copy comes after a sync of it, in the real program.
power_cut_order() {
    local name=PowerCut.EachCopyIsSyncedBeforeItGetsItsName folder=$WINE_STAGE/order status=0
    mkdir -p "$folder/disk/program" "$folder/disk/copies" "$folder/source"
    cp "$WINE_STAGE/programs/Ambrio.scr" "$WINE_STAGE/programs/filecopy.avi" "$folder/disk/program/"
    if ! as_root -n strace -o /dev/null true 2>/dev/null; then
        power_cut_skip "$name" "tracing is refused here"
        return 0
    fi
    power_cut_sources "$folder/source" 1
    wine_own "$folder"
    power_cut_value General Sets Storm
    power_cut_value Storm Source "Z:${folder//\//\\}\\source"
    power_cut_value Storm Destination "Z:${folder//\//\\}\\disk\\copies"
    power_cut_value Storm Recursive Yes
    # Wine's server, which renames for the program, is only followed when it is started by it.
    wine_do wineserver -k >/dev/null 2>&1 || true
    wine_do wineserver -w >/dev/null 2>&1 || true
    power_cut_run "$folder" strace -f --seccomp-bpf -y -ttt -o "$folder/trace" \
        -e trace=fsync,fdatasync,rename,renameat,renameat2 || status=1
    wine_do wineserver -p >/dev/null 2>&1 || true
    /usr/bin/python3 "$POWER_CUT_TOOLS/order.py" "$folder/trace" >"$folder/log" 2>&1 || status=1
    power_cut_result "$name" "$folder/log" "$status"
    rm -rf "$folder"
}

power_cuts() {
    local states=$1
    power_cut_order
    power_cut_test PowerCut.TearsNoCopyAndNoEndOfTheLog "$states"
    # So that the test above is known to see a torn copy: the same with all flushes taken out.
    if as_root -n strace -o /dev/null true 2>/dev/null; then
        power_cut_test PowerCut.WouldTearCopiesWithoutTheFlush "$states" --until-torn \
            strace -f -qq -e trace=fsync,fdatasync -e inject=fsync,fdatasync:retval=0 -o /dev/null
    else
        power_cut_skip PowerCut.WouldTearCopiesWithoutTheFlush "tracing is refused here"
    fi
    echo "[==========] 3 tests ran."
}
