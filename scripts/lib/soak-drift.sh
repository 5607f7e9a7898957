# A thousand round trips with windows of every kind under every window manager; then, beside
# Panorel's, the drift of scripts around wmctrl and xdotool. Sourced by scripts/soak.

soak_drift() {
    build_targets DriftTest panorel-bench-drift || return
    local failed=0
    PANOREL_CYCLES=${PANOREL_CYCLES:-1000} each_manager drift \
        "$build/Tests/Desktop/DriftTest" || failed=1
    # shellcheck disable=SC2086 # a list of words
    run_long drift-compared "$build/Benchmarks/Drift/panorel-bench-drift" \
        --json "$logs/drift-compared.json" ${PANOREL_MANAGERS-} || failed=1
    return "$failed"
}
