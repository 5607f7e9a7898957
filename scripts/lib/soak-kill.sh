# A section of scripts/soak: a process that saves stores is killed PANOREL_KILLS (1,000) times,
# at moments that PANOREL_KILLS_SEED decides. Sourced.

soak_kill() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_TEST
    cmake --preset dev
    cmake --build --preset dev --target KillTests
    kills=${PANOREL_KILLS:-1000}
    echo "== $kills kills"
    QTEST_FUNCTION_TIMEOUT=3600000 PANOREL_KILLS=$kills build/dev/Tests/Faults/KillTests
}
