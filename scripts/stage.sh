# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2016
#
# A place for a demonstration that uses nothing of the user's own settings: a home of its own with a
# session bus, an editor's text, and something in place of a web browser. Sourced, not run, with the
# program in $program; leaves $stage, which goes at the end with what was started.

stage=$(mktemp -d)
children=()
finish() {
    for pid in "${children[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$stage"
}
trap finish EXIT

background() { # runs a command that is ended with the script
    "$@" >>"$stage/log" 2>&1 &
    children+=($!)
}

await() { # repeats a command until it succeeds, for ten seconds
    for _ in $(seq 100); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    echo "Gave up waiting for: $*" >&2
    cat "$stage/log" >&2
    exit 1
}

export HOME=$stage/home XDG_RUNTIME_DIR=$stage/run TMPDIR=$stage/tmp
export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share GSETTINGS_BACKEND=memory
unset DBUS_SESSION_BUS_ADDRESS DISPLAY WAYLAND_DISPLAY XDG_CURRENT_DESKTOP
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME/applications" "$TMPDIR"
mkdir -m 700 "$XDG_RUNTIME_DIR"
background dbus-daemon --session --nofork --nopidfile --address="unix:path=$XDG_RUNTIME_DIR/bus"
export DBUS_SESSION_BUS_ADDRESS=unix:path=$XDG_RUNTIME_DIR/bus
await test -S "$XDG_RUNTIME_DIR/bus"

printf 'Tesserae are the small tiles of a mosaic.\nThe oldest were found in Uruk, about 3500 BC.\n' \
    >"$stage/notes.txt"

# browser COMMAND...: what shows an address in place of a web browser, in a terminal, as the command
# line of a script that is its first argument.
browser() {
    printf '#!/bin/sh\necho "$1" >"%s"\nexec %s sh -c %s "$1"\n' "$stage/opened" "$*" \
        "'printf \"\\n  The default browser was asked to open\\n\\n  %s\\n\" \"\$0\"; sleep 60'" \
        >"$stage/browser"
    chmod +x "$stage/browser"
    cat >"$XDG_DATA_HOME/applications/browser.desktop" <<ENTRY
[Desktop Entry]
Type=Application
Name=Web browser
Exec=$stage/browser %u
MimeType=x-scheme-handler/https;
ENTRY
    printf '[Default Applications]\nx-scheme-handler/https=browser.desktop\n' \
        >"$XDG_CONFIG_HOME/mimeapps.list"
}
