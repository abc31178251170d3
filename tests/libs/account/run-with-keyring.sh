#!/bin/sh
# Runs a test on a session bus of its own, with a Secret Service whose default keyring is unlocked,
# all of it kept in a temporary directory that goes away afterwards.
set -eu
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
mkdir -m 700 "$dir/data" "$dir/runtime"
export XDG_DATA_HOME="$dir/data" XDG_RUNTIME_DIR="$dir/runtime"
# The keyring takes its password on standard input; an empty one would leave the keyring unencrypted.
exec dbus-run-session -- sh -c '
    echo keyring-test-password | gnome-keyring-daemon --unlock --components=secrets >/dev/null
    exec "$@"' sh "$@"
