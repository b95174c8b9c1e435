#!/usr/bin/env bash
# The installed game: `cmake --install` into a scratch prefix puts the binary,
# the data, the desktop entry, icons and metadata in place, and the game
# started through PATH from an unrelated directory runs headless and writes
# only under $XDG_DATA_HOME/brindlequay, where the player's own scripts and
# levels come before the installed ones.
set -euo pipefail
game_dir=$1
build_dir=$(cd "$game_dir/.." && pwd)
source "$(dirname "$0")/lib.bash"
root=$(mktemp -d /tmp/bq-install.XXXXXX)
[ -n "${BQ_KEEP_E2E:-}" ] || trap 'rm -rf "$root"' EXIT
prefix=$root/prefix
user=$root/xdg/brindlequay
work=$user  # fail() shows this log

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
app=io.github.brindlequay.Brindlequay
for f in bin/brindlequay share/brindlequay/data/gamevars.xml share/brindlequay/data/fonts/vera_12.xml \
         share/brindlequay/maps/test.xml share/applications/$app.desktop share/metainfo/$app.metainfo.xml; do
  [ -f "$prefix/$f" ] || fail "$f is not installed"
done
for n in 16 22 24 32 48 64 128 256; do
  icon=$prefix/share/icons/hicolor/${n}x${n}/apps/$app.png
  [ -f "$icon" ] || fail "no ${n}x${n} icon"
  size=$(/usr/bin/python3 -c "from PIL import Image; print('%dx%d' % Image.open('$icon').size)")
  [ "$size" = "${n}x${n}" ] || fail "the ${n}x${n} icon is $size"
done
[ ! -e "$prefix/share/brindlequay/data/config.txt" ] || fail "a player's config.txt was installed"
desktop-file-validate "$prefix/share/applications/$app.desktop" || fail "installed desktop entry is invalid"
appstreamcli validate --no-net "$prefix/share/metainfo/$app.metainfo.xml" >/dev/null ||
  fail "installed metainfo is invalid"

# Runs the installed game headless (offscreen video, no sound device) from an
# empty directory with a private home.
run_installed() {
  (cd "$root/cwd" && HOME=$root/home XDG_DATA_HOME=$root/xdg SDL_VIDEODRIVER=offscreen \
     SDL_AUDIODRIVER=dummy PATH="$prefix/bin:$PATH" timeout 120 \
     brindlequay +set skiplogo 1 "$@" +quit >/dev/null 2>"$root/stderr.txt") ||
    fail "the installed game failed: $(cat "$root/stderr.txt")"
}

mkdir -p "$root/cwd" "$root/home"
touch "$root/before"
sleep 1
run_installed +map test
[ -z "$(find "$prefix" "$root/cwd" "$root/home" -newer "$root/before")" ] ||
  fail "the game wrote outside the user directory: $(find "$prefix" "$root/cwd" "$root/home" -newer "$root/before")"
log=$user/outputlog.txt
[ -f "$log" ] || fail "no outputlog.txt in $user"
[ "$(grep -c "^User files go to $user (game data in $prefix/share/brindlequay)$" "$log")" -eq 1 ] ||
  fail "the log does not say once where user files go"
grep -q "^Found on disk: $prefix/share/brindlequay/maps/test.xml$" "$log" || fail "test level not read from the install"
grep -q "Failed to load level" "$log" && fail "the test level did not load"
[ -f "$user/data/config.txt" ] || fail "no data/config.txt in the user directory"
grep -q "AVG FPS:" "$log" || fail "the game did not shut down cleanly"

# The player's scripts and levels, found before the installed ones.
cp "$prefix/share/brindlequay/maps/test.xml" "$user/maps-mine.xml"
mkdir -p "$user/maps" && mv "$user/maps-mine.xml" "$user/maps/mine.xml"
printf 'bind f11 +showmap\n' >"$user/data/autoexec.txt"
printf 'bind f12 +showmap\n' >"$user/data/userconfig.txt"
run_installed +map mine +listbinds
grep -q "^Found on disk: maps/mine.xml$" "$log" || fail "the player's own level was not found"
grep -q "^bind f11 +showmap$" "$user/data/config.txt" || fail "the player's autoexec.txt did not run"
grep -q "^bind f12 +showmap$" "$user/data/config.txt" || fail "the player's userconfig.txt did not run"
[ -z "$(find "$prefix" "$root/cwd" "$root/home" -newer "$root/before")" ] || fail "second run wrote outside"

# The level tools work from the installed game in any directory: a shipped
# level checks clean, a broken copy is reported with its line and exit status
# 1, and the Tiled project points at the installed extension.
tools=$root/tools
mkdir -p "$tools"
level_tool() { (cd "$tools" && HOME=$root/home XDG_DATA_HOME=$root/xdg PATH="$prefix/bin:$PATH" brindlequay "$@"); }
level_tool --check-level "$prefix/share/brindlequay/maps/logic.xml" >"$tools/report.txt" ||
  fail "a shipped level does not check clean: $(cat "$tools/report.txt")"
sed 's/type="door"/type="dor"/' "$prefix/share/brindlequay/maps/logic.xml" >"$tools/broken.xml"
status=0
level_tool --check-level broken.xml >"$tools/report.txt" || status=$?
[ "$status" -eq 1 ] || fail "the checker exited with $status for a broken level"
grep -qE '^broken.xml:[0-9]+: body "[a-z_]+" \(dor\): unknown type "dor" \(did you mean "door"\?\)$' \
  "$tools/report.txt" || fail "the broken level's report: $(cat "$tools/report.txt")"
level_tool --tiled-project project >/dev/null || fail "no Tiled project"
grep -q "\"extensionsPath\": \"$prefix/share/brindlequay/tiled/extensions\"" "$tools/project/brindlequay.tiled-project" ||
  fail "the Tiled project does not point at the installed extension"
[ -f "$prefix/share/brindlequay/tiled/extensions/brindlequay/brindlequay.js" ] || fail "the Tiled extension is not installed"

# Uninstalling removes exactly what was installed.
xargs rm -f <"$build_dir/install_manifest.txt"
[ -z "$(find "$prefix" -type f)" ] || fail "files left after uninstall: $(find "$prefix" -type f | head)"
echo "install ok"
