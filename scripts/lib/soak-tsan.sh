# A section of scripts/soak: all tests with the thread sanitizer. Sourced.

soak_tsan() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_DESKTOP $PACKAGES_TEST
    cmake --preset tsan
    cmake --build --preset tsan
    TSAN_OPTIONS=second_deadlock_stack=1 ctest --preset tsan
}
