#!/usr/bin/env bash
# A video restart keeps the level textured and text readable: with the glow
# pass and the debug text on, a screenshot after "vidrestart" shows the same
# textured bodies as before it and glyphs rather than solid blocks.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +set skiplogo 1 +set drawbloom 1 +set debuginfo 1 +set bodyinfo 1 +set drawspeed 1 +map test
wait_for_log "$work" "Found on disk: maps/test.xml" 30
sleep 2
focus_game_window
xdotool key --window "$win" F12
wait_for_file "$work/screenshots/screenshot0000.png" 10
xdotool key --window "$win" grave
sleep 0.5
type_line "vidrestart"
sleep 0.3
xdotool key --window "$win" grave
sleep 1.5
xdotool key --window "$win" F12
wait_for_file "$work/screenshots/screenshot0001.png" 10
sleep 0.5
stop_game
grep -q "REND New Res: 1024 , 768" "$work/outputlog.txt" || fail "no video restart in the log"

PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$work"/screenshots/screenshot000[01].png <<'PY' || fail "the restarted picture is wrong"
import sys
from png_rows import read_png

def measure(path):
    w, h, ch, rows = read_png(path)
    white = coloured = 0
    for row in rows:
        for x in range(0, w * ch, ch):
            r, g, b = row[x], row[x + 1], row[x + 2]
            if r > 235 and g > 235 and b > 235:
                white += 1
            elif max(r, g, b) - min(r, g, b) > 40:
                coloured += 1
    # The body count line: baseline 140 px above the bottom, 14 px font, from x 20.
    top, bottom = h - 140 - 14, h - 140 + 4
    cells = [(x, y) for y in range(top, bottom) for x in range(20, min(w, 420))
             if all(rows[y][x * ch + i] > 200 for i in range(3))]
    if cells:
        xs = [c[0] for c in cells]
        ys = [c[1] for c in cells]
        box = (max(xs) - min(xs) + 1) * (max(ys) - min(ys) + 1)
        fill = len(cells) / box
    else:
        fill = 0.0
    return w * h, white, coloured, len(cells), fill

before = measure(sys.argv[1])
after = measure(sys.argv[2])
print("before", before, "after", after)
area = after[0]
ok = True
# Textured bodies stay textured: no flood of white, the colours stay.
if after[1] > before[1] * 1.5 + area * 0.01:
    print("bodies went white"); ok = False
if after[2] < before[2] * 0.7:
    print("colours lost"); ok = False
# Glyphs: some white text, but far from a filled rectangle.
for label, m in (("before", before), ("after", after)):
    if m[3] < 60 or m[4] > 0.6:
        print("text drawn as blocks or missing", label); ok = False
sys.exit(0 if ok else 1)
PY
echo "video_restart ok"
