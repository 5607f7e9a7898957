# A section of scripts/soak: PANOREL_STORMS (10,000) storms of random events from
# PANOREL_STORM_SEED on, with the address and undefined-behaviour sanitizers. Sourced.

soak_storms() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_TEST
    cmake --preset asan
    cmake --build --preset asan --target StormTests
    storms=${PANOREL_STORMS:-10000}
    seed=${PANOREL_STORM_SEED:-$(date +%j%H%M)}
    echo "== $storms storms from seed $seed on"
    QTEST_FUNCTION_TIMEOUT=36000000 PANOREL_STORMS=$storms PANOREL_STORM_SEED=$seed \
        build/asan/Tests/Panorel/StormTests
}
