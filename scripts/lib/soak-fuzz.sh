# A section of scripts/soak: every fuzz target for FUZZ_SECONDS (120). Sourced.

# Leaks are looked for once, at the end: after each input, what a target and Qt keep to use again
# would look like one and cost most of the time.
#
# What widens the reach is kept in build/fuzz/corpus, what breaks a promise in build/fuzz/findings.
# To take the former over into the corpus, in as few inputs as reach as far:
#     build/fuzz/Tests/Fuzz/fuzz-NAME -set_cover_merge=1 -use_counters=0 \
#         Tests/Fuzz/Corpus/NAME build/fuzz/corpus/NAME
soak_fuzz() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_TEST
    cmake --preset fuzz
    cmake --build --preset fuzz
    memory=/dev/shm # thousands of small files a second
    [ -d "$memory" ] || memory=${TMPDIR:-/tmp}
    mkdir -p build/fuzz/findings
    failed=""
    for target in Tests/Fuzz/Corpus/*; do
        name=$(basename "$target")
        echo "== Fuzzing: $name"
        mkdir -p "build/fuzz/corpus/$name"
        dictionary=Tests/Fuzz/Dictionaries/$name.dict
        options=""
        [ ! -e "$dictionary" ] || options="-dict=$dictionary"
        # shellcheck disable=SC2086 # at most one word
        TMPDIR=$memory TZ=Europe/Berlin UBSAN_OPTIONS=print_stacktrace=1 \
            LSAN_OPTIONS=suppressions=scripts/lib/lsan.supp:print_suppressions=0 \
            "build/fuzz/Tests/Fuzz/fuzz-$name" -max_total_time="${FUZZ_SECONDS:-120}" \
            -timeout=20 -detect_leaks=0 -max_len=8192 -print_final_stats=1 \
            -artifact_prefix="build/fuzz/findings/$name-" \
            $options "build/fuzz/corpus/$name" "$target" >"build/fuzz/$name.log" 2>&1 ||
            failed="$failed $name"
        grep -E 'number_of_executed_units|ERROR|what\(\)' "build/fuzz/$name.log" || true
    done
    [ -z "$failed" ] || echo "Broken:$failed; see build/fuzz/NAME.log and build/fuzz/findings"
    [ -z "$failed" ]
}
