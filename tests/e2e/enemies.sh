#!/usr/bin/env bash
# The enemy arena under real keys and the mouse: in god mode the player warps
# from room to room and holds the chaingun's trigger towards the enemies.
# The log must show enemies attacking, enemies dying and cash dropping, and no
# missing media; a screenshot taken mid-fight in the second room must show
# the bright colours of enemies, shots and effects.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind p screenshot
bind u warpto room1
bind i warpto room2
bind o warpto room3
bind y warpto room4
bind t warpto room5
bind g god
SCRIPT

start_game "$work" +map enemies +giveall
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1
xdotool key --window "$win" g
sleep 0.3
eval "$(xdotool getwindowgeometry --shell "$win")"

xdotool key --window "$win" 5
sleep 0.3
# Each room: warp in, then bursts to the right, a little up and down.
for key in u i o y t; do
  for burst in 0 -60 40 0; do
    xdotool key --window "$win" "$key"
    sleep 0.2
    aim_cursor 300 "$burst"
    xdotool mousedown 1
    sleep 1.2
    if [ "$key" = i ] && [ "$burst" = -60 ]; then
      xdotool key --window "$win" p
      wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 30
    fi
    xdotool mouseup 1
  done
done
sleep 0.5
stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
check_no_missing_media
attacks=$(grep -c "^Enemy .* attacks$" "$log" || true)
deaths=$(grep -c "^Enemy .* died, dropping" "$log" || true)
paid=$(grep -c "^Enemy .* died, dropping [1-9]" "$log" || true)
echo "enemies attacking: $attacks, killed: $deaths, dropping cash: $paid"
[ "$attacks" -ge 3 ] || fail "enemies did not shoot back ($attacks)"
[ "$deaths" -ge 3 ] || fail "too few enemies died ($deaths)"
[ "$paid" -ge 1 ] || fail "no enemy dropped cash"
shot="$work/screenshots/screenshot0000.png"
[ -s "$shot" ] || fail "no screenshot"
# Enemy sprites, tracers, plasma and fire: saturated colours over the arena's
# greys.
bright=$(/usr/bin/python3 "$(dirname "$0")/png_rows.py" "$shot" 'max(r, g, b) - min(r, g, b) > 110')
[ "$bright" -gt 500 ] || fail "the fight is not on the screenshot ($bright saturated pixels)"
[ -z "${BQ_SHOTS:-}" ] || cp "$shot" "$BQ_SHOTS/enemies.png"
echo "enemies ok: $attacks attacking, $deaths killed, $paid paying, $bright saturated pixels"
