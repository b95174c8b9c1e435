#!/usr/bin/env bash
# A texture the level names but the data lacks gives way to the fallback
# image and is reported once, not tried again on every frame.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"
sed 's|data/images/metal1.png|data/images/nosuchtexture.png|g' "$work/maps/test.xml" > "$work/maps/e2emissing.xml"
start_game "$work" +set skiplogo 1 +set cachetextureids 0 +map e2emissing
wait_for_log "$work" "FAILED to load texture: data/images/nosuchtexture.png" 30
sleep 4
stop_game
n=$(grep -c "^FAILED to load texture: data/images/nosuchtexture.png$" "$work/outputlog.txt")
[ "$n" -eq 1 ] || fail "reported $n times"
grep -q "^Found on disk: data/images/fallback.png$" "$work/outputlog.txt" || fail "no fallback"
echo "missing_texture ok"
