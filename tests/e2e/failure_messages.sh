#!/usr/bin/env bash
# Failures are told on screen as well as in the log: F9 with no quick save,
# and a level change naming a level that does not exist. That change is
# reported once, the request is dropped and the running level goes on
# (no black screen retrying the load every frame).
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

# The test level with a level change just right of the start, to a typo.
/usr/bin/python3 - "$work/maps/test.xml" "$work/maps/typo.xml" <<'PY'
import sys
text = open(sys.argv[1]).read()
change = '''<P type="levelchange" idname="typo"><params solid="false" entity="true" mass="0" visible="true"/>
<verts><v origin="80,0"/><v origin="110,0"/><v origin="110,64"/><v origin="80,64"/></verts>
<attributes><a name="leveltarget" value="tset"/><a name="targetspawn" value="start"/></attributes></P>
'''
open(sys.argv[2], "w").write(text.replace("</Objects>", change + "</Objects>", 1))
PY
write_autoexec <<'SCRIPT'
bind k playerinfo
bind j screenshot
SCRIPT

start_game "$work" +set skiplogo 1 +map typo
wait_for_log "$work" "Found on disk: maps/typo.xml" 30
focus_game_window
sleep 1

# Takes a screenshot with the game's own command and sets SHOT to its file.
shots=0
shot() {
  SHOT=$(printf '%s/screenshots/screenshot%04d.png' "$work" "$shots")
  shots=$((shots + 1))
  xdotool key --window "$win" j
  wait_for_log "$work" "^Writing screenshot to screenshots/${SHOT##*/}$" 10
  wait_for_file "$SHOT" 10
  # The PNG is complete once its size stops changing.
  local size=-1
  while [ "$(stat -c %s "$SHOT")" != "$size" ]; do size=$(stat -c %s "$SHOT"); sleep 0.3; done
}
# Pixels in the notice's amber across the band where notices are drawn.
notice_pixels() {
  PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$1" <<'PY'
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
n = 0
for y in range(int(h * 0.55), int(h * 0.75)):
    row = rows[y]
    for x in range(0, w * ch, ch):
        r, g, b = row[x], row[x + 1], row[x + 2]
        n += r > 220 and 170 < g < 225 and b < 100
print(n)
PY
}
[ -z "${BQ_SHOTS:-}" ] || mkdir -p "$BQ_SHOTS"

shot
before=$(notice_pixels "$SHOT")
xdotool key --window "$win" F9
wait_for_log "$work" "^Can't load save file: saves/quicksave.xml$" 10
shot
after_f9=$SHOT
[ -z "${BQ_SHOTS:-}" ] || cp "$after_f9" "$BQ_SHOTS/notice_no_quicksave.png"
f9=$(notice_pixels "$after_f9")
echo "notice pixels: $before before F9, $f9 after"
[ "$f9" -gt $((before + 150)) ] || fail "F9 without a quick save showed nothing on screen ($before -> $f9)"

# Walk into the level change to the missing level "tset".
read -r x0 _ _ _ <<<"$(player_info "$work" "$win")"
xdotool keydown --window "$win" d
sleep 1.5
xdotool keyup --window "$win" d
wait_for_log "$work" "^Could not load level file: maps/tset.xml$" 10
sleep 1.5
shot
bad=$SHOT
[ -z "${BQ_SHOTS:-}" ] || cp "$bad" "$BQ_SHOTS/notice_missing_level.png"
reports=$(grep -c "^Could not load level file" "$log" || true)
[ "$reports" -eq 1 ] || fail "the missing level was reported $reports times"
read -r x1 _ _ level1 <<<"$(player_info "$work" "$win")"
[ "$level1" = "typo" ] || fail "the running level is $level1"
awk -v a="$x0" -v b="$x1" 'BEGIN { exit !(b > a + 40) }' || fail "the player did not walk on ($x0 -> $x1)"
# Play goes on: walking back left moves the player.
xdotool keydown --window "$win" a
sleep 1
xdotool keyup --window "$win" a
sleep 0.5
read -r x2 _ _ _ <<<"$(player_info "$work" "$win")"
awk -v a="$x1" -v b="$x2" 'BEGIN { exit !(b < a - 20) }' || fail "the level stopped after the failed change ($x1 -> $x2)"
[ "$(notice_pixels "$bad")" -gt $((before + 150)) ] || fail "the failed level change showed nothing on screen"
PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$bad" <<'PY' || fail "the screen went black"
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
dark = sum(sum(rows[y][x:x + 3]) < 30 for y in range(0, h, 8) for x in range(0, w * ch, ch * 8))
total = len(range(0, h, 8)) * len(range(0, w * ch, ch * 8))
assert dark < total * 0.6, "%d of %d samples black" % (dark, total)
PY
stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
echo "PASS"
