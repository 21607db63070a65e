# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2016,SC2034,SC2154
#
# A place for a demonstration that uses nothing of the user's own settings: a home of its own with a
# session bus, an editor's text, something in place of a web browser, and a virtual X11 desktop.
# Sourced, not run, with the program in $program; leaves $stage, which goes at the end with what was
# started.

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
export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_STATE_HOME=$HOME/.local/state
export GSETTINGS_BACKEND=keyfile LC_ALL=C.UTF-8
unset DBUS_SESSION_BUS_ADDRESS DISPLAY WAYLAND_DISPLAY XDG_CURRENT_DESKTOP
mkdir -p "$XDG_CONFIG_HOME/glib-2.0/settings" "$XDG_DATA_HOME/applications" "$TMPDIR"
mkdir -m 700 "$XDG_RUNTIME_DIR"
mkdir -p "$XDG_STATE_HOME/tessel"
touch "$XDG_STATE_HOME/tessel/welcome" # what is said after the first start has been said
background dbus-daemon --session --nofork --nopidfile --address="unix:path=$XDG_RUNTIME_DIR/bus"
export DBUS_SESSION_BUS_ADDRESS=unix:path=$XDG_RUNTIME_DIR/bus
await test -S "$XDG_RUNTIME_DIR/bus"

printf 'Tesserae are the small tiles of a mosaic.\nThe oldest were found in Uruk, about 3500 BC.\n' \
    >"$stage/notes.txt"

cat >"$XDG_CONFIG_HOME/glib-2.0/settings/keyfile" <<'SETTINGS'
[org/xfce/mousepad/preferences/window]
path-in-title=false
[org/xfce/mousepad/preferences/view]
use-default-monospace-font=false
font-name='DejaVu Sans 13'
SETTINGS

# start_program: starts the program anew and waits until it is ready.
start_program() {
    if [ -n "${running:-}" ]; then
        kill "$running"
        wait "$running" || true
    fi
    : >"$stage/log"
    background "$program"
    running=$!
    await grep -q 'Tessel started' "$stage/log"
}

# x11_desktop SIZE: an X server with a window manager and a compositor. What it shows is $framebuffer,
# in the format of xwd.
x11_desktop() {
    mkdir "$stage/screen"
    framebuffer=$stage/screen/Xvfb_screen0
    background Xvfb -displayfd 3 -screen 0 "$1x24" -fbdir "$stage/screen" -nolisten tcp -noreset \
        3>"$stage/display"
    await test -s "$stage/display"
    DISPLAY=:$(cat "$stage/display")
    export DISPLAY
    mkdir -p "$XDG_CONFIG_HOME/openbox" "$XDG_DATA_HOME/themes/Stage/openbox-3"
    cat >"$XDG_CONFIG_HOME/openbox/rc.xml" <<'RC'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Stage</name><titleLayout>LC</titleLayout></theme>
  <mouse><context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/></mousebind></context></mouse>
</openbox_config>
RC
    cat >"$XDG_DATA_HOME/themes/Stage/openbox-3/themerc" <<'THEME'
border.width: 1
border.color: #9a9a9a
padding.width: 8
padding.height: 6
window.handle.width: 0
window.client.padding.width: 0
window.*.title.bg: Flat Solid
window.*.title.bg.color: #dcdad5
window.*.label.bg: Parentrelative
window.*.label.text.color: #333333
window.*.button.*.bg: Parentrelative
window.*.button.*.image.color: #333333
window.label.text.justify: Center
THEME
    background openbox --sm-disable
    await xdotool get_num_desktops
    hsetroot -solid '#5b7c99' >/dev/null
    background picom --backend xrender
}

# x11_editor X Y WIDTH HEIGHT: shows the text in an editor, $editor.
x11_editor() {
    local as_user=() # the editor shows a warning to root
    if [ "$(id -u)" -eq 0 ]; then
        as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups env "HOME=$TMPDIR")
        chmod 755 "$stage"
        chmod 666 "$stage/notes.txt"
    fi
    background "${as_user[@]}" mousepad "$stage/notes.txt"
    await xdotool search --onlyvisible --class mousepad
    editor=$(xdotool search --onlyvisible --class mousepad | tail -n 1)
    xdotool windowmove --sync "$editor" "$1" "$2" windowsize "$editor" "$3" "$4"
    xdotool windowactivate --sync "$editor"
}

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
