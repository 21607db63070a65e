# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
#
# What Tessel needs from Debian, and how the scripts install what is missing. Sourced, not run.

build_packages=(
    cmake g++ ninja-build pkg-config
    libicu-dev libssl-dev libtiff-dev libwayland-bin libwayland-dev libwebp-dev libxcb-res0-dev
    libxcb-screensaver0-dev libxcb-xfixes0-dev libxcb-xinput-dev libxcb-xkb-dev libxcb-xtest0-dev
    libxcb1-dev libxkbcommon-dev libxkbcommon-x11-dev nlohmann-json3-dev qcoro-qt6-dev
    qt6-base-dev qt6-base-private-dev qt6-svg-dev
)
run_packages=(dbus dbus-user-session file fonts-dejavu-core qt6-wayland xdg-utils zsh)
demo_packages=(
    foot grim hsetroot imagemagick mousepad openbox picom sway xdotool xterm xvfb
)
test_packages=(
    at-spi2-core dbus dbus-x11 featherpad foot fonts-noto-cjk grim i3lock kwin-data kwin-wayland
    mousepad openbox perl picom qtwayland5 rpm sakura sway tk trayer unicode-data vim-gtk3 wayland-utils
    wl-clipboard x11-utils x11-xkb-utils x11-xserver-utils xdg-utils xfce4-clipman-plugin
    xfce4-panel xfconf xfwm4 xsettingsd xterm xvfb xwayland zsh
)
gnome_packages=(gnome-shell gnome-text-editor libglib2.0-bin python3-dbusmock)
lint_packages=(appstream clang-tidy desktop-file-utils mandoc rpmlint shellcheck)
picture_packages=(fonts-noto-cjk trayer)
fuzz_packages=(clang libclang-rt-dev)
benchmark_packages=(libbenchmark-dev libxcb-damage0-dev)
artwork_packages=(librsvg2-bin optipng pngquant)

# Installs those of the named packages that are missing; asks for sudo only then.
install_missing() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
}
