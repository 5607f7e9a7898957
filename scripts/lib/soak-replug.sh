# A hundred real replugs of a display with the program itself and windows of every kind and state,
# under every window manager; then, a tenth as often, with one that hardly gets to run. Sourced by
# scripts/soak.

soak_replug() {
    build_targets ReplugTest || return
    local cycles=${PANOREL_CYCLES:-100} failed=0
    PANOREL_CYCLES=$cycles each_manager replug "$build/Tests/Desktop/ReplugTest" || failed=1
    PANOREL_DROWSY=1 PANOREL_CYCLES=$(((cycles + 9) / 10)) each_manager drowsy \
        "$build/Tests/Desktop/ReplugTest" || failed=1
    return "$failed"
}
