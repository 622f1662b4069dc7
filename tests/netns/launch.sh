#!/usr/bin/env bash
# Runs a command inside a network scene of its own: private network, mount and host-name namespaces, with
# /etc, /var/lib and /run private too, so that the scene's DHCP client and the command under test cannot
# reach the machine. Checks that nothing the real-host backend could read changed outside.
# Usage: launch.sh SCENE COMMAND [ARGS...]   (scenes: see scenes.sh). Exit 77: cannot run here (skipped).
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
scene="$1"
shift
if [ "$(id -u)" -ne 0 ]; then
  echo "skipped: the namespace tests need root"
  exit 77
fi
for tool in unshare ip dnsmasq dhclient; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is not installed (scripts/deps --test)"
    exit 77
  fi
done
if ! unshare -n -m -u --propagation private true 2>/dev/null; then
  echo "skipped: unshare of network and mount namespaces is not permitted here"
  exit 77
fi

# What the backend reads and the scenes could write, as the machine sees it.
fingerprint() {
  {
    for path in /etc/resolv.conf /etc/network /etc/tarn /etc/hostname /var/lib/dhcp /run/systemd/netif \
                /run/systemd/resolve; do
      if [ -e "$path" ]; then
        find -L "$path" -xdev -type f -exec sha256sum {} + 2>/dev/null | sort
      fi
    done
    hostname
    ip -o link show | sed 's/^[0-9]*: //'
    ip -o addr show
    ip route show table all
  } | sha256sum
}
before="$(fingerprint)"
status=0
unshare -n -m -u --propagation private -- "$here/sandbox.sh" "$scene" "$@" || status=$?
after="$(fingerprint)"
if [ "$before" != "$after" ]; then
  echo "FAILED: the machine's network or its configuration files changed while the scene ran"
  exit 1
fi
exit "$status"
