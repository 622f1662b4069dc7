#!/usr/bin/env bash
# Inside the fresh namespaces (started by launch.sh): makes /etc, /var/lib and /run private, builds the
# scene, runs the command with TARN_NETNS_SANDBOX naming this network namespace, and stops the scene's
# daemons.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
scene="$1"
shift

# Where the private file systems cannot be made, the scene cannot be kept off the machine: skip.
private() {
  "$@" || { echo "skipped: cannot make the sandbox's file systems ($*)"; exit 77; }
}
private mount -t tmpfs tarn-run /run
for dir in /etc /var/lib; do
  name="${dir//\//_}"
  mkdir -p "/run/overlay/$name/up" "/run/overlay/$name/work"
  private mount -t overlay overlay -o "lowerdir=$dir,upperdir=/run/overlay/$name/up,workdir=/run/overlay/$name/work" "$dir"
done
# sysfs shows the links of the namespace that mounts it.
private mount -t sysfs sysfs /sys
mkdir -p /run/netns /etc/tarn /etc/network /var/lib/dhcp
rm -f /etc/tarn/linux-host.conf /var/lib/dhcp/* /etc/network/interfaces
rm -f /etc/resolv.conf
: > /etc/resolv.conf
hostname host01
ip link set lo up
# A kernel without veth or bridge links cannot hold the scenes: skip, saying which.
for kind in veth bridge; do
  if ! ip link add tarn-probe type "$kind" 2>/dev/null; then
    echo "skipped: this kernel cannot make $kind links"
    exit 77
  fi
  ip link del tarn-probe
done

cleanup() {
  for pidfile in /run/tarn-scene-*.pid; do
    [ -e "$pidfile" ] && kill "$(cat "$pidfile")" 2>/dev/null || true
  done
}
trap cleanup EXIT

# shellcheck source=scenes.sh
. "$here/scenes.sh"
"scene_$scene"

export TARN_NETNS_SANDBOX TARN_NETNS_SCENE="$scene"
TARN_NETNS_SANDBOX="$(readlink /proc/self/ns/net)"
"$@"
