#!/usr/bin/env bash
# The boss wing played for real in god mode: the player is warped into each
# room, fires at what is there with the left mouse button and takes a
# screenshot per room. The log must show the wing loaded without missing
# media or unknown types, eggs hatching in the bio lab, mines going off, the
# server objectives blown up and the block boss cycling its damage states.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

write_autoexec <<'SCRIPT'
bind p screenshot
bind l playerinfo
bind u warpto hazards
bind i warpto biolab
bind o warpto minefield
bind y warpto servers
bind h warpto blockboss
bind n warpto destroyer
bind m warpto exit
SCRIPT

start_game "$work" +map enemies +god +giveall
focus_game_window
sleep 1
xdotool key --window "$win" Escape
sleep 1.5
wait_for_log "$work" "maps/enemies.xml" 90
eval "$(xdotool getwindowgeometry --shell "$win")"

# Presses the warp key `key` until playerinfo puts the player between x0 and
# x1 (a key press can be lost while the game crawls under load).
warp() {
  local key=$1 x0=$2 x1=$3 try x
  for try in 1 2 3 4; do
    xdotool key --window "$win" "$key"
    sleep 1
    x=$(player_info "$work" "$win" l | awk '{ printf "%d", $1 }')
    [ "$x" -ge "$x0" ] && [ "$x" -le "$x1" ] && return 0
  done
  fail "warp $key left the player at x $x, not within $x0..$x1"
}

# Holds the fire button for `seconds`.
fire() {
  xdotool mousedown 1
  sleep "$1"
  xdotool mouseup 1
}

shots=0
# A screenshot of the room; a key press lost under load gets more tries.
shoot_room() {
  local before try name
  before=$(grep -c "^Writing screenshot" "$log" || true)
  for try in 1 2 3 4 5; do
    xdotool key --window "$win" p
    for _ in $(seq 80); do
      [ "$(grep -c "^Writing screenshot" "$log" || true)" -gt "$before" ] && break 2
      sleep 0.1
    done
  done
  name=$(grep "^Writing screenshot" "$log" | tail -n 1 | sed 's/^Writing screenshot to //')
  [ -n "$name" ] && [ "$(grep -c "^Writing screenshot" "$log")" -gt "$before" ] || fail "no screenshot of $1"
  wait_for_file "$work/$name" 10
  # Written in pieces under load: wait until the size settles.
  local size=-1
  while [ "$size" != "$(stat -c %s "$work/$name")" ]; do size=$(stat -c %s "$work/$name"); sleep 1; done
  [ -z "${BQ_SHOTS:-}" ] || cp "$work/$name" "$BQ_SHOTS/bosswing_$1.png"
  shots=$((shots + 1))
}

# Electric hall: the grids and the tower, then the lightning gun on them.
warp u 5600 5800
sleep 1
shoot_room hazards
xdotool key --window "$win" 9
aim_cursor 200 0
fire 1

# Bio lab: the eggs crack as the player stands near; the shotgun (no blast to
# throw the player out of the room) on the bacteria.
warp i 6650 6950
sleep 0.5
shoot_room biolab
xdotool key --window "$win" 4
aim_cursor 250 -40
fire 1.5
wait_for_log "$work" "^Egg .* hatched 5 swarmers" 20

# Mine field: the nearest mine feels the player; grenades for the rest.
warp o 7600 7900
sleep 0.5
shoot_room minefield
xdotool key --window "$win" 6
aim_cursor 150 -30
fire 1
wait_for_log "$work" "^Proximity mine .* exploded" 15

# Server room: rockets into the hard drive (and the engineer mending it).
warp y 8200 8400
sleep 0.5
shoot_room servers
xdotool key --window "$win" 7
# Blasts can throw the player back out of the room: back in and again.
for attempt in 1 2 3; do
  aim_cursor 300 0
  fire 4
  grep -q "^Objective drive destroyed" "$log" && break
  warp y 8200 8400
done
wait_for_log "$work" "^Objective drive destroyed" 10

# Block boss arena and the destroyer hall.
warp h 9040 10240
sleep 1.5
shoot_room blockboss
wait_for_log "$work" "^Block boss damage state 1" 20
warp n 10240 11440
sleep 1.5
shoot_room destroyer
aim_cursor 200 -40
fire 1

sleep 0.5
stop_game
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"
check_no_missing_media
if grep -E "Defaulting to Body|missing particle|Couldn't find particle|no definition" "$log"; then
  fail "unknown types or particle definitions in the wing"
fi
[ "$shots" -eq 6 ] || fail "$shots room screenshots"
echo "bosswing ok: $shots rooms shot; $(grep -c '^Egg .* hatched' "$log") eggs hatched," \
  "$(grep -c '^Proximity mine' "$log") mines, $(grep -c '^Objective' "$log") objectives destroyed"
