# Finds tests and counts their results, above all what GoogleTest programs say. Sourced after common.sh.

# tests_in FILE...: the names of the tests that sources hold, one a line. Of a test with parameters it
# is what comes before the parameter: "Prefix/Suite.Name/".
tests_in() {
    cat -- "$@" | tr -s ' \n' '  ' |
        grep -oE '\b(TEST|TEST_F|TEST_P|INSTANTIATE_TEST_SUITE_P)\( ?\w+, ?\w+\b' | tr -d ' ' |
        awk -F '[(,]' '$1 ~ /^INST/ { prefixes[$3] = prefixes[$3] " " $2 }
            $1 == "TEST_P" { cases[++count] = $2 " " $3 }
            $1 ~ /^TEST(_F)?$/ { print $2 "." $3 }
            END {
                for (i = 1; i <= count; i++) {
                    split(cases[i], one, " ")
                    many = split(prefixes[one[1]], prefix, " ")
                    for (j = 1; j <= many; j++) print prefix[j] "/" one[1] "." one[2] "/"
                }
            }'
}

# tests_match FILTER: says whether a GoogleTest filter matches one of the names on standard input.
# What the filter leaves out again, after a "-", is not looked at.
tests_match() {
    local filter=${1%%-*} patterns pattern name
    IFS=: read -ra patterns <<<"${filter:-*}"
    while read -r name; do
        for pattern in "${patterns[@]}"; do
            # Of a test with parameters a beginning of the pattern is enough: the end, without dots and
            # slashes, is for the parameter.
            if [[ $name == */ ]]; then
                while [[ $pattern == *[!./] && $name != $pattern ]]; do pattern=${pattern%?}; done
            fi
            [[ $name != $pattern ]] || return 0
        done
    done
    return 1
}

# sources_of LIST...: the sources in CMake lists of these names.
sources_of() {
    local list
    for list in "$@"; do
        sed -n "/^set(${list}_SOURCES\$/,/^)/s/^ *\(.*\.cpp\)\$/\1/p" "$AMBRIO_ROOT"/tests/*/Sources.cmake | sort -u
    done
}

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
        { grep -vE '^\[( RUN      |       OK |----------)' "$log" || echo "it has said nothing"; } | tail -n 80
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
