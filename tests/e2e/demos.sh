#!/usr/bin/env bash
# Demos with the real game: real keys and mouse are recorded to a demo that
# then replays identically, drawn flat out (timedemo) and in real time; a
# broken demo file is refused with a message and play goes on; the shipped
# demos replay bit for bit in this build and print the step times.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind k playerinfo
bind o recorddemo e2e test
bind p stopdemo
bind t timedemo e2e
bind y playdemo e2e
bind b playdemo broken
SCRIPT
printf 'brindlequay demo 1\nlevel test\nsteps 9000\nc 4 +moveright\n' > "$work/demos/broken.dem"

start_game "$work" +map test
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 0.5

xdotool key --window "$win" o
wait_for_log "$work" "^Recording demo demos/e2e.dem on level test$" 10
# Run, jump, fire and turn: the keys go through the bindings into the demo.
xdotool keydown --window "$win" d
sleep 0.8
xdotool key --window "$win" space
xdotool click --window "$win" 1
sleep 0.6
xdotool keyup --window "$win" d
xdotool keydown --window "$win" a
xdotool mousemove_relative --sync -- -40 -30
xdotool click --window "$win" 1
sleep 0.5
xdotool keyup --window "$win" a
sleep 0.5
xdotool key --window "$win" p
wait_for_log "$work" "^Recorded demo demos/e2e.dem: [0-9]* steps" 10
steps=$(sed -n 's/^Recorded demo demos\/e2e.dem: \([0-9]*\) steps.*/\1/p' "$log" | tail -n 1)
[ "$steps" -ge 60 ] || fail "only $steps steps recorded"
grep -q '^c [0-9]* +moveright$' "$work/demos/e2e.dem" || fail "the key press was not recorded"
grep -q '^c [0-9]* +attack$' "$work/demos/e2e.dem" || fail "the mouse button was not recorded"
grep -q '^c [0-9]* +moveup$' "$work/demos/e2e.dem" || fail "the jump was not recorded"

xdotool key --window "$win" t
wait_for_log "$work" "^Demo e2e played: $steps steps, all [0-9]* world hashes matched$" 60
wait_for_log "$work" "^timedemo e2e: $steps steps in .* fps (drawing on)$" 10
grep -q "^  drawing " "$log" || fail "no drawing line in the timed run"

xdotool key --window "$win" y
wait_for_log "$work" "^Playing demo demos/e2e.dem: level test, $steps steps$" 10
# Keys pressed during a playback must not steer it; a screenshot still works.
xdotool keydown --window "$win" a
sleep 0.4
xdotool keyup --window "$win" a
xdotool key --window "$win" F12
wait_for_file "$work/screenshots/screenshot0000.png" 10
for _ in $(seq 600); do
  [ "$(grep -c "^Demo e2e played: $steps steps, all" "$log")" -ge 2 ] && break
  sleep 0.1
done
[ "$(grep -c "^Demo e2e played: $steps steps, all" "$log")" -ge 2 ] || fail "real-time playback did not match"

xdotool key --window "$win" b
wait_for_log "$work" "^Bad demo file demos/broken.dem: line 4: the file ends before its \"end\" line" 10
kill -0 "$GAME_PID" || fail "the game stopped on a broken demo"
read -r _ _ _ level <<<"$(player_info "$work" "$win")"
[ "$level" = test ] || fail "the level changed after a broken demo: $level"
stop_game
[ -f "$work/demos/e2e.dem" ] || fail "no demo file"

# The shipped demos in this build, flat out without drawing.
rm -f "$log"
start_game "$work" +set skiplogo 1 +timedemo test nodraw +timedemo weapons nodraw +timedemo pickups nodraw \
  +timedemo logic nodraw +timedemo enemies nodraw
for level in test weapons pickups logic enemies; do
  wait_for_log "$work" "^Demo $level played: [0-9]* steps, all [0-9]* world hashes matched$" 240
done
grep -q "^timedemo test: .* (drawing off)$" "$log" || fail "no timed figures"
grep "^timedemo \|world step + particles " "$log"
stop_game
