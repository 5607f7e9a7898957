# A section of scripts/soak: all tests with the thread sanitizer. Sourced.

# The system's libraries are built without it, so what they do among themselves looks unordered:
# of that nothing is said, while what crosses them between the program's own threads still is. What
# GLib forks to start a program must not die of having been forked. Reports, also of programs that
# a test starts, are build/tsan/race.PID.
soak_tsan() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_DESKTOP $PACKAGES_TEST
    cmake --preset tsan
    cmake --build --preset tsan
    options=second_deadlock_stack=1:ignore_noninstrumented_modules=1:die_after_fork=0
    rm -f build/tsan/race.*
    failed=0
    TSAN_OPTIONS=$options:log_path=$root/build/tsan/race ctest --preset tsan || failed=1
    ! cat build/tsan/race.* 2>/dev/null && [ "$failed" -eq 0 ]
}
