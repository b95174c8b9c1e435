#!/usr/bin/env bash
# "+map test" loads the hand-made test level at start-up into an indexed,
# colliding world; with load_leveldebug 1 every body is dumped to the log.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
start_game "$work" +set load_leveldebug 1 +map test
wait_for_log "$work" "^=====================$"
sleep 2
stop_game

dump=$(awk '/^=====================$/ { n++; next } n == 1' "$log")
[ -n "$dump" ] || fail "no level dump between the rule lines"
expected=$(grep -c '<P ' "$game_dir/maps/test.xml")
bodies=$(grep -c ' type: ' <<<"$dump")
[ "$bodies" -eq "$expected" ] || fail "dump lists $bodies bodies, the level has $expected"
grep -q "Defaulting to Body for:" "$log" && fail "a type of the test level fell back to a plain Body"
grep -q "insertion failed at" "$log" && fail "a body of the test level is outside the quadtree"
grep -q "Skipping body" "$log" && fail "a body of the test level was skipped"
for t in spawnpoint door switch water debugmoveable; do
  grep -q " type: $t " <<<"$dump" || fail "no body of type $t in the dump"
done
# The switch is linked to both gates, which share one id.
grep " id: gate_switch " <<<"$dump" | grep -q "target pointers: gate, gate, " || fail "switch not linked to both gates"
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
echo "map_test ok: $bodies bodies"
