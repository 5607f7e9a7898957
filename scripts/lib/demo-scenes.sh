# What a user does on purpose: a scene by its key, the desk stashed and brought back, and a
# meeting from a calendar file that switches the scene. Sourced by scripts/demo after demo-desk.sh;
# needs a Panorel that has learned the desk with both displays.

# Two scenes as the program stores them, made of what it has learned, and the trigger of the
# meeting. "Work" is the whole desk with a picture; "Meeting" is the notes and the translation side
# by side and nothing else.
write_scenes() {
    convert -size 480x270 gradient:'#24405c'-'#c98b5a' "$HOME/evening.png" || fail "the picture"
    jq --arg picture "$HOME/evening.png" '
        [.layouts[] | select(.displays | length == 2)][0] as $desk
        | def scene(id; name): {id: id, configID: $desk.configID, name: name,
              createdAt: $desk.savedAt, opensMissingApps: false, hidesOtherApps: false,
              layout: ($desk | .layoutName = name)};
        def put(id; frame): map(select(.bundleID == id)
              | .frame = frame | .zOrder = (if id == "l3afpad" then 0 else 1 end));
        {lastAppliedByConfig: {}, scenes: [
            scene("00000000-0000-0000-0000-0000000000A1"; "Work")
                + {opensMissingApps: true, wallpaperPath: $picture},
            (scene("00000000-0000-0000-0000-0000000000A2"; "Meeting") + {hidesOtherApps: true}
                | .layout.windows |= put("l3afpad"; [[80, 120], [700, 800]])
                    + put("wmclass:Linguist"; [[800, 120], [1040, 800]]))]}' \
        "$PANOREL_DATA_DIR/layouts.json" >"$PANOREL_DATA_DIR/scenes.json" || fail "the scenes"
    cat >"$PANOREL_DATA_DIR/triggers.json" <<'JSON'
[{"id": "00000000-0000-0000-0000-0000000000B1", "sceneID": "00000000-0000-0000-0000-0000000000A2",
  "kind": {"calendarVideo": {"leadMinutes": 10}}, "enabled": true}]
JSON
}

start_with_scenes() {
    step "Starting Panorel again, with two scenes and a trigger, and opening its panel"
    end_child "$panorel_pid"
    write_scenes
    start_panorel
    wait_for 10 logged 2 "started: Panorel" || fail "no second start, see $work/panorel.out"
    "$panorel" || fail "the second start of the program" # asks the first one for its panel
    wait_for 10 panel_is_open || fail "the panel did not open"
    screenshot panel
}

panel_is_open() {
    xdotool search --onlyvisible --class panorel >/dev/null 2>&1
}

settings_are_open() {
    wmctrl -l | grep -q 'Panorel Settings$' &&
        [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "Panorel Settings" ]
}

work_has_its_key() {
    jq -e '.scenes[] | select(.name == "Work") | .hotKey == {keyCode: 18, modifiers: 6144}' \
        "$PANOREL_DATA_DIR/scenes.json" >/dev/null 2>&1
}

# By keyboard alone: from the panel to the settings, down to the shortcuts, past the rows of the
# fixed actions (the last of which has no key to clear) to that of the first scene.
set_the_scenes_key() {
    step "Setting the key of the scene \"Work\" in the settings"
    xdotool key ctrl+comma
    wait_for 10 settings_are_open || fail "the settings did not open"
    xdotool key Down Down
    xdotool key Tab Tab Tab Tab Tab Tab Tab Tab
    xdotool key Return
    xdotool key ctrl+alt+1
    wait_for 5 work_has_its_key || fail "the key was not recorded"
    screenshot settings
    xdotool key ctrl+w
}

scene_by_key() {
    step "Scattering the windows and closing the calculator"
    scatter
    wmctrl -i -c "${window[calculator]}" || fail "closing the calculator"
    wait_for 10 is_gone "${window[calculator]}" || fail "the calculator did not close"
    step "Pressing Ctrl+Alt+1: the scene \"Work\""
    xdotool key ctrl+alt+1
    wait_for 10 logged 1 "scene applied: Work" || fail "the key did not apply the scene"
    wait_for 15 window_of_class galculator >/dev/null || fail "the calculator was not opened"
    window[calculator]=$(window_of_class galculator)
    wait_for 10 logged 1 "launch placement: moved 1 windows for Galculator" ||
        fail "the calculator was not placed"
    wait_for_rest
    screenshot scene
    check_frames saved
    last_logged "scene applied: Work"
    xprop -root -notype _XROOTPMAP_ID | grep -q '0x[0-9a-f]*[1-9a-f]' ||
        fail "the desktop picture was not set"
}

stash_and_return() {
    local order name reports
    wmctrl -i -a "${window[files]}" && wait_for 5 is_active files || fail "the focus"
    wait_for_rest
    order=$(stacking)
    remember saved
    step "Pressing Alt+Shift+S: the desk is stashed"
    xdotool key alt+shift+s
    for name in "${names[@]}"; do
        wait_for 5 is_iconic "${window[$name]}" || fail "$name is still on the screen"
    done
    wait_for_rest # openbox draws how they shrink
    screenshot stashed
    reports=$(count_logged "restore report:")
    step "Pressing Alt+Shift+S again: it comes back"
    xdotool key alt+shift+s
    wait_for 10 logged $((reports + 1)) "restore report:" || fail "the desk was not brought back"
    wait_for_rest
    screenshot brought-back
    check_frames saved
    [ "$(stacking)" = "$order" ] || fail "the windows are not in the order before the stash"
    wait_for 5 is_active files || fail "the focus did not come back"
    grep -F "stash: " "$PANOREL_DATA_DIR/app.log"
}

meeting_from_a_calendar_file() {
    local -A wanted=([notes]="80 120 700 800" [translation]="800 120 1040 800")
    local name
    step "Saving a calendar file with a meeting in five minutes, and waiting for the next look at it"
    mkdir -p "$HOME/.calendars"
    sed "s/MOMENT/$(date -u -d '+5 minutes' +%Y%m%dT%H%M%SZ)/" >"$HOME/.calendars/work.ics" <<'ICS'
BEGIN:VCALENDAR
VERSION:2.0
PRODID:-//Panorel//Demonstration//EN
BEGIN:VEVENT
UID:demonstration@panorel.example
DTSTAMP:20260101T000000Z
DTSTART:MOMENT
DURATION:PT30M
SUMMARY:Weekly round
DESCRIPTION:Join at https://meet.google.com/abc-defg-hij
END:VEVENT
END:VCALENDAR
ICS
    wait_for 90 logged 1 "calendar trigger fired" || fail "the meeting did not fire"
    wait_for_rest
    screenshot meeting
    names=(notes translation)
    check_frames wanted
    for name in build clock archive; do
        is_iconic "${window[$name]}" || fail "$name is still on the screen"
    done
    grep -F -e "calendar trigger fired" -e "scene applied: Meeting" "$PANOREL_DATA_DIR/app.log"
}
