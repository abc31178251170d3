#!/usr/bin/env bash
# Builds the Debian packages from the build tree, unpacks the program's into a scratch root and checks
# what a desktop needs of it: a valid desktop entry and metainfo, the icons, the declared dependencies,
# and a program that starts from there and makes its database.
#   tst_debpackage.sh <build directory> <source directory>
set -euo pipefail
build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/out" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log"; exit 1; }
deb=$(ls "$work"/out/ombrel_*.deb)
root="$work/root"
dpkg-deb -x "$deb" "$root"

fail() { echo "debpackage: $*"; exit 1; }

depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt6widgets6 libqt6sql6 libqt6sql6-sqlite; do
    [[ "$depends" == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
done

app=com.halcyra.ombrel
desktop-file-validate "$root/usr/share/applications/$app.desktop" || fail "desktop entry is not valid"
appstreamcli validate --no-net "$root/usr/share/metainfo/$app.metainfo.xml" >/dev/null \
    || { appstreamcli validate --no-net "$root/usr/share/metainfo/$app.metainfo.xml"; fail "metainfo is not valid"; }
[ -f "$root/usr/share/icons/hicolor/scalable/apps/$app.svg" ] || fail "no scalable icon"
for size in 16 22 24 32 48 64 128 256; do
    icon="$root/usr/share/icons/hicolor/${size}x${size}/apps/$app.png"
    file -b "$icon" | grep -q "PNG image data, $size x $size" || fail "icon $size: $(file -b "$icon" 2>&1)"
done

# The unpacked program runs on the system's Qt alone: no library path is set.
env -u LD_LIBRARY_PATH "$source/scripts/smoke-test" "$root/usr/bin/ombrel"

# The server's package exists once the server is part of the build; then it carries its unit.
if server_deb=$(ls "$work"/out/ombrel-server_*.deb 2>/dev/null); then
    # The listing is read whole: grep -q would stop at the first match, and with pipefail the listing
    # killed by the closed pipe counts as a failure.
    server_files=$(dpkg-deb -c "$server_deb")
    grep -q "lib/systemd/system/ombrel-server.service" <<<"$server_files" || fail "server package has no unit"
    grep -q "usr/bin/ombrel-server" <<<"$server_files" || fail "server package has no program"
fi
echo "debpackage: $(basename "$deb") installs and starts"
