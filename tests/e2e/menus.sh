#!/usr/bin/env bash
# The menus under a real X server with real clicks, at 640x480 and at
# 1920x1080: logo card -> main menu -> New Game -> a typed save name ->
# Begin! -> the opening cut scene's pages -> play -> Escape -> Options ->
# Controls -> a key rebound -> back -> Load Game -> the save selected (with
# its thumbnail) -> loaded. Movie frames are kept as shots/<screen>.png for
# review (BQ_KEEP_E2E=1 keeps them). The load steps need save games; while
# the game writes none they are reported and skipped.
set -euo pipefail
game_dir=$1
source "$(dirname "$0")/lib.bash"
log() { cat "$work/outputlog.txt"; }

at() { xdotool mousemove --window "$win" "$1" "$2"; sleep 0.2; }
click() { at "$1" "$2"; xdotool click 1; sleep 0.35; }

# Where the screens stand: each menu frame is centred between the logo band
# (150 px) and the task bar (44 px), or in the window when it is taller.
frame_left() { menu_frame_left "$W" "$1"; }
frame_top() { menu_frame_top "$H" "$1"; }
# Centre of a widget at (rx, ry, w, h) inside a frame of width fw, height fh.
widget() { echo $(($(frame_left "$1") + $3 + $5 / 2)) $(($(frame_top "$2") + $4 + $6 / 2)); }
# Over a level the bar holds Main Menu, Save Game, Options, Resume Game.
taskbar() { echo $(((W - 550) / 2 + $1 * 140 + 65)) $((H - 22)); }
# The cut scene's page turners sit under the page, which scales to the window.
page_button() {
  awk -v W="$W" -v H="$H" -v which="$1" 'BEGIN {
    s = (W - 40) / 640; t = (H - 90) / 400; if (t < s) s = t; if (s < 0.5) s = 0.5
    ph = 400 * s; gap = (H - 70 - ph) / 2; if (gap < 0) gap = 0
    top = int(H - gap); ctl = int(top - ph - 15)
    x = which == "next" ? W / 2 + 110 : W / 2 - 110
    printf "%d %d\n", x, H - ctl + 20 }'
}

run_flow() {
  W=$1 H=$2 logo=$3
  export BQ_XVFB_SCREEN=${W}x${H}x24
  work=$(make_game_copy "$game_dir")
  shots=${E2E_SHOTS:-$work/shots}
  local skip=(+set skiplogo 1)
  [ "$logo" = logo ] && skip=()
  start_game "$work" "${skip[@]}" +set firstrun 0 +set vidfullscreen 0 +set vidwidth "$W" +set vidheight "$H" \
    +movierecord 8
  wait_for_log "$work" "REND New Res" 30
  focus_game_window
  if [ "$logo" = logo ]; then
    sleep 2.5
    snap logo
    sleep 5
  else
    sleep 1.5
  fi
  snap mainmenu

  # New Game opens "Choose Adventure" with the shipped adventure selected.
  click $(widget 240 220 20 46 200 32)
  snap newgame
  # A fresh save name: the default is replaced by typing.
  click $(widget 470 364 150 248 170 26)
  keys End BackSpace BackSpace BackSpace BackSpace BackSpace r u n 1
  snap savename
  click $(widget 470 364 335 246 120 30)
  wait_for_log "$work" "Read cutscene file sucessfully: data/adventures/brindlequay/intro.xml" 20
  grep -q "Could not load level file" "$work/outputlog.txt" && fail "the start level did not load"
  snap cutscene1
  click $(page_button next)
  snap cutscene2
  click $(page_button prev)
  click $(page_button next)
  click $(page_button next)
  snap cutscene3
  click $(page_button next)
  sleep 0.5
  # Playing: walk right for a moment.
  xdotool keydown d; sleep 0.8; xdotool keyup d
  snap play

  # Escape opens the menus over the stopped game; Options from the task bar.
  keys Escape
  wait_for_log "$work" "Show GUI" 10
  snap escape
  click $(taskbar 2)
  snap options
  click $(widget 240 264 20 130 200 32)
  snap controls
  # Rebind "Left" (the first row) to j.
  click $(widget 610 410 180 104 160 24)
  snap controls_armed
  keys j
  snap controls_bound
  # Back: the frame's close button.
  click $(($(frame_left 610) + 610 - 12)) $(($(frame_top 410) + 15))

  # Main Menu from the task bar, then Load Game.
  click $(taskbar 0)
  click $(widget 240 220 20 88 200 32)
  snap loadgame
  if [ -f "$work/saves/run1.xml" ]; then
    click $(widget 610 286 15 54 294 20)
    snap loadgame_selected
    click $(widget 610 286 105 248 107 30)
    wait_for_log "$work" "Loading save game: saves/run1.xml" 20
    sleep 1
    snap loaded
    # Back to the menus over the loaded game.
    keys Escape
    sleep 0.5
  else
    echo "no save game was written (saves not in this build): load steps skipped"
  fi
  if [ "$W" = 1920 ]; then
    # Video: one mode down (a right click steps back) and Apply; the menus
    # come back whole at the new size and still answer clicks.
    click $(taskbar 2)
    click $(widget 240 264 20 46 200 32)
    snap video
    at $(widget 330 240 140 44 170 26); xdotool click 3; sleep 0.3
    click $(widget 330 240 105 196 120 30)
    wait_for_log "$work" "New Vid Mode: " 10
    read -r W H < <(grep "New Vid Mode: " "$work/outputlog.txt" | tail -n 1 | awk '{ print $4, $6 }')
    [ "$W" -lt 1920 ] || fail "the resolution box did not step back: ${W}x${H}"
    sleep 1
    snap video_applied
    click $(taskbar 0)
    snap video_mainmenu
  fi
  check_no_missing_media
  stop_game
  grep -q -x "bind j +moveleft" "$work/data/config.txt" || fail "the rebound key was not kept"
  kill "$XVFB_PID" 2>/dev/null || true
  [ -n "${BQ_KEEP_E2E:-}" ] || rm -rf "$work"
}

run_flow 640 480 logo
run_flow 1920 1080 nologo
echo "menus ok"
