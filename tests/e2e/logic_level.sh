#!/usr/bin/env bash
# The logic yard under real keys: the switch opens the gate, the battery
# pushed into its slot drops the force field, the fuse blows the barrel row,
# the teleporter lifts the player to the upper deck and the exit plays the
# closing cut scene, noting the level time in leveltimes.txt. Console warps
# (bound to keys) skip the walks between the stations.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
set recordleveltimes 1
bind k playerinfo
bind o screenshot
bind 6 warpto battery_start
bind 7 warpto fuse_point
bind 8 warpto teleporter
bind 9 warpto upper_arrival
SCRIPT

# On the command line the level loads after the particle definitions. God
# mode: a player standing at the fuse when the barrels go off dies, and this
# test is about the logic, not footwork.
start_game "$work" +map logic +god
focus_game_window
wid=$win
sleep 1
xdotool key --window "$wid" Escape
sleep 1.5

info() { player_info "$work" "$wid"; }
above() { awk -v a="$1" -v b="$2" 'BEGIN { exit !(a > b) }'; }
hold() { xdotool keydown --window "$wid" "$1"; sleep "$2"; xdotool keyup --window "$wid" "$1"; sleep 0.3; }

read -r x y _ level <<<"$(info)"
[ "$level" = "logic" ] || fail "the logic level did not load (level '$level')"

# The switch at x 360 opens the gate at x 560; walking on passes it.
hold d 4
xdotool key --window "$wid" o
read -r x y _ <<<"$(info)"
above "$x" 580 || fail "the gate did not let the player through (x $x)"

# Push the battery into its slot; the field behind it goes down.
xdotool key --window "$wid" 6
sleep 0.5
hold d 5
read -r x y _ <<<"$(info)"
above "$x" 1070 || fail "the force field still blocks the way (x $x)"

# The fuse sets off the barrel row; then the tunnel is clear.
xdotool key --window "$wid" 7
sleep 0.3
hold d 0.4
sleep 1.5
hold d 2.5
read -r x y _ <<<"$(info)"
above "$x" 2300 || fail "the barrel row still blocks the tunnel (x $x)"

# The teleporter puts the player on the upper deck.
xdotool key --window "$wid" 8
sleep 1
read -r x y _ <<<"$(info)"
xdotool key --window "$wid" o
above "$y" 200 || fail "the teleporter did not lift the player to the deck (y $y)"

# Walk east along the deck into the exit: it plays the adventure's closing
# cut scene, which stops the world and takes the input.
hold d 7
wait_for_log "$work" "Read cutscene file sucessfully: data/adventures/brindlequay/gates.xml" 15
grep -q "Could not load cutscene file" "$log" && fail "the closing cut scene did not load"
stop_game

ls "$work"/screenshots/* >/dev/null 2>&1 || fail "no screenshots"
[ -s "$work/leveltimes.txt" ] || fail "no leveltimes.txt"
grep -Eq '^logic : .* : [0-9]+ : Cash: [0-9]+$' "$work/leveltimes.txt" || fail "no level time line for logic"
grep -q "Defaulting to Body for:" "$log" && fail "a type of the logic level fell back to a plain Body"
grep -q "Could not load wave file" "$log" && fail "the wave file did not load"
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
echo "logic_level ok"
