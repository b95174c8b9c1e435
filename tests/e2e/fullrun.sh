#!/usr/bin/env bash
# The recorded run through the adventure: the demos demos/runNN_<level>.dem,
# replayed in order by the real game flat out without drawing. Each must
# match its world hashes and end its level with no cheats; the first starts
# on the adventure's first level and each next one on the level the one
# before leads to, carrying the player's state.
set -euo pipefail
source "$(dirname "$0")/lib.bash"
use_game_copy "$1"

mapfile -t runs < <(cd "$work/demos" && ls run[0-9][0-9]_*.dem 2>/dev/null | sed 's/\.dem$//' | sort)
[ "${#runs[@]}" -ge 3 ] || fail "the run has ${#runs[@]} demos"

# Where each level's exit leads, through its cut scene.
python3 - "$work" "${runs[@]}" <<'PY' || fail "the demos do not follow the adventure"
import re, sys, xml.etree.ElementTree as ET
work, runs = sys.argv[1], sys.argv[2:]
def header(name):
    fields = {}
    for line in open(f"{work}/demos/{name}.dem"):
        key, _, rest = line.rstrip("\n").partition(" ")
        if key == "steps":
            break
        fields[key] = rest
    return fields
def next_level(level):
    for p in ET.parse(f"{work}/maps/{level}.xml").iter("P"):
        if p.get("type") != "levelchange":
            continue
        attrs = {a.get("name"): a.get("value") for a in p.iter("a")}
        if attrs.get("iscutscene") == "true":
            return ET.parse(f"{work}/data/adventures/{attrs['cutscene']}.xml").getroot().get("level")
        return attrs.get("leveltarget")
start = ET.parse(f"{work}/data/adventures/brindlequay.xml").getroot().get("startlevel")
expected = start
for i, name in enumerate(runs):
    h = header(name)
    if h.get("level") != expected:
        sys.exit(f"{name} plays {h.get('level')}, the run is at {expected}")
    if (i > 0) != ("player" in h):
        sys.exit(f"{name}: only the first demo starts with a new player")
    if any(v in h.get("var", "") for v in ("god", "noclip")):
        sys.exit(f"{name} sets a cheat")
    expected = next_level(expected)
print("run follows the adventure:", " -> ".join(runs))
PY

args=(+set skiplogo 1)
for run in "${runs[@]}"; do args+=(+timedemo "$run" nodraw); done
start_game "$work" "${args[@]}"
total=0
for run in "${runs[@]}"; do
  level=${run#*_}
  wait_for_log "$work" "^Demo $run played: [0-9]* steps, all [0-9]* world hashes matched$" 120
  line=$(grep "^demo $run: " "$log") || fail "$run printed no completion line"
  [ "$(grep -c "^demo $run: " "$log")" -eq 1 ] || fail "$run printed more than one completion line"
  [[ $line =~ ^demo\ $run:\ level\ $level\ completed\ in\ ([0-9]+)\.[0-9]\ s,\ cheats:\ none$ ]] ||
    fail "$run: $line"
  total=$((total + BASH_REMATCH[1]))
  grep "^timedemo $run: " "$log"
done
stop_game
echo "the run lasts about $total s of play"
