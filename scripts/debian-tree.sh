# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# Trees of Debian releases, each with an ordinary user "tester", in $trees. Sourced, not run, by
# scripts that need root and call own_namespaces first; packages.sh has been sourced before.

trees=${TESSEL_TREES:-/var/cache/tessel}
declare -A release_names=([12]=bookworm [13]=trixie)
# Where this machine gets its own Debian from, and by which way.
# shellcheck disable=SC2016  # apt expands it
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Label: Debian' | sed -n 1p)
eval "$(apt-config shell http_proxy Acquire::http::Proxy)"
${http_proxy:+export http_proxy}

# own_namespaces "$@": runs the script anew as root, with mounts and processes that end with it.
own_namespaces() {
    local as_root=()
    [ -n "${TESSEL_UNSHARED:-}" ] && return
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    exec "${as_root[@]}" env TESSEL_UNSHARED=1 TESSEL_TREES="$trees" \
        unshare --mount --pid --fork --kill-child "scripts/${0##*/}" "$@"
}

# make_tree RELEASE FOLDER: unless the folder is there.
make_tree() {
    [ -d "$2" ] && return
    install_missing debootstrap iproute2
    rm -rf "$2.new"
    mkdir -p "$2.new"
    debootstrap --variant=minbase "${release_names[$1]}" "$2.new" "$mirror"
    printf '#!/bin/sh\nexit 101\n' >"$2.new/usr/sbin/policy-rc.d" # starts no services
    chmod +x "$2.new/usr/sbin/policy-rc.d"
    chroot "$2.new" useradd --create-home --shell /bin/bash tester
    mv "$2.new" "$2"
}

# enter_tree FOLDER: makes it the tree of what follows.
enter_tree() {
    tree=$1
    mount -t proc proc "$tree/proc"
    mount --rbind /sys "$tree/sys" # by which GNOME finds that systemd has not started it
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$tree/dev/pts"
    mount -t tmpfs tmpfs "$tree/dev/shm"
    mount -t tmpfs tmpfs "$tree/tmp"
    cp -L /etc/resolv.conf /etc/hosts "$tree/etc"
}

# as_root COMMAND...: in the tree, with the network.
as_root() {
    chroot "$tree" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} "$@"
}

# as_tester COMMAND...: in the tree, in the home, with no network but the loopback interface.
as_tester() {
    # shellcheck disable=SC2016  # what is quoted expands in there
    unshare --net bash -euc 'ip link set lo up; exec chroot --userspec=tester:tester "$@"' bash "$tree" \
        env -i PATH=/usr/bin:/bin HOME=/home/tester LC_ALL=C.UTF-8 \
        bash -c 'cd && exec "$@"' bash "$@"
}
