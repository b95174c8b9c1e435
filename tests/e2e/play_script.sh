#!/usr/bin/env bash
# scripts/play.sh configures without the tests and the benchmarks and builds
# only the game (its data comes with it), then starts it from its directory.
# cmake and the dependency installer are stand-ins that record their calls.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
fail() { echo "FAIL: $*" >&2; exit 1; }
work=$(mktemp -d /tmp/bq-play.XXXXXX)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tree/scripts" "$work/bin"
cp "$root/scripts/play.sh" "$work/tree/scripts/"
echo ': # nothing to install' > "$work/tree/scripts/install-deps.sh"
cat > "$work/bin/cmake" <<'STUB'
#!/usr/bin/env bash
echo "cmake $*" >> "$CALLS"
build=
while [ $# -gt 0 ]; do case $1 in -B|--build) build=$2; shift;; esac; shift; done
mkdir -p "$build/game"
printf '#!/bin/sh\necho "started in $(pwd) with $*" >> "%s"\n' "$CALLS" > "$build/game/brindlequay"
chmod +x "$build/game/brindlequay"
STUB
chmod +x "$work/bin/cmake"
export CALLS="$work/calls.txt"
PATH="$work/bin:$PATH" bash "$work/tree/scripts/play.sh" +map test
cat "$CALLS"
configure=$(grep -- ' -S ' "$CALLS") || fail "cmake was not configured"
build=$(grep -- '--build' "$CALLS") || fail "nothing was built"
[[ $configure == *-DBQ_TESTS=OFF* && $configure == *-DBQ_BENCH=OFF* ]] || fail "configured with tests or benchmarks: $configure"
[[ $build == *"--target brindlequay"* ]] || fail "builds more than the game: $build"
grep -q "^started in .*/game with +map test$" "$CALLS" || fail "the game was not started from its directory"
echo "play_script ok"
