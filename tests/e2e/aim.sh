#!/usr/bin/env bash
# Aiming under real keys and the mouse on the firing range. Standing still,
# a cursor 400 px to the right aims well to the right (the aim point is on
# the play plane, not a point near the camera) and a crosshair is drawn
# there. Running right from the start with the cursor to the right, the
# pistol's shots go right and destroy the first target; aimed behind, they
# would hit the wall at the start.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k playerinfo
bind p screenshot
SCRIPT

start_game "$work" +map weapons
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1.5
eval "$(xdotool getwindowgeometry --shell "$win")"

# "Player pos, vel: x,y,z ..." and "Player Mouse Pos: x,y,z": aim x - player x.
aim_lead() {
  player_info "$work" "$win" k >/dev/null
  awk '/^Player pos, vel: / { split($4, p, ","); px = p[1] }
       /^Player Mouse Pos: / { split($4, m, ","); mx = m[1] }
       END { printf "%d\n", mx - px }' "$work/playerinfo.txt"
}

# At rest the camera is over the player.
aim_cursor 400 0
sleep 0.5
lead=$(aim_lead)
echo "at rest, 400 px right aims $lead units ahead"
[ "$lead" -gt 60 ] || fail "400 px of cursor aims only $lead units to the right"
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
shot="$work/screenshots/screenshot0000.png"
wait_for_file "$shot"
# Written in pieces under load: wait until the size settles.
size=-1
while [ "$size" != "$(stat -c %s "$shot")" ]; do size=$(stat -c %s "$shot"); sleep 1; done
# The crosshair: white pixels in a small box around the cursor.
cross=$(cd "$(dirname "$0")" && /usr/bin/python3 -c '
import sys
from png_rows import read_png
path, cx, cy = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
w, h, ch, rows = read_png(path)
n = 0
for y in range(max(0, cy - 16), min(h, cy + 17)):
    row = rows[y]
    for x in range(max(0, cx - 16), min(w, cx + 17)):
        r, g, b = row[x * ch], row[x * ch + 1], row[x * ch + 2]
        n += r > 230 and g > 230 and b > 230
print(n)' "$shot" "$((WIDTH / 2 + 400))" "$((HEIGHT / 2))")
echo "crosshair pixels near the cursor: $cross"
[ "$cross" -ge 20 ] || fail "no crosshair at the cursor ($cross white pixels)"
[ -z "${BQ_SHOTS:-}" ] || cp "$shot" "$BQ_SHOTS/aim.png"

# Run right with the cursor to the right, aiming and firing as we go.
xdotool key --window "$win" 2
sleep 0.3
xdotool keydown --window "$win" d
sleep 0.6
lead=$(aim_lead)
echo "running, the aim leads by $lead units"
[ "$lead" -gt 60 ] || fail "running right, the aim is $lead units from the player"
xdotool mousedown 1
sleep 2.5
xdotool mouseup 1
xdotool keyup --window "$win" d
sleep 0.3
stop_game
grep -q "^Target .* destroyed" "$log" || fail "shots fired while running right destroyed no target"
echo "aim ok: lead $lead units while running, crosshair drawn ($cross pixels)"
