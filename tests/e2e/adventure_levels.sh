#!/usr/bin/env bash
# Every level the adventure reaches (start level, then each exit's cut scene
# or level target) loads with all its textures, types and target names: no
# fallback texture, unknown body type, missing particle or sound, and every
# "targets" name is some body's id. The level picture draws every body, so
# every texture is loaded. No body is dropped for a degenerate polygon.
# Level names after the game directory check those levels instead of the chain.
set -euo pipefail
game_dir=$1
shift
source "$(dirname "$0")/lib.bash"
if [ $# -gt 0 ]; then
  levels="$*"
else
levels=$(python3 - "$game_dir" <<'PY'
import os, sys
import xml.etree.ElementTree as ET
root = sys.argv[1]
level = ET.parse(os.path.join(root, 'data/adventures/brindlequay.xml')).getroot().get('startlevel')
seen = []

def check_targets(level):
    doc = ET.parse(os.path.join(root, 'maps', level + '.xml')).getroot()
    ids = {p.get('idname') for p in doc.iter('P')}
    for p in doc.iter('P'):
        params = p.find('params')
        for t in (params.get('targets') if params is not None else '').split(','):
            if t and t not in ids:
                sys.exit('%s: %s targets missing id %s' % (level, p.get('idname'), t))
        # A wave event naming no body never fires: a wave defence that never ends.
        if p.get('type') == 'wavecontroller':
            attrs = {a.get('name').lower(): a.get('value') for a in p.iter('a')}
            waves = ET.parse(os.path.join(root, attrs['wavefile'].replace('\\', '/'))).getroot()
            for event in waves.iter('event'):
                if event.get('target') not in ids:
                    sys.exit('%s: wave event at %s ms targets missing id %s' % (level, event.get('time'),
                                                                           event.get('target')))
    return doc

while level and level not in seen:
    seen.append(level)
    doc = check_targets(level)
    nxt = None
    for p in doc.iter('P'):
        if p.get('type') == 'levelchange':
            attrs = {a.get('name').lower(): a.get('value') for a in p.iter('a')}
            nxt = attrs.get('leveltarget')
            if attrs.get('iscutscene') == 'true':
                scene = ET.parse(os.path.join(root, 'data/adventures', attrs['cutscene'] + '.xml')).getroot()
                nxt = scene.get('level') if scene.get('onend') == 'level' else None
    level = nxt
# The acts' levels are checked too, whether or not the chain reaches them yet.
for level in ('signalhouse', 'foundrygates', 'foundryfloor', 'blockyard'):
    if level not in seen:
        seen.append(level)
        check_targets(level)
print(' '.join(seen))
PY
) || fail "adventure chain: $levels"
[ "$(wc -w <<<"$levels")" -ge 3 ] || fail "adventure reaches only: $levels"
fi
for level in $levels; do
  work=$(make_game_copy "$game_dir")
  start_game "$work" +map "$level" +levelshot "$level.png"
  wait_for_log "$work" "Wrote level picture screenshots/$level.png" 40
  sleep 2
  stop_game
  log="$work/outputlog.txt"
  if bad=$(grep -E "FAILED to load texture|Defaulting to Body for: |Couldn't find particle def|Couldn't find sound|insertion failed at|Skipping body|Could not load" "$log"); then
    fail "$level: $bad"
  fi
  kill "$XVFB_PID" 2>/dev/null || true
  rm -rf "$work"
done
echo "adventure_levels ok: $levels"
