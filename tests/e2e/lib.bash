# Helpers for end-to-end tests: run the game from a private copy of the game
# directory under its own Xvfb server, so tests never touch build/game's files.

fail() { echo "FAIL: $*" >&2; [ -n "${work:-}" ] && [ -f "$work/outputlog.txt" ] && tail -n 40 "$work/outputlog.txt" >&2; exit 1; }

make_game_copy() {
  local src=$1 dst
  dst=$(mktemp -d /tmp/bq-e2e.XXXXXX)
  cp -r "$src"/. "$dst"/
  rm -f "$dst/outputlog.txt" "$dst/data/config.txt"
  rm -rf "$dst/saves" "$dst/screenshots"
  echo "$dst"
}

# The start most tests make: game_dir from the first argument, a private
# copy of it in work, and its log in log.
use_game_copy() {
  game_dir=$1
  work=$(make_game_copy "$game_dir")
  log="$work/outputlog.txt"
}

# Writes the copy's data/autoexec.txt from standard input, after the platform
# movement and plain mouse speed the tests walk and aim with.
write_autoexec() {
  { printf 'set movemode 2\nset sensitivity 1\n'; cat; } > "$work/data/autoexec.txt"
}

# Sound through SDL's disk driver (start the game with E2E_AUDIODRIVER=disk):
# the mixed stream goes to $stream in real time, so `mark NAME` notes where in
# it a step happened; disk_stream.py reads both back.
use_disk_audio() {
  stream="$work/mixed.raw"
  export SDL_DISKAUDIOFILE="$stream"
  marks=()
}
mark() { marks+=("$1:$(stat -c %s "$stream")"); }

# Whether X display :N is free. A lock left by a server that was killed
# outright names a process that is gone: Xvfb takes such a display over.
display_free() {
  local lock=/tmp/.X$1-lock pid
  if [ -e "$lock" ]; then
    pid=$(tr -d ' ' <"$lock" 2>/dev/null) || return 0
    [ ! -d "/proc/$pid" ]
  else
    [ ! -e "/tmp/.X11-unix/X$1" ]
  fi
}

# Starts Xvfb on a free display, then the game in the background; sets GAME_PID.
# Sound goes to SDL's dummy driver unless E2E_AUDIODRIVER names another.
start_game() {
  local dir=$1; shift
  local n up=
  # A test that starts the game twice gets a fresh server the second time.
  [ -z "${XVFB_PID:-}" ] || kill "$XVFB_PID" 2>/dev/null || true
  E2E_DIR=$dir
  trap 'stop_game; kill $XVFB_PID 2>/dev/null || true; [ -n "${BQ_KEEP_E2E:-}" ] || rm -rf "$E2E_DIR"' EXIT
  # Other tests start servers at the same time: one that took the display
  # first makes ours give up, and the next free display is tried.
  for n in $(seq 90 140); do
    display_free "$n" || continue
    export DISPLAY=:$n
    Xvfb "$DISPLAY" -screen 0 "${BQ_XVFB_SCREEN:-1024x768x24}" -nolisten tcp >/dev/null 2>&1 &
    XVFB_PID=$!
    for _ in $(seq 50); do
      kill -0 "$XVFB_PID" 2>/dev/null || break
      xdpyinfo -display "$DISPLAY" >/dev/null 2>&1 && { up=1; break; }
      sleep 0.1
    done
    [ -n "$up" ] && kill -0 "$XVFB_PID" 2>/dev/null && break
    kill "$XVFB_PID" 2>/dev/null || true
    up=
  done
  [ -n "$up" ] || fail "no X display could be started"
  (cd "$dir" && SDL_AUDIODRIVER="${E2E_AUDIODRIVER:-dummy}" exec ./brindlequay "$@" >/dev/null 2>"$dir/stderr.txt") &
  GAME_PID=$!
}

# Asks the game to quit with SIGTERM and waits for it.
stop_game() {
  if [ -n "${GAME_PID:-}" ] && kill -0 "$GAME_PID" 2>/dev/null; then
    kill -TERM "$GAME_PID"
    for _ in $(seq 100); do kill -0 "$GAME_PID" 2>/dev/null || break; sleep 0.1; done
    kill -0 "$GAME_PID" 2>/dev/null && { kill -KILL "$GAME_PID"; fail "game did not stop on SIGTERM"; }
    wait "$GAME_PID" 2>/dev/null || true
  fi
  GAME_PID=
}

# Finds the game window, gives it the keyboard and sets `win`.
focus_game_window() {
  win=$(xdotool search --sync --name Brindlequay | head -n 1) || fail "no game window"
  xdotool windowactivate --sync "$win" >/dev/null 2>&1 || xdotool windowfocus "$win" || true
}

# Types a line into the open console of the window `win` and runs it.
type_line() {
  xdotool type --window "$win" --delay 30 "$1"
  xdotool key --window "$win" Return
}

# Waits until the log contains a line matching the pattern.
wait_for_log() {
  local dir=$1 pattern=$2 timeout=${3:-20}
  for _ in $(seq $((timeout * 10))); do
    grep -q -- "$pattern" "$dir/outputlog.txt" 2>/dev/null && return 0
    sleep 0.1
  done
  fail "timed out waiting for '$pattern' in the log"
}

# Waits until a file exists in the game directory; a PNG, until it is
# written to its end (a loaded machine writes a big one for a while).
wait_for_file() {
  local path=$1 timeout=${2:-20}
  for _ in $(seq $((timeout * 10))); do
    if [ -s "$path" ]; then
      [[ $path != *.png ]] && return 0
      [ "$(tail -c 8 "$path" | head -c 4)" = IEND ] && return 0
    fi
    sleep 0.1
  done
  fail "timed out waiting for $path"
}

# Presses `key` in the game window and prints the first new log line that
# starts with `prefix` (commands such as listinventory print one).
log_line_after_key() {
  local key=$1 prefix=$2 before
  before=$(grep -c "^$prefix" "$work/outputlog.txt" || true)
  xdotool key --window "$win" "$key"
  for _ in $(seq 30); do
    [ "$(grep -c "^$prefix" "$work/outputlog.txt" || true)" -gt "$before" ] && break
    sleep 0.1
  done
  grep "^$prefix" "$work/outputlog.txt" | tail -n 1
}

# Fails when the log reports media that shipped content names but lacks.
check_no_missing_media() {
  if grep -E "falling back to default|fallback\.png|Couldn't find (sound|music)|Music: no track|Error reading bytes for: data/(images|sounds|music)" \
    "$work/outputlog.txt"; then
    fail "missing media while playing"
  fi
}

# Presses `key` (bound to "playerinfo") in the game window `wid` of the game
# in `dir` and prints the player's x and y, the level time and the level name.
player_info() {
  local dir=$1 wid=$2 key=${3:-k}
  rm -f "$dir/playerinfo.txt"
  xdotool key --window "$wid" "$key"
  for _ in $(seq 30); do [ -s "$dir/playerinfo.txt" ] && break; sleep 0.1; done
  [ -s "$dir/playerinfo.txt" ] || fail "playerinfo wrote nothing"
  awk '/^Player pos, vel: / { split($4, p, ","); x = p[1]; y = p[2] }
       /^Current Level: / { l = $3; t = $NF }
       END { print x, y, t, l }' "$dir/playerinfo.txt"
}

# The game's cursor is virtual and moves by relative motion: pin it to the
# top-left corner with small steps, then step to (centre + dx, centre + dy),
# which is where the player stands. Needs WIDTH and HEIGHT of the window
# (eval "$(xdotool getwindowgeometry --shell "$win")").
aim_cursor() {
  local tx=$((WIDTH / 2 + $1)) ty=$((HEIGHT / 2 + $2)) i
  for i in $(seq 12); do xdotool mousemove_relative -- -150 -150; sleep 0.02; done
  while [ "$tx" -gt 0 ] || [ "$ty" -gt 0 ]; do
    local sx=$((tx > 100 ? 100 : tx)) sy=$((ty > 100 ? 100 : ty))
    xdotool mousemove_relative -- "$sx" "$sy"
    tx=$((tx - sx)); ty=$((ty - sy))
    sleep 0.02
  done
  sleep 0.1
}

# The menu checks share these. snap copies the last whole movie frame into
# $shots as NAME_$W.png; big software-rendered frames need longer to land.
snap() {
  if [ "$W" -gt 1000 ]; then sleep 2.5; else sleep 0.8; fi
  mkdir -p "$shots"
  local f
  f=$(ls "$work"/screenshots/movie*.png 2>/dev/null | sort | tail -n 2 | head -n 1)
  [ -n "$f" ] || fail "no movie frames"
  cp "$f" "$shots/$1_${W}.png"
}
keys() {
  local k
  for k in "$@"; do xdotool keydown "$k"; sleep 0.08; xdotool keyup "$k"; sleep 0.05; done
  sleep 0.3
}
# Menu frames are centred in the band between the logo (150 px) and the task
# bar (44 px), or in the screen when taller: menu_frame_left SCREEN_W FRAME_W,
# menu_frame_top SCREEN_H FRAME_H (from the top).
menu_frame_left() { echo $((($1 - $2) / 2)); }
menu_frame_top() {
  local H=$1 h=$2 band=$(($1 - 194)) top
  if [ "$h" -gt "$band" ]; then top=$(((H + h) / 2)); else top=$((44 + (band + h) / 2)); fi
  echo $((H - top))
}
