#!/usr/bin/env bash
# A start whose data cannot be read (a truncated data.zip, or no data at all)
# says so in the window title, the terminal and the log, and writes no
# data/config.txt: a config without bindings would hide default.cfg from every
# later start. With the data repaired, the next start gets the default keys.
set -euo pipefail
game_dir=$1
zip=$game_dir/../data.zip
source "$(dirname "$0")/lib.bash"
[ -f "$zip" ] || fail "no data.zip beside the game directory (build the datazip target)"
message="The game data is damaged or missing"

run_damaged() {
  local label=$1
  rm -f "$work/outputlog.txt"
  start_game "$work" +set skiplogo 1
  wait_for_log "$work" "^$message" 20
  local title
  title=$(xdotool search --sync --name Brindlequay | head -n 1 | xargs xdotool getwindowname)
  [[ $title == *"data damaged or missing"* ]] || fail "$label: window title '$title'"
  stop_game
  grep -q "^Not writing data/config.txt" "$work/outputlog.txt" || fail "$label: no word on the config"
  [ ! -e "$work/data/config.txt" ] || fail "$label: data/config.txt was written"
  grep -q "$message" "$work/stderr.txt" || fail "$label: nothing on the terminal"
  kill "$XVFB_PID" 2>/dev/null || true
}

work=$(mktemp -d /tmp/bq-e2e.XXXXXX)
cp "$game_dir/brindlequay" "$work"/
head -c 200000 "$zip" > "$work/data.zip"
run_damaged "truncated data.zip"
rm "$work/data.zip"
run_damaged "no data"

# Repaired: the default controls load and are kept, and a value outside a
# variable's range from the command line is refused, not saved.
# A config.txt left by an older game on damaged data names no key: the
# defaults come back over it.
cp "$zip" "$work/data.zip"
rm -f "$work/outputlog.txt"
printf '//key bindings\n\n\n\n//variables\n\n' > "$work/data/config.txt"
start_game "$work" +set skiplogo 1 +set volume 1e9
wait_for_log "$work" "Found on disk: data/default.cfg" 20
stop_game
grep -q "$message" "$work/outputlog.txt" && fail "a good data.zip was reported damaged"
grep -q "^bind d +moveright$" "$work/data/config.txt" || fail "the default bindings were not kept"
grep -q "^volume must be between 0 and 128$" "$work/outputlog.txt" || fail "volume 1e9 was not refused"
grep -qx "volume 96" "$work/data/config.txt" || fail "config.txt has $(grep '^volume' "$work/data/config.txt")"
echo "damaged_data ok"
