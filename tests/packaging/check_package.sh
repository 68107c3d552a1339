#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Packs the program of a build folder as a Debian package, installs it into an empty root, starts the
# program from there on a server of its own, ends it, and removes the package again.
#
#   check_package.sh BUILD_FOLDER
set -euo pipefail

build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
fail() { echo "check_package: $*" >&2; exit 1; }

# step FAILURE COMMAND…: a command that fails shows all that it printed.
step() {
    local failure=$1 status=0
    shift
    "$@" >"$work/output" 2>&1 || status=$?
    [ "$status" = 0 ] && return
    cat "$work/output" >&2
    fail "$failure (status $status of: $*)"
}

step "the package cannot be built" \
    cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/package"
package=$(ls "$work"/package/*.deb)
[ -f "$package" ] || fail "no package was made; tools/package printed: $(cat "$work/output")"

mkdir -p "$root/var/lib/dpkg"
touch "$root/var/lib/dpkg/status"
# Ordinary users often lack root's folders, which dpkg looks for its programs in.
PATH=$PATH:/usr/local/sbin:/usr/sbin:/sbin
as_root() { fakeroot dpkg --root="$root" --log=/dev/null --force-depends "$@"; }
step "the package does not install" as_root --install "$package"

share=$root/usr/share
step "the desktop file is not valid" \
    desktop-file-validate "$share/applications/app.trovell.Trovell.desktop"
step "the metainfo is not valid" \
    appstreamcli validate --no-net "$share/metainfo/app.trovell.Trovell.metainfo.xml"
step "the bus would start another program" \
    grep -x 'Exec=/usr/bin/trovell' "$share/dbus-1/services/app.trovell.Trovell.service"
for icon in scalable/apps/app.trovell.Trovell.svg 48x48/apps/app.trovell.Trovell.png \
    symbolic/apps/app.trovell.Trovell-symbolic.svg; do
    [ -s "$share/icons/hicolor/$icon" ] || fail "no icon $icon"
done

# Starts it, waits for its window, and ends it as a session does at logout.
cat >"$work/start" <<'E2'
export HOME=$1 XDG_DATA_HOME=$1/data XDG_CONFIG_HOME=$1/config XDG_RUNTIME_DIR=$1
unset WAYLAND_DISPLAY XDG_SESSION_TYPE
"$2" &
program=$!
for _ in $(seq 100); do
    xdotool search --onlyvisible --name '^Trovell$' >/dev/null 2>&1 && break
    sleep 0.1
done
xdotool search --onlyvisible --name '^Trovell$' >/dev/null || { echo "no window"; exit 10; }
kill "$program"
wait "$program"
E2
mkdir -m 700 "$work/home"
step "the installed program did not start and end in order" \
    dbus-run-session -- xvfb-run -a -s "-screen 0 1280x800x24" \
    bash "$work/start" "$work/home" "$root/usr/bin/trovell"

step "the package cannot be removed" as_root --remove trovell
left=$(find "$root" -path "$root/usr/*" -type f | head)
[ -z "$left" ] || fail "left behind: $left"
echo "The package installs, starts and is removed cleanly."
