#!/usr/bin/env bash
# Scripts named on the command line run from disk and from data.zip, with
# their log lines; a stray word on the command line is reported and the game
# still starts. A script with CR LF line ends binds commands without the CR,
# so the binding fires and config.txt keeps it clean.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
printf 'set e2edisk 42 // a comment\r\ne2edisk\r\nbind k noclip\r\n' > "$work/data/e2e_disk.txt"
mkdir -p "$work/zipsrc/data"
printf 'set e2ezip 7;e2ezip\n' > "$work/zipsrc/data/e2e_zip.txt"
rm -f "$work/data.zip"
(cd "$work/zipsrc" && zip -q ../data.zip data/e2e_zip.txt)
start_game "$work" stray +exec e2e_disk.txt +exec e2e_zip.txt
wait_for_log "$work" "e2ezip = 7"
stop_game
grep -q "Ignoring command-line argument 'stray'" "$log" || fail "stray word not reported"
grep -q "Found on disk: data/e2e_disk.txt" "$log" || fail "disk script not found on disk"
grep -q "e2edisk = 42" "$log" || fail "disk script did not run"
grep -q "NOT Found on disk: data/e2e_zip.txt" "$log" || fail "archive script was not looked up on disk first"
grep -q "AVG FPS:" "$log" || fail "game did not shut down cleanly"
grep -qx "bind k noclip" "$work/data/config.txt" || fail "the binding kept its CR: $(grep '^bind k ' "$work/data/config.txt" | od -c | head -2)"
rm -rf "$work"
echo "exec ok"
