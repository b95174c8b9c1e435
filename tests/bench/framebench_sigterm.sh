#!/usr/bin/env bash
# The frame benchmark stops on SIGTERM as the game does, mid-measurement,
# instead of running its whole list of benchmarks.
set -euo pipefail
bench=$1
game_dir=$2
fail() { echo "FAIL: $*" >&2; [ -n "${work:-}" ] && tail -n 20 "$work/out.txt" >&2; exit 1; }
work=$(mktemp -d /tmp/bq-bench.XXXXXX)
cp -r "$game_dir"/. "$work"/
rm -f "$work/data/config.txt"
for n in $(seq 90 140); do
  [ ! -e /tmp/.X11-unix/X$n ] && [ ! -e /tmp/.X$n-lock ] && break
done
export DISPLAY=:$n
Xvfb "$DISPLAY" -screen 0 1280x720x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null || true; rm -rf "$work"' EXIT
for _ in $(seq 50); do xdpyinfo -display "$DISPLAY" >/dev/null 2>&1 && break; sleep 0.1; done
(cd "$work" && SDL_AUDIODRIVER=dummy LP_NUM_THREADS=1 exec "$bench" --benchmark_min_time=30 >"$work/out.txt" 2>&1) &
pid=$!
# Into the measurements: the first benchmark has started its frames.
for _ in $(seq 300); do grep -q "REND New Res" "$work/out.txt" 2>/dev/null && break; sleep 0.1; done
sleep 4
kill -0 "$pid" 2>/dev/null || fail "the bench ended before the signal"
kill -TERM "$pid"
for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
if kill -0 "$pid" 2>/dev/null; then
  kill -KILL "$pid"
  fail "the bench did not stop within 10 s of SIGTERM"
fi
wait "$pid" || true
grep -q "stopped by SIGTERM" "$work/out.txt" || fail "no word that it was stopped"
echo "framebench_sigterm ok"
