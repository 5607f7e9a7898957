# The demonstration's desk: eight windows of seven programs on two displays, and the frames that
# they had at some time. Sourced by scripts/demo after desktop.sh.

names=()
declare -A window saved

# What the applications show.
write_documents() {
    cp "$root/Sources/PanorelCore/Geometry.h" "$HOME/"
    tar -czf "$HOME/sources.tar.gz" -C "$root" Sources
    printf '%s\n' 'Desk' '' 'Left:   terminals, translation, archive' \
        'Right:  editor, clock, calculator, this note' '' \
        'Unplug the right display, plug it in again:' 'every window is back where it was.' \
        >"$HOME/Notes.txt"
    cat >"$HOME/panel_de.ts" <<'TS'
<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context><name>Panel</name>
<message><source>Restore Now</source><translation>Jetzt wiederherstellen</translation></message>
<message><source>Undo Last Restore</source><translation>Letzte Wiederherstellung widerrufen</translation></message>
<message><source>Save Layout</source><translation>Anordnung sichern</translation></message>
<message><source>No displays detected</source><translation type="unfinished"></translation></message>
</context>
<context><name>Settings</name>
<message><source>Start at login</source><translation>Bei der Anmeldung starten</translation></message>
<message><source>Displays</source><translation>Bildschirme</translation></message>
</context>
</TS>
TS
    mkdir -p "$XDG_CONFIG_HOME/gtk-3.0"
    printf '%s\n' '[Settings]' 'gtk-theme-name=Adwaita' 'gtk-icon-theme-name=Adwaita' \
        'gtk-font-name=DejaVu Sans 10' >"$XDG_CONFIG_HOME/gtk-3.0/settings.ini"
}

has_new_window() {
    [ "$(xprop -root -notype _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*' | wc -l)" -gt "$1" ]
}

# place NAME "X Y WIDTH HEIGHT" COMMAND...: starts a program and puts its window there.
place() {
    local name=$1 where=$2 count
    shift 2
    count=${#names[@]}
    start "$name" "$@"
    wait_for 15 has_new_window "$count" || fail "no window of $name, see $work/$name.out"
    window[$name]=$(xprop -root -notype _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*' | tail -n 1)
    names+=("$name")
    wmctrl -i -r "${window[$name]}" -e "0,${where// /,}" || fail "placing $name"
}

terminal() {
    local name=$1 where=$2 text=$3
    place "$name" "$where" xterm -T "$name" -fa 'DejaVu Sans Mono' -fs 11 -bg '#1f2530' \
        -fg '#d5dbe5' -e sh -c "$text; exec sleep 86400"
}

place_windows() {
    place editor "2000 100 1100 700" geany -s -m -t "$HOME/Geometry.h"
    wmctrl -i -r "${window[editor]}" -T "Geometry.h - Geany" # without the path of this machine
    wmctrl -i -r "${window[editor]}" -b add,maximized_vert,maximized_horz
    terminal build "40 50 860 470" "cd '$root' && head -n 20 CMakeLists.txt"
    terminal files "40 560 860 470" "cd '$root' && ls -go --color=always"
    place translation "960 50 910 610" /usr/lib/qt6/bin/linguist panel_de.ts
    place archive "960 720 910 310" file-roller "$HOME/sources.tar.gz"
    place clock "3530 150 260 260" xclock -update 1 -title Clock
    place notes "2900 640 520 330" l3afpad "$HOME/Notes.txt"
    place calculator "3460 610 340 360" galculator
    wmctrl -i -a "${window[build]}"
    wait_for 5 is_active build || fail "the focus did not come to the first terminal"
    wait_for_rest
}

is_active() {
    [ $(($(active_window))) -eq $((${window[$1]})) ]
}

remember() {
    local -n into=$1
    local name
    for name in "${names[@]}"; do
        into[$name]=$(frame_of "${window[$name]}")
    done
}

# error_of EXPECTED FRAME: the largest difference of two frames, in pixels.
error_of() {
    local worst=0 i difference is was
    read -r -a was <<<"$1"
    read -r -a is <<<"$2"
    for i in 0 1 2 3; do
        difference=$((is[i] - was[i]))
        [ "${difference#-}" -le "$worst" ] || worst=${difference#-}
    done
    echo "$worst"
}

# check_frames EXPECTED [BEFORE]: names of associative arrays. Prints where every window should be,
# where it was before if that is told, and where it is; fails unless all are there to the pixel.
check_frames() {
    local -n expected=$1 before=${2:-$1}
    local name frame error wrong=0
    printf '%-12s %-20s %-20s %-20s %s\n' window wanted "${2:+before}" now 'error px'
    for name in "${names[@]}"; do
        frame=$(frame_of "${window[$name]}")
        error=$(error_of "${expected[$name]}" "$frame")
        [ "$error" -eq 0 ] || wrong=$((wrong + 1))
        printf '%-12s %-20s %-20s %-20s %s\n' "$name" "${expected[$name]}" \
            "${2:+${before[$name]}}" "$frame" "$error"
    done
    [ "$wrong" -eq 0 ] || fail "$wrong of ${#names[@]} windows are not where they should be"
}

# Every window somewhere else, none of them maximised.
scatter() {
    local name x=60
    wmctrl -i -r "${window[editor]}" -b remove,maximized_vert,maximized_horz
    for name in "${names[@]}"; do
        wmctrl -i -r "${window[$name]}" -e "0,$x,$((x / 2)),500,400" || fail "moving $name"
        x=$((x + 150))
    done
    wait_for_rest
}

is_gone() {
    ! xprop -id "$1" WM_STATE >/dev/null 2>&1
}

is_iconic() {
    xprop -id "$1" WM_STATE 2>/dev/null | grep -q Iconic
}

# window_of_class NAME: the id of its window; false while there is none.
window_of_class() {
    wmctrl -lx | grep -i -F ".$1 " | cut -d ' ' -f 1 | grep .
}
