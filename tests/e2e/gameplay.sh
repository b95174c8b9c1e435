#!/usr/bin/env bash
# The player under real keys on the test level: holding a movement key moves
# it, the jump key lifts it in platform mode, and "kill" restarts the level two
# seconds later with the player back at the start. Positions come from
# "playerinfo", bound to a key, which writes playerinfo.txt.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k playerinfo
bind j kill
map test
SCRIPT

start_game "$work"
focus_game_window
sleep 1
# Escape skips the logo card; the level has the keys.
xdotool key --window "$win" Escape
sleep 1.5

# pos x, pos y and the level time from playerinfo.txt, after pressing k.
info() { player_info "$work" "$win"; }
above() { awk -v a="$1" -v b="$2" 'BEGIN { exit !(a > b) }'; }

read -r x0 y0 _ <<<"$(info)"
xdotool keydown --window "$win" d
sleep 1.2
xdotool keyup --window "$win" d
sleep 0.3
read -r x1 y1 _ <<<"$(info)"
above "$x1" "$(awk -v x="$x0" 'BEGIN { print x + 30 }')" || fail "holding d moved the player from x $x0 to $x1"

# Settle, then jump: a moment into the jump the player is well above the floor.
sleep 1
read -r _ yFloor _ <<<"$(info)"
xdotool keydown --window "$win" w
sleep 0.4
read -r _ yJump _ <<<"$(info)"
xdotool keyup --window "$win" w
above "$yJump" "$(awk -v y="$yFloor" 'BEGIN { print y + 6 }')" || fail "jumping lifted the player from y $yFloor only to $yJump"

# Death and restart: two seconds later the level starts again at the start point.
sleep 2
read -r _ _ tBefore _ <<<"$(info)"
xdotool key --window "$win" j
sleep 3.5
read -r xR yR tAfter _ <<<"$(info)"
above "$tBefore" "$tAfter" || fail "the level clock did not restart ($tBefore then $tAfter)"
awk -v x="$xR" -v x0="$x0" 'BEGIN { d = x - x0; exit !(d < 4 && d > -4) }' || fail "restarted at x $xR, not at the start ($x0)"
stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
# The level named in autoexec.txt waits for the effects to be loaded.
grep -q "Couldn't find particle def" "$log" && fail "the level started effects before their definitions were loaded"
echo "gameplay ok: walked $x0 -> $x1, jumped $yFloor -> $yJump, restarted at $xR"
