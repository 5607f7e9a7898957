# A private X desktop for a script: a server with the dummy driver, a session bus and a window
# manager, all with a home of their own, and what it takes to look at the windows. Sourced by bash
# scripts beside this folder, which set `root` (the repository) and `work` (a folder of their own).
#
# Every process is a direct child that is remembered and ended by id, whatever happens.

children=()

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# start NAME COMMAND...: in the background, its output in NAME.out.
start() {
    local name=$1
    shift
    "$@" >"$work/$name.out" 2>&1 </dev/null &
    children+=($!)
}

# end_child PID: without mercy after five seconds.
end_child() {
    local tries
    kill "$1" 2>/dev/null || return 0
    for ((tries = 0; tries < 100; ++tries)); do
        kill -0 "$1" 2>/dev/null || break
        sleep 0.05
    done
    kill -9 "$1" 2>/dev/null
    wait "$1" 2>/dev/null
}

# Last started first.
end_children() {
    local i
    for ((i = ${#children[@]} - 1; i >= 0; --i)); do
        end_child "${children[i]}"
    done
    children=()
}

# wait_for SECONDS COMMAND...: until the command succeeds; false when the time is over.
wait_for() {
    local deadline=$(($(date +%s%N) + $1 * 1000000000))
    shift
    until "$@"; do
        [ "$(date +%s%N)" -lt "$deadline" ] || return 1
        sleep 0.05
    done
}

# Sets DISPLAY, HOME and the rest of the environment for everything that follows.
start_desktop() {
    local xorg=/usr/lib/xorg/Xorg
    [ -x "$xorg" ] || xorg=Xorg
    export HOME="$work/home" XDG_RUNTIME_DIR="$work/run" XDG_CONFIG_HOME="$work/home/.config"
    export XDG_DATA_HOME="$work/home/.local/share" XDG_CACHE_HOME="$work/home/.cache"
    mkdir -p "$XDG_RUNTIME_DIR" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME"
    chmod 700 "$XDG_RUNTIME_DIR"
    mkdir -p "$XDG_CONFIG_HOME/Panorel" # of a user who has been welcomed
    printf '[General]\nhasOnboarded=true\n' >"$XDG_CONFIG_HOME/Panorel/Panorel.ini"
    export XDG_SESSION_TYPE=x11 GDK_BACKEND=x11 QT_QPA_PLATFORM=xcb LIBGL_ALWAYS_SOFTWARE=1
    export GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 LC_ALL=C.UTF-8
    unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER DBUS_SESSION_BUS_ADDRESS

    rm -f "$work/display" "$work/bus"
    "$xorg" -displayfd 3 -config "$root/scripts/lib/xorg-dummy.conf" -noreset -novtswitch \
        -sharevts -nolisten tcp -logfile "$work/xorg.log" 3>"$work/display" \
        >"$work/xorg.out" 2>&1 </dev/null &
    children+=($!)
    wait_for 20 test -s "$work/display" || fail "the X server did not start, see $work/xorg.log"
    DISPLAY=":$(cat "$work/display")"
    export DISPLAY

    dbus-daemon --session --nofork --nopidfile --print-address=3 3>"$work/bus" \
        >"$work/dbus.out" 2>&1 </dev/null &
    children+=($!)
    wait_for 10 test -s "$work/bus" || fail "the session bus did not start, see $work/dbus.out"
    DBUS_SESSION_BUS_ADDRESS=$(cat "$work/bus")
    export DBUS_SESSION_BUS_ADDRESS
}

has_window_manager() {
    local check
    check=$(xprop -root -notype _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -o '0x[0-9a-f]*') &&
        xprop -id "$check" _NET_SUPPORTING_WM_CHECK >/dev/null 2>&1
}

# The ids of the managed windows, bottom to top, on one line.
stacking() {
    xprop -root -notype _NET_CLIENT_LIST_STACKING | grep -o '0x[0-9a-f]*' | tr '\n' ' '
}

active_window() {
    xprop -root -notype _NET_ACTIVE_WINDOW | grep -o '0x[0-9a-f]*'
}

# frame_of ID: "X Y WIDTH HEIGHT" of the visible frame, decorations in and shadows out.
frame_of() {
    local id=$1 client sides sign=1
    client=$(LC_ALL=C xwininfo -id "$id" | sed -n -e 's/.*Absolute upper-left [XY]: *//p' \
        -e 's/^ *Width: //p' -e 's/^ *Height: //p' | tr '\n' ' ')
    sides=$(extents "$id" _GTK_FRAME_EXTENTS)
    if [ -n "$sides" ]; then
        sign=-1
    else
        sides=$(extents "$id" _NET_FRAME_EXTENTS)
    fi
    # shellcheck disable=SC2086 # four numbers each
    set -- $client ${sides:-0 0 0 0}
    echo "$(($1 - sign * $5)) $(($2 - sign * $7)) $(($3 + sign * ($5 + $6)))" \
        "$(($4 + sign * ($7 + $8)))"
}

# extents ID PROPERTY: "LEFT RIGHT TOP BOTTOM", nothing where it is not set.
extents() {
    xprop -id "$1" -notype "$2" 2>/dev/null | sed -n 's/.* = //p' | tr -d ','
}

all_frames() {
    local id
    for id in $(stacking); do
        echo "$id $(frame_of "$id")"
    done
}

# Waits until no window has moved between two looks at all of them.
wait_for_rest() {
    local before now
    now=$(all_frames)
    until [ "$now" = "${before-}" ]; do
        sleep 0.3
        before=$now
        now=$(all_frames)
    done
}
