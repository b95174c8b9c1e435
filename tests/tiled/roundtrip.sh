#!/usr/bin/env bash
# Every shipped level through headless Tiled and back with the game's Tiled
# extension; the unit test then requires the same loaded world from both.
# Also feeds the extension broken files: Tiled must report them, not crash.
# Usage: roundtrip.sh SOURCE_DIR TESTS_BINARY
set -euo pipefail
src=$1
tests=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Tiled reads extensions from its configuration directory.
mkdir -p "$work/config/tiled/extensions" "$work/out" "$work/bad"
ln -s "$src/tools/tiled" "$work/config/tiled/extensions/brindlequay"
export XDG_CONFIG_HOME=$work/config HOME=$work XDG_RUNTIME_DIR=$work

export_map() {
    timeout 60 xvfb-run -a tiled --export-map brindlequay "$1" "$2" >"$work/log" 2>&1
}

count=0
for level in "$src"/maps/*.xml; do
    grep -q '<Objects' "$level" || continue
    if ! export_map "$level" "$work/out/$(basename "$level")"; then
        echo "Tiled could not export $level:"; cat "$work/log"; exit 1
    fi
    # The notes beside the bodies come back too.
    notes() { sed -n '/<Objects/,/<\/Objects>/p' "$1" | grep -c '<!--' || true; }
    if [ "$(notes "$level")" != "$(notes "$work/out/$(basename "$level")")" ]; then
        echo "$(basename "$level"): comments were lost"; exit 1
    fi
    count=$((count + 1))
done
echo "exported $count levels"

# A map made in Tiled itself: rectangles, a rotated rectangle, a point,
# clockwise polygons, object references, depth from the layer.
if ! export_map "$src/tests/tiled/edited.tmx" "$work/edited.xml"; then
    echo "Tiled could not export edited.tmx:"; cat "$work/log"; exit 1
fi
diff -u "$src/tests/tiled/edited.xml" "$work/edited.xml"
echo "a map drawn in Tiled writes the expected level"

# Broken input: an error message and a plain failure, never a crash.
printf '<level><Objects><P type="door"' >"$work/bad/truncated.xml"
printf '<level><Objects><P></Q></Objects></level>' >"$work/bad/mismatched.xml"
printf '<notalevel/>' >"$work/bad/noobjects.xml"
printf '' >"$work/bad/empty.xml"
head -c 3000 /dev/urandom >"$work/bad/noise.xml"
for bad in "$work"/bad/*.xml; do
    status=0
    export_map "$bad" "$work/bad.out" || status=$?
    if [ "$status" -eq 0 ] || [ "$status" -ge 124 ]; then
        echo "$(basename "$bad"): Tiled exited with $status"; cat "$work/log"; exit 1
    fi
    if ! grep -q "Error" "$work/log"; then
        echo "$(basename "$bad"): no error message"; cat "$work/log"; exit 1
    fi
done
echo "broken files refused with a message"

BQ_ROUNDTRIP_DIR=$work/out "$tests" --gtest_filter='TiledRoundTripTest.*'
