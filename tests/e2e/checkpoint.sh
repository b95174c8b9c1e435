#!/usr/bin/env bash
# Checkpoints in the logic yard: dying before any checkpoint restarts the
# level at its start; after touching the checkpoint (x 1128), dying brings
# the player back there, with the death and the way back on screen.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k playerinfo
bind j warpto checkpoint
bind h warpto battery_start
bind l warpto fuse_point
bind u kill
bind p screenshot
SCRIPT

start_game "$work" +map logic
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1.5

x_of() { player_info "$work" "$win" k | awk '{ printf "%d", $1 }'; }

# Away from the start (x 656) and die: the level starts over.
xdotool key --window "$win" h
sleep 0.5
xdotool key --window "$win" u
sleep 3
x=$(x_of)
echo "no checkpoint yet: back at x $x"
[ "$x" -lt 200 ] || fail "without a checkpoint death left the player at x $x, not the start"

# Touch the checkpoint, go on to x 2166, die.
xdotool key --window "$win" j
wait_for_log "$work" "^Saving save game: saves/temp.xml" 10
sleep 0.5
xdotool key --window "$win" l
sleep 0.5
away=$(x_of)
xdotool key --window "$win" u
sleep 0.4
xdotool key --window "$win" p
wait_for_log "$work" "Writing screenshot to screenshots/screenshot0000.png" 10
# However slowly the machine runs, the way back is the checkpoint's save.
wait_for_log "$work" "^Loading save game: saves/temp.xml" 20
sleep 0.5
x=$(x_of)
echo "went on to x $away, died, back at x $x"
[ "$away" -gt 2000 ] || fail "the warp on left the player at x $away"
[ "$x" -gt 1080 ] && [ "$x" -lt 1180 ] || fail "after the checkpoint death left the player at x $x"
grep -q "^Loading save game: saves/temp.xml" "$log" || fail "the checkpoint's save was not loaded"
stop_game
shot="$work/screenshots/screenshot0000.png"
wait_for_file "$shot"
[ -z "${BQ_SHOTS:-}" ] || cp "$shot" "$BQ_SHOTS/checkpoint_death.png"
echo "checkpoint ok"
