#!/usr/bin/env bash
# The widget gallery under a real X server, driven by real clicks and keys at
# 640x480: buttons, the text box, the value box, the key-binding box, the
# slider, the list and the frame's Escape; then at 1920x1080 the frame is
# dragged by its title bar and its widgets still answer where it went.
# Screenshots come from the game's movie recorder (BQ_KEEP_E2E=1 keeps them).
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"
log() { cat "$work/outputlog.txt"; }
count() { log | grep -c -x -- "$1" || true; }
# Waits (up to 5 s: the game may be slow under load) for a line to appear
# exactly n times in the log (once when n is left out).
want() {
  local line=$1 msg=$2 n=${3:-}
  for _ in $(seq 50); do
    if [ -z "$n" ]; then log | grep -q -x -- "$line" && return 0
    else [ "$(count "$line")" = "$n" ] && return 0; fi
    sleep 0.1
  done
  fail "$msg"
}

# The newest complete movie frame, copied as shots/<name>.png.
snap() {
  sleep 0.6
  mkdir -p "$work/shots"
  local f
  f=$(ls "$work"/screenshots/movie*.png 2>/dev/null | sort | tail -n 2 | head -n 1)
  [ -n "$f" ] || fail "no movie frames"
  cp "$f" "$work/shots/$1.png"
}

# Window pixel of a point given relative to the gallery's top-left corner.
at() { xdotool mousemove --window "$win" $((gx + $1)) $((gy + $2)); sleep 0.15; }
click() { at "$1" "$2"; xdotool click "${3:-1}"; sleep 0.2; }
# Each key is held a moment, as a person types: a press and release that
# reach the game in the same frame leave SDL repeating the key.
keys() {
  local k
  for k in "$@"; do xdotool keydown "$k"; sleep 0.08; xdotool keyup "$k"; sleep 0.05; done
  sleep 0.2
}

open_gallery() {
  local w=$1 h=$2
  start_game "$work" +set skiplogo 1 +set firstrun 0 +set vidfullscreen 0 +set vidwidth "$w" \
    +set vidheight "$h" +guidbg +movierecord 8
  wait_for_log "$work" "Widget gallery open" 30
  sleep 1
  focus_game_window
  # The gallery (620 x 460) is centred in the window.
  gx=$(((w - 620) / 2))
  gy=$(((h - 460) / 2))
}

# --- 640 x 480 ---------------------------------------------------------------
work=$(make_game_copy "$game_dir")
open_gallery 640 480
snap gallery_640_start

# A click fires the button once; a press that ends off the button fires nothing.
click 190 52
at 190 52; xdotool mousedown 1; sleep 0.1; at 190 300; xdotool mouseup 1; sleep 0.2
want 'GUI action: gallerybutton from button' "the button did not fire once" 1

# Text box: type at the end, backspace, jump home, shifted letter, Enter.
click 190 124
keys a b BackSpace Home x shift+q Return
want "GUI action: gallerytext from textbox (xQsave1a)" "text box edit wrong: $(log | grep textbox || true)"

# Value box: left click forward, right click back, round the end.
click 190 156
click 190 156 3
click 190 156 3
want "GUI action: valuechange from valuebox (Medium)" "value box did not step forward"
want "GUI action: valuechange from valuebox (Ultra)" "value box did not wrap backwards"
keys Right
want "GUI action: valuechange from valuebox (Low)" "value box did not wrap forwards on a key"

# Key-binding box: the next key binds; Escape gives up; a third key replaces both.
click 190 188
snap gallery_640_armed
keys k
want "GUI action: bindupdate from keybindbox (k, mouse1)" "k was not bound: $(log | grep keybind || true)"
click 190 188
keys Escape
click 190 188
xdotool click 2; sleep 0.3
want "GUI action: bindupdate from keybindbox (mouse3)" "the middle button was not bound"
sleep 0.3
[ "$(log | grep -c 'from keybindbox')" = 2 ] || fail "Escape bound something"

# Slider: drag the grabber past the right end, then a wheel notch down.
at 120 222; xdotool mousedown 1; sleep 0.1; at 200 222; sleep 0.1; at 400 225; xdotool mouseup 1; sleep 0.3
want "GUI slider: 20" "the slider did not reach 20: $(log | grep slider || true)"
click 200 222 4
want "GUI slider: 19" "the wheel did not step the slider"

# List: click the third row, move down with the keys, go to the end and back.
click 380 90
want "GUI action: selchange from listbox (row 2)" "row 2 not selected"
keys Down
want "GUI action: selchange from listbox (row 3)" "Down did not move the selection"
keys End
want "GUI action: selchange from listbox (row 13)" "End did not reach the last row"
snap gallery_640_used
# Wheel up over the list, then a click on its top row is row 0 again.
for _ in 1 2 3 4 5 6 7 8; do click 380 60 4; done
click 380 50
want "GUI action: selchange from listbox (row 0)" "the list did not scroll back to the top"

# Escape closes the gallery; with no level loaded the GUI stays up.
keys Escape
sleep 0.3
click 190 52
sleep 0.5
want 'GUI action: gallerybutton from button' "the closed gallery still answered" 1
snap gallery_640_closed
stop_game
kill "$XVFB_PID" 2>/dev/null || true
! grep -q "Hide GUI" "$work/outputlog.txt" || fail "the GUI hid without a level"
grep -q -x "bind mouse3 +attack" "$work/data/config.txt" || fail "the new binding was not kept"
grep -q -x "bind k " "$work/data/config.txt" || fail "the replaced binding was kept"
rm -rf "$work/screenshots"

# --- 1920 x 1080 -------------------------------------------------------------
export BQ_XVFB_SCREEN=1920x1080x24
open_gallery 1920 1080
snap gallery_1080_start
# Drag by the title bar 300 right and 200 down; the button goes with it.
at 200 12; xdotool mousedown 1; sleep 0.1; at 350 112; sleep 0.1; at 500 212; xdotool mouseup 1; sleep 0.3
gx=$((gx + 300)); gy=$((gy + 200))
click 190 52
want 'GUI action: gallerybutton from button' "the button did not move with its frame" 1
# The body of the frame is no handle.
at 285 415; xdotool mousedown 1; sleep 0.1; at 185 315; xdotool mouseup 1; sleep 0.2
click 190 52
want 'GUI action: gallerybutton from button' "dragging the body moved the frame" 2
click 380 90
snap gallery_1080_moved
# The close button puts it away.
click 610 16
click 190 52
sleep 0.5
want 'GUI action: gallerybutton from button' "the close button did not close the gallery" 2
stop_game
echo "gui gallery ok"
