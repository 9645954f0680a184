# Runs the fuzzers. Sourced after common.sh, when the fuzzers of the host preset are built.

FUZZERS=(FuzzRun FuzzSetList FuzzTextConversion FuzzCommandLine FuzzDestinationFolder)

# Runs one fuzzer for so many seconds; a line with what it did, the finding when there is one.
fuzz_one() {
    local seconds=$1 name=$2 log status=0
    log=$AMBRIO_BUILD/fuzz/$name.log
    mkdir -p "$AMBRIO_BUILD/fuzz/corpus/$name" "$AMBRIO_BUILD/fuzz/findings"
    "$AMBRIO_BUILD/host/$name" -max_total_time="$seconds" -timeout=30 -print_final_stats=1 \
        -artifact_prefix="$AMBRIO_BUILD/fuzz/findings/$name-" \
        "$AMBRIO_BUILD/fuzz/corpus/$name" "$AMBRIO_ROOT/tests/fuzz/seeds/$name" \
        >"$log" 2>&1 </dev/null || status=$?
    step "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs in $seconds s," \
        "coverage $(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | cut -d' ' -f2)," \
        "$([ "$status" = 0 ] && echo 'no finding' || echo 'A FINDING')"
    if [ "$status" != 0 ]; then
        grep -E 'what\(\)|ERROR|runtime error|SUMMARY|Test unit written' "$log" >&2 || tail -n 20 "$log" >&2
    fi
    return "$status"
}

# fuzz_all SECONDS [FUZZER...]: those named, or all, at once, so long that each has had a processor
# for that time. Fails when one has found something.
fuzz_all() {
    local seconds=$1 processors
    shift
    [ $# -gt 0 ] || set -- "${FUZZERS[@]}"
    processors=$(nproc)
    if [ $# -gt "$processors" ]; then seconds=$(((seconds * $# + processors - 1) / processors)); fi
    export AMBRIO_ROOT AMBRIO_BUILD
    export -f fuzz_one step
    printf '%s\n' "$@" | xargs -P 0 -I{} bash -c 'fuzz_one "$@"' _ "$seconds" {}
}
