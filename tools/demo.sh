#!/usr/bin/env bash
# Shows the program at work on a screen of its own: it types a letter with real keys, saves it
# and prints it through the dialogs and leaves demo/letter.qlt, demo/letter.pdf and
# demo/screenshot.png. The program is build/quillet, or what QUILLET_PROGRAM names. Neither the
# desktop nor the settings of whoever runs this are touched.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Keys of the Inscript layout. They write: priy mitr, / namaste. hindi mem likhna saral hai.
letter=("hdjf/ cfldj," "vcmdls> ufvdor csx nfKve mjn uw>")
firstWord=$'f\xc1;' # how "priy" lies in the file
startTitle="^Quillet: Inscript Based Basic Devnagari Word Processor"
savedTitle="^Quillet: Hindi Text Editor \("

scratch=$(mktemp -d)
jobs=()

cleanUp() {
    local status=$?
    ((status == 0)) || tail -n 20 "$scratch"/*.log >&2 || true
    for ((i = ${#jobs[@]} - 1; i >= 0; i--)); do
        kill "${jobs[i]}" 2>/dev/null || true
        wait "${jobs[i]}" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap cleanUp EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

fail() {
    echo "The demonstration failed: $*" >&2
    exit 1
}

# Starts a command in the background; what it says goes into a log.
start() {
    "$@" >"$scratch/$(basename "$1").log" 2>&1 &
    jobs+=($!)
}

# Waits for a command to succeed, half a minute at most and only while all that was started runs.
waitFor() {
    local what=$1 end=$((SECONDS + 30)) job
    shift
    until "$@" >/dev/null 2>&1; do
        for job in "${jobs[@]}"; do
            kill -0 "$job" 2>/dev/null || fail "a program ended before $what"
        done
        ((SECONDS < end)) || fail "no sign of $what"
        sleep 0.1
    done
}

# A server of our own behind a cookie. It chooses a free number and tells it once it is ready.
startScreen() {
    local cookie
    cookie=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    export XAUTHORITY=$scratch/cookies
    xauth -q -f "$XAUTHORITY" add :0 . "$cookie" 2>/dev/null
    mkfifo "$scratch/number"
    exec 3<>"$scratch/number"
    start Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -auth "$XAUTHORITY"
    waitFor "the screen" readDisplay
    exec 3>&-
    xauth -q -f "$XAUTHORITY" add "$DISPLAY" . "$cookie"
}

readDisplay() {
    read -r -t 1 -u 3 number && export DISPLAY=":$number"
}

isActive() {
    local id
    id=$(xdotool getactivewindow) && [[ $(xdotool getwindowname "$id") =~ $1 ]]
}

dialogIsActive() {
    local id
    id=$(xdotool getactivewindow) && [[ $id != "$mainWindow" && -n $(xdotool getwindowname "$id") ]]
}

typeKeys() {
    xdotool type --delay 40 -- "$1"
}

writeLetter() {
    local line
    for line in "${letter[@]}"; do
        typeKeys "$line"
        xdotool key Return
    done
}

saveLetter() {
    xdotool key ctrl+s
    waitFor "the Save As dialog" dialogIsActive
    typeKeys "$PWD/demo/letter.qlt"
    xdotool key Return
    waitFor "the saved letter" isActive "$savedTitle"
}

# Where no printer is known, the dialog prints into a file.
printLetter() {
    xdotool key ctrl+p
    waitFor "the Print dialog" isActive '^Print$'
    xdotool key alt+f ctrl+a
    typeKeys "$PWD/demo/letter.pdf"
    xdotool key Return
    waitFor "the printed letter" test -s demo/letter.pdf
    waitFor "the window" isActive "$savedTitle"
}

# Two pictures alike: nothing is being painted any more.
screenStandsStill() {
    scrot --overwrite "$scratch/before.png" && sleep 0.2 &&
        scrot --overwrite "$scratch/after.png" && cmp "$scratch/before.png" "$scratch/after.png"
}

export HOME=$scratch XDG_CONFIG_HOME=$scratch XDG_CACHE_HOME=$scratch XDG_RUNTIME_DIR=$scratch
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb CUPS_SERVER=/nowhere
unset WAYLAND_DISPLAY SESSION_MANAGER DBUS_SESSION_BUS_ADDRESS

mkdir -p demo
rm -f demo/letter.qlt demo/letter.pdf demo/screenshot.png
startScreen
start openbox
waitFor "the window manager" xdotool get_num_desktops # or the first window gets no keys
start "${QUILLET_PROGRAM:-build/quillet}"
waitFor "the main window" isActive "$startTitle"
mainWindow=$(xdotool getactivewindow)
writeLetter
saveLetter
printLetter
waitFor "a still screen" screenStandsStill
cp "$scratch/after.png" demo/screenshot.png
[[ $(LC_ALL=C head -c 3 demo/letter.qlt) == "$firstWord" ]] || fail "the letter was not written"
echo "The letter:     demo/letter.qlt"
echo "Printed:        demo/letter.pdf"
echo "The screenshot: demo/screenshot.png"
