#!/usr/bin/env bash
# The console under a real X server: the backquote key opens it, typed
# commands run, and the game's own screenshot shows the band with its text.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +set skiplogo 1
wait_for_log "$work" "REND New Res" 20
sleep 1
focus_game_window
xdotool key --window "$win" grave
sleep 0.5
type_line "listvars con_"
# Tab completes to the shortest name; running a variable's name shows its value.
xdotool type --window "$win" --delay 40 "con_h"
xdotool key --window "$win" Tab Return
type_line "condump e2e_dump.txt"
type_line "screenshot"
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
sleep 0.5
stop_game

dump="$work/e2e_dump.txt"
[ -f "$dump" ] || fail "condump wrote nothing"
head -n 1 "$dump" | grep -q "=== BEGINNING OF CONSOLE DUMP ===" || fail "dump header missing"
grep -q "^    con_height = " "$dump" || fail "listvars output not in the dump: $(cat "$dump")"
grep -q "^listvars con_$" "$dump" || fail "typed line not echoed"
grep -q "Auto Complete For:  con_h$" "$dump" || fail "no completion listing"
grep -q "^con_height = 0.5" "$dump" || fail "completed name did not run"
tail -n 1 "$dump" | grep -q "=== END OF CONSOLE DUMP ===" || fail "dump footer missing"
shot="$work/screenshots/screenshot0000.png"
[ -s "$shot" ] || fail "no screenshot"
PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$shot" <<'PY' || fail "screenshots do not show the console"
import sys
from png_rows import read_png

for path in sys.argv[1:]:
    w, h, ch, rows = read_png(path)
    # Console text is cyan (27, 209, 255); the edge line orange (247, 120, 23).
    cyan = orange = 0
    for row in rows:
        for x in range(0, w * ch, ch):
            r, g, b = row[x], row[x + 1], row[x + 2]
            if b > 200 and g > 150 and r < 120:
                cyan += 1
            if r > 200 and 90 < g < 150 and b < 60:
                orange += 1
    print(path, w, h, "cyan", cyan, "orange", orange)
    if cyan < 200 or orange < w:
        sys.exit(1)
PY
echo "console ok"
