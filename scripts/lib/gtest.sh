# Counts the results of tests, above all what GoogleTest programs say. Sourced after common.sh.

TESTS_PASSED=0
TESTS_FAILED=0
TESTS_SKIPPED=0

# tests_count NAME LOG STATUS: adds the results that a log holds. A program that ended badly
# without naming a failed test (a crash, a sanitizer's report) counts as one failed test.
tests_count() {
    local name=$1 log=$2 status=$3 passed failed skipped
    passed=$(grep -cE '^\[       OK \]' "$log" || true)
    failed=$(grep -cE '^\[  FAILED  \] .*ms\)' "$log" || true)
    skipped=$(grep -cE '^\[  SKIPPED \] .*ms\)' "$log" || true)
    if [ "$status" != 0 ] && [ "$failed" = 0 ]; then failed=1; fi
    if ! grep -qE '^\[==========\] .* ran\.' "$log" && [ "$failed" = 0 ]; then failed=1; fi
    TESTS_PASSED=$((TESTS_PASSED + passed))
    TESTS_FAILED=$((TESTS_FAILED + failed))
    TESTS_SKIPPED=$((TESTS_SKIPPED + skipped))
    step "$name: $passed passed, $failed failed, $skipped skipped"
    if [ "$failed" != 0 ]; then
        grep -vE '^\[( RUN      |       OK |----------)' "$log" | tail -n 80
    fi
    # Tables that a test draws up.
    grep -E '^\| ' "$log" | tr -d '\r' || true
    # A skip names itself and its reason: the line before "[  SKIPPED ]" is the test's own word.
    awk '/^\[  SKIPPED \].*ms\)/ { print "        skipped " $4 ": " reason; reason = "" }
         /^\[ RUN/ { reason = "" }
         !/^\[/ && !/: Skipped$/ && NF { reason = $0 }' "$log" | sed 's/\r//g'
}

# tests_add COUNT FAILED: adds tests of another kind, of which so many failed.
tests_add() {
    TESTS_PASSED=$((TESTS_PASSED + $1 - $2))
    TESTS_FAILED=$((TESTS_FAILED + $2))
}

# The closing line; fails when a test did, or when none ran.
tests_close() {
    printf '%d passed, %d failed, %d skipped\n' "$TESTS_PASSED" "$TESTS_FAILED" "$TESTS_SKIPPED"
    [ "$TESTS_FAILED" = 0 ] && [ "$TESTS_PASSED" -gt 0 ]
}
