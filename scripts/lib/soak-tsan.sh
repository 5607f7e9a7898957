# A section of scripts/soak: all tests with the thread sanitizer. Sourced.

# The system's libraries are built without it, so what they do among themselves looks unordered:
# of that nothing is said, while what crosses them between the program's own threads still is. What
# GLib forks to start a program must not die of having been forked. The preset says both. Reports,
# also of programs that a test starts, are build/tsan/race.PID.
soak_tsan() {
    # shellcheck disable=SC2086 # lists of words
    install_packages $PACKAGES_BUILD $PACKAGES_DESKTOP $PACKAGES_TEST
    rm -f build/tsan/race.*
    cmake --preset tsan
    cmake --build --preset tsan
    failed=0
    ctest --preset tsan || failed=1
    ! cat build/tsan/race.* 2>/dev/null && [ "$failed" -eq 0 ]
}
