#!/usr/bin/env bash
# Save games with the real game: a save typed in the console writes the file
# and a 320 x 240 thumbnail of the game (without the console over it); moving
# on and loading puts the player and the level clock back; F5 and F9 save and
# load the quick save; a save that cannot be read changes nothing.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k playerinfo
bind n loadgame nosuchsave
bind o savegame e2e
bind l loadgame e2e
SCRIPT

start_game "$work" +map test
focus_game_window
sleep 1
# Escape skips the logo card; the level has the keys.
xdotool key --window "$win" Escape
sleep 1

info() { player_info "$work" "$win"; }
near() { awk -v a="$1" -v b="$2" -v d="$3" 'BEGIN { e = a - b; if (e < 0) e = -e; exit !(e <= d) }'; }
walk() {
  xdotool keydown --window "$win" "$1"
  sleep "$2"
  xdotool keyup --window "$win" "$1"
  # The player slides a while after the key is let go: wait until they rest,
  # however slowly the machine runs.
  sleep 1
  local last now
  last=$(info | cut -d' ' -f1)
  for _ in $(seq 20); do
    sleep 0.4
    now=$(info | cut -d' ' -f1)
    near "$now" "$last" 0.5 && break
    last=$now
  done
}
console() {
  xdotool key --window "$win" grave
  sleep 0.3
  type_line "$1"
  sleep 0.3
  xdotool key --window "$win" grave
  sleep 0.3
}

walk d 1.2
read -r x1 y1 t1 level <<<"$(info)"
xdotool key --window "$win" o
wait_for_log "$work" "^Saving save game: saves/e2e.xml$" 10
wait_for_file "$work/saves/e2e.png" 10
[ -s "$work/saves/e2e.xml" ] || fail "no save file"
[ ! -e "$work/saves/e2e.xml.tmp" ] || fail "temporary save file left behind"

# Move well away (back left: a crate stops the walk right) and let the clock
# run, then load.
walk a 1.5
read -r x2 _ t2 _ <<<"$(info)"
near "$x1" "$x2" 40 && fail "the player did not move after saving ($x1 -> $x2)"
xdotool key --window "$win" l
wait_for_log "$work" "^Loading save game: saves/e2e.xml$" 10
sleep 0.3
read -r x3 y3 t3 level3 <<<"$(info)"
echo "saved at x $x1 y $y1 t $t1 ($level); moved to x $x2 t $t2; loaded at x $x3 y $y3 t $t3 ($level3)"
near "$x3" "$x1" 12 || fail "load put the player at x $x3, saved at $x1"
near "$y3" "$y1" 12 || fail "load put the player at y $y3, saved at $y1"
[ "$level3" = "$level" ] || fail "loaded level $level3, saved $level"
# The clock resumes from the save (plus the moments around the two commands).
awk -v a="$t3" -v b="$t2" 'BEGIN { exit !(a < b) }' || fail "level clock not restored: $t3 after $t2"

# The quick save and quick load keys of the default controls.
walk a 1.0
read -r qx _ _ _ <<<"$(info)"
xdotool key --window "$win" F5
wait_for_log "$work" "^Saving save game: saves/quicksave.xml$" 10
wait_for_file "$work/saves/quicksave.png" 10
walk a 1.2
xdotool key --window "$win" F9
wait_for_log "$work" "^Loading save game: saves/quicksave.xml$" 10
sleep 0.3
read -r qx2 _ _ _ <<<"$(info)"
near "$qx2" "$qx" 12 || fail "F9 put the player at x $qx2, F5 saved at $qx"

# A save that does not exist: the message, and play goes on where it was.
xdotool key --window "$win" n
wait_for_log "$work" "^Can't load save file: saves/nosuchsave.xml$" 10
read -r nx _ _ _ <<<"$(info)"
near "$nx" "$qx2" 12 || fail "a missing save moved the player from $qx2 to $nx"

# Typed in the console: the thumbnail shows the game, not the console over it.
console "savegame console"
wait_for_log "$work" "^Saving save game: saves/console.xml$" 10
wait_for_file "$work/saves/console.png" 10

stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
check_no_missing_media
/usr/bin/python3 - "$work/saves/e2e.xml" <<'PY' || fail "save layout: $(head -c 300 "$work/saves/e2e.xml")"
import sys
import xml.etree.ElementTree as ET
root = ET.parse(sys.argv[1]).getroot()
assert root.tag == "save" and root.get("version") == "1" and root.get("currentlevel") == "test", root.attrib
assert int(root.get("nextbodyid")) > 1 and root.get("timer")
assert [c.tag for c in root] == ["Objects", "Player"], [c.tag for c in root]
assert len(root.find("Objects")) > 5 and root.find("Player").find("inventory") is not None
PY
[ -z "${BQ_SHOTS:-}" ] || cp "$work/saves/e2e.png" "$BQ_SHOTS/save_thumbnail.png"

# The thumbnails: 320 x 240, a picture of the level (many colours, not
# black), and no console over the top third.
for thumb in "$work/saves/e2e.png" "$work/saves/quicksave.png" "$work/saves/console.png"; do
  PYTHONPATH="$(dirname "$0")" /usr/bin/python3 - "$thumb" <<'PY' || fail "bad thumbnail $thumb"
import sys
from png_rows import read_png
w, h, ch, rows = read_png(sys.argv[1])
assert (w, h) == (320, 240), (w, h)
colours = set()
dark = 0
for row in rows:
    for x in range(0, w * ch, ch * 4):
        px = tuple(row[x:x + 3])
        colours.add(px)
        dark += sum(px) < 30
assert len(colours) > 40, "too few colours: %d" % len(colours)
assert dark < (w // 4) * h * 0.6, "mostly black"
# The console is a dark translucent band across the top of the window.
top = [tuple(rows[y][x:x + 3]) for y in range(0, 60, 4) for x in range(0, w * ch, ch * 8)]
assert sum(sum(p) < 120 for p in top) < len(top) * 0.5, "dark band over the top: the console?"
print(sys.argv[1], w, h, len(colours), "colours")
PY
done
echo "PASS"
