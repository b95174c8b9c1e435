#!/usr/bin/env bash
# Saving and deleting from the menus alone, with real clicks at 640x480 and
# 1920x1080: the level clock stands still while the menus or the console are
# up; Save Game writes a named save (asking before writing over it) and shows
# its picture; Load Game lists it at the top and loads it; Delete asks, then
# removes it. Movie frames are kept as shots/<screen>_<width>.png
# (BQ_KEEP_E2E=1 keeps them).
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"

at() { xdotool mousemove --window "$win" "$1" "$2"; sleep 0.2; }
click() { at "$1" "$2"; xdotool click 1; sleep 0.4; }
# Menu frames are centred in the band between the logo (150 px) and the task
# bar (44 px), or in the window when taller than that band.
frame_left() { menu_frame_left "$W" "$1"; }
frame_top() { menu_frame_top "$H" "$1"; }
# Centre of a widget at (rx, ry, w, h) in the 610 x 286 save screens.
widget() { echo $(($(frame_left 610) + $1 + $3 / 2)) $(($(frame_top 286) + $2 + $4 / 2)); }
main_menu_load() { echo $(($(frame_left 240) + 120)) $(($(frame_top 220) + 88 + 16)); }
# Over a level the task bar holds four buttons: Main Menu, Save Game,
# Options, Resume Game.
taskbar() { echo $(((W - 550) / 2 + $1 * 140 + 65)) $((H - 22)); }
level_time() { player_info "$work" "$win" | cut -d' ' -f3; }
# How far the level clock moves (ms) while the menus or the console stay up
# for $2 seconds.
behind() {
  local before after
  before=$(level_time)
  if [ "$1" = menus ]; then
    keys Escape; sleep "$2"; click $(taskbar 3)
  else
    keys grave; sleep "$2"; keys grave
  fi
  after=$(level_time)
  awk -v a="$before" -v b="$after" 'BEGIN { print int(b - a) }'
}

run_flow() {
  W=$1 H=$2
  export BQ_XVFB_SCREEN=${W}x${H}x24
  work=$(make_game_copy "$game_dir")
  shots=${E2E_SHOTS:-$work/shots}
  start_game "$work" +set skiplogo 1 +set firstrun 0 +set vidfullscreen 0 +set vidwidth "$W" +set vidheight "$H" \
    +bind k playerinfo +map test +movierecord 8
  wait_for_log "$work" "REND New Res" 30
  focus_game_window
  sleep 1.5
  xdotool keydown d; sleep 0.6; xdotool keyup d

  # The clock runs in play, and stands still behind the menus and the
  # console: holding them up 6 s longer adds nothing to it, where in play it
  # would add 6 s at the rate the clock ran. (A big software-drawn window
  # runs too slowly for the difference to stand out.)
  if [ "$W" -le 1000 ]; then
    local t0 t1 rate short long
    t0=$(level_time); sleep 2; t1=$(level_time)
    rate=$(awk -v a="$t0" -v b="$t1" 'BEGIN { print (b - a) / 2000 }')
    awk -v r="$rate" 'BEGIN { exit !(r > 0.2) }' || fail "the level clock did not run in play ($t0 -> $t1)"
    for what in menus console; do
      short=$(behind $what 0.5)
      long=$(behind $what 6.5)
      echo "level clock behind the $what at ${W}x${H}: $short ms over 0.5 s, $long ms over 6.5 s (play rate $rate)"
      awk -v d=$((long - short)) -v r="$rate" 'BEGIN { exit !(d < 3000 * r) }' ||
        fail "the world ran behind the $what ($short ms, then $long ms)"
    done
  fi
  keys Escape
  wait_for_log "$work" "Show GUI" 10
  snap menus_over_level
  click $(taskbar 3)

  # An older save for the list: the quick save key.
  keys F5
  wait_for_log "$work" "^Saving save game: saves/quicksave.xml$" 10
  sleep 1.2

  # Save Game: a name with a space, then Save.
  keys Escape
  click $(taskbar 1)
  snap savegame
  click $(widget 65 250 184 26)
  keys End BackSpace BackSpace BackSpace BackSpace BackSpace m e n u space r u n
  click $(widget 257 248 72 30)
  wait_for_log "$work" "^Saving save game: saves/menu run.xml$" 10
  wait_for_file "$work/saves/menu run.png" 10
  snap saved
  # Again: asked first; Yes writes it once more.
  click $(widget 257 248 72 30)
  snap overwrite
  [ "$(grep -c '^Saving save game: saves/menu run.xml$' "$work/outputlog.txt")" = 1 ] ||
    fail "a taken name was written over without asking"
  click $(widget 250 168 90 28)
  for _ in $(seq 50); do
    [ "$(grep -c '^Saving save game: saves/menu run.xml$' "$work/outputlog.txt")" = 2 ] && break
    sleep 0.1
  done
  [ "$(grep -c '^Saving save game: saves/menu run.xml$' "$work/outputlog.txt")" = 2 ] || fail "Yes did not save"
  grep -q 'title="Test"' "$work/saves/menu run.xml" || fail "the save does not name its level's title"

  # Load Game from the main menu: the newest save is at the top.
  click $(taskbar 0)
  click $(main_menu_load)
  snap loadgame
  click $(widget 15 54 294 20)
  snap loadgame_selected
  click $(widget 105 248 107 30)
  wait_for_log "$work" "^Loading save game: saves/menu run.xml$" 10
  sleep 1

  # Delete: No keeps it, Yes removes it and the list says it is empty.
  keys Escape
  click $(taskbar 0)
  click $(main_menu_load)
  click $(widget 15 54 294 20)
  click $(widget 222 248 107 30)
  snap delete_confirm
  click $(widget 360 168 90 28)
  [ -f "$work/saves/menu run.xml" ] || fail "No deleted the save"
  click $(widget 222 248 107 30)
  click $(widget 250 168 90 28)
  wait_for_log "$work" "^Deleted save game: saves/menu run.xml$" 10
  [ ! -e "$work/saves/menu run.xml" ] && [ ! -e "$work/saves/menu run.png" ] || fail "the save is still there"
  snap deleted
  check_no_missing_media
  stop_game
  kill "$XVFB_PID" 2>/dev/null || true
  [ -n "${BQ_KEEP_E2E:-}" ] || rm -rf "$work"
}

run_flow 640 480
run_flow 1920 1080
echo "save menu ok"
