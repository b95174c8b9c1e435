#!/usr/bin/env bash
# Opening and closing the console anywhere (main menu, cut scene, level,
# menus over a level) returns to exactly what was there, and a level loaded
# from the console gives the keys back to the game once it closes. Movie
# frames are kept as shots/<name>.png (BQ_KEEP_E2E=1 keeps them).
set -euo pipefail
source "$(dirname "$0")/lib.bash"
export BQ_XVFB_SCREEN=640x480x24
use_game_copy "$1"
shots=${E2E_SHOTS:-$work/shots}
mkdir -p "$shots"
start_game "$work" +set skiplogo 1 +set firstrun 0 +set vidfullscreen 0 +set vidwidth 640 +set vidheight 480 \
  +bind k playerinfo +movierecord 8
wait_for_log "$work" "REND New Res" 30
focus_game_window
sleep 1.5

key() { xdotool key --window "$win" "$@"; sleep 0.3; }
# Types a line into the console; the console closes `2` seconds later.
console_line() {
  key grave
  xdotool type --window "$win" --delay 30 "$1"
  key Return
  sleep "${2:-0}"
  key grave
}
snap() {
  sleep 1
  local f
  f=$(ls "$work"/screenshots/movie*.png 2>/dev/null | sort | tail -n 3 | head -n 1)
  [ -n "$f" ] || fail "no movie frames"
  cp "$f" "$shots/$1.png"
}
# Lit pixels per mille of a kept shot.
lit() {
  PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$shots/$1.png" <<'PY'
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
lit = sum(1 for row in rows for x in range(0, w * ch, ch) if row[x] + row[x + 1] + row[x + 2] > 60)
print(lit * 1000 // (w * h))
PY
}
not_black() { local l; l=$(lit "$1"); [ "$l" -gt 300 ] || fail "$1 is a black screen ($l per mille lit)"; }
keys_reach_game() {
  rm -f "$work/playerinfo.txt"
  key k
  wait_for_file "$work/playerinfo.txt" 5
  grep -q "Unknown Command" "$work/outputlog.txt" && fail "keys went to the hidden console ($1)"
  return 0
}

# Main menu: the console opens and closes over it.
key grave grave
snap menu_after_console
not_black menu_after_console

# New Game, Begin!: the opening cut scene; the console over it and back.
xdotool mousemove --window "$win" 320 245; sleep 0.2; xdotool click 1; sleep 0.5
xdotool mousemove --window "$win" 480 319; sleep 0.2; xdotool click 1
wait_for_log "$work" "Read cutscene file sucessfully" 20
sleep 0.5
# The first save shows the first level: it is written before the story starts.
saved=$(grep -n "Saving save game: saves/save1.xml" "$work/outputlog.txt" | head -n 1 | cut -d: -f1)
story=$(grep -n "Read cutscene file sucessfully" "$work/outputlog.txt" | head -n 1 | cut -d: -f1)
[ -n "$saved" ] && [ "$saved" -lt "$story" ] || fail "Begin! did not save before the opening story"
[ -s "$work/saves/save1.png" ] || fail "no thumbnail for the first save"
key grave grave
snap cutscene_after_console
not_black cutscene_after_console
# Forward a page and back with the arrows under the page; Escape still
# skips the scene into the level.
xdotool mousemove --window "$win" 430 428; sleep 0.2; xdotool click 1; sleep 0.4
xdotool mousemove --window "$win" 210 428; sleep 0.2; xdotool click 1; sleep 0.4
key Escape
sleep 1
keys_reach_game "after the cut scene"

# Escape, backquote twice: the menus over the level are still there.
key Escape
wait_for_log "$work" "Show GUI" 10
key grave grave
snap menus_after_console
not_black menus_after_console
key Escape
wait_for_log "$work" "Hide GUI" 10
keys_reach_game "after leaving the menus"

# A level loaded from the open console.
console_line "map test" 1
sleep 0.5
keys_reach_game "after map"
snap level_after_map
not_black level_after_map
# The mouse rests over "Resume Game" as the menus open: a click without
# moving it still resumes.
xdotool mousemove --window "$win" 530 458; sleep 0.3
key Escape
snap menus_after_map
not_black menus_after_map
hides=$(grep -c "Hide GUI" "$work/outputlog.txt" || true)
xdotool click 1; sleep 0.5
[ "$(grep -c "Hide GUI" "$work/outputlog.txt" || true)" -gt "$hides" ] || fail "a click right after Escape was lost"

# kill typed in the console: the world waits while it is open, so the level
# restarts once it closes, and the keys are the game's.
console_line "kill" 4
keys_reach_game "after kill"
stop_game
echo "console_flow ok"
