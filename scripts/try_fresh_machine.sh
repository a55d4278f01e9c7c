#!/usr/bin/env bash
# try_fresh_machine.sh FOLDER [COMMAND...]: runs the README's commands, or those given, as a newcomer would: in a bare Debian 12 tree
# that has only git, in a fresh clone of what is committed here. Needs root and debootstrap, and takes this machine's own mirror.
# FOLDER keeps the bare tree for the next time, and the tree of the last run to look at.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/help.sh"
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
[ $# -ge 1 ] || { "${BASH_SOURCE[0]}" --help >&2; exit 2; }
mkdir -p "$1"
folder=$(cd "$1" && pwd)
shift
[ $# -gt 0 ] || set -- scripts/gallery.sh scripts/test.sh

bare=$folder/bare tree=$folder/tree
sources=/etc/apt/sources.list.d/debian.sources
if [ ! -e "$bare/complete" ]; then
    mirror=$(awk '$1 == "URIs:" { print $2; exit }' "$sources")
    rm -rf "$bare"
    debootstrap --variant=minbase --include=ca-certificates,git bookworm "$bare" "$mirror" >"$folder/debootstrap.log"
    # As an installed machine is: told where the packages are, but without their lists.
    : >"$bare/etc/apt/sources.list"
    cp "$sources" "$bare/etc/apt/sources.list.d/"
    cp -r /etc/apt/apt.conf.d/. "$bare/etc/apt/apt.conf.d/"
    rm -rf "$bare"/var/lib/apt/lists/* "$bare"/var/cache/apt/archives/*.deb
    touch "$bare/complete"
fi

mountpoint -q "$tree/proc" && umount "$tree/proc"
rm -rf "$tree"
cp -a "$bare" "$tree"
cp /etc/resolv.conf "$tree/etc/"
git clone --quiet --bare "$root" "$tree/srv/velmora.git"
chmod 1777 "$tree/dev/shm" # as an installed machine has it: what compositors and their clients share is there
mount --bind /proc "$tree/proc"
trap 'umount "$tree/proc"' EXIT

inside() { chroot "$tree" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@" </dev/null; }
inside git clone --quiet --branch "$(git -C "$root" rev-parse --abbrev-ref HEAD)" /srv/velmora.git /root/velmora
for command in "$@"; do
    SECONDS=0
    inside bash -c "cd /root/velmora && $command"
    echo "== On a fresh machine: $command took $SECONDS s"
done
