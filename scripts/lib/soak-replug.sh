# A hundred real replugs of a display with the program itself and windows of every kind and state,
# under every window manager. Sourced by scripts/soak.

soak_replug() {
    build_targets ReplugTest || return
    PANOREL_CYCLES=${PANOREL_CYCLES:-100} each_manager replug "$build/Tests/Desktop/ReplugTest"
}
