# The network scenes of the real-host tests, sourced by sandbox.sh inside fresh namespaces. Links under
# test are veth pairs (u0, u1, ... listed as NICs in tarn's configuration) whose peers (p0, p1, ...) sit in a
# second namespace, "srv", where the scene's DHCP and router-advertisement server runs.

peer() { # peer NAME MAC PEER-MAC: a veth pair, the peer moved to srv and up
  ip link add "$1" address "$2" type veth peer name "p${1#u}" address "$3"
  ip link set "p${1#u}" netns srv
  ip -n srv link set "p${1#u}" up
}

start_srv() {
  ip netns add srv
  ip -n srv link set lo up
}

ipv4_only() {
  sysctl -qw net.ipv6.conf.all.disable_ipv6=1 net.ipv6.conf.default.disable_ipv6=1
}

# Polls COMMAND for up to ten seconds.
wait_for() {
  for _ in $(seq 100); do
    if eval "$1" >/dev/null 2>&1; then return 0; fi
    sleep 0.1
  done
  echo "scene not ready: $1" >&2
  return 1
}

# A static address on a bridge with two uplinks.
scene_bridge() {
  ipv4_only
  start_srv
  printf 'nic = u0\nnic = u1\n' > /etc/tarn/linux-host.conf
  printf 'nameserver 192.0.2.53\nsearch corp.test\n' > /etc/resolv.conf
  ip link add br0 address 02:00:00:00:01:00 type bridge
  peer u0 02:00:00:00:00:01 02:00:00:00:00:f1
  peer u1 02:00:00:00:00:02 02:00:00:00:00:f2
  ip link set u0 master br0
  ip link set u1 master br0
  for link in u0 u1 br0; do ip link set "$link" up; done
  ip addr add 192.0.2.10/24 dev br0
  ip route add default via 192.0.2.1 dev br0
}

# A NIC whose address comes from a DHCP server, through dhclient.
scene_dhcp() {
  ipv4_only
  start_srv
  printf 'nic = u0\n' > /etc/tarn/linux-host.conf
  printf 'auto u0\niface u0 inet dhcp\n' > /etc/network/interfaces
  peer u0 02:00:00:00:00:01 02:00:00:00:00:f1
  ip -n srv addr add 10.9.0.1/24 dev p0
  ip link set u0 up
  ip netns exec srv dnsmasq --no-resolv --no-hosts --leasefile-ro --bind-interfaces --interface=p0 \
    --pid-file=/run/tarn-scene-dnsmasq.pid --dhcp-range=10.9.0.50,10.9.0.50,255.255.255.0,1h \
    --dhcp-option=option:router,10.9.0.1 --dhcp-option=option:dns-server,10.9.0.1 \
    --dhcp-option=option:domain-name,corp.test
  dhclient -4 -1 -q -lf /var/lib/dhcp/dhclient.u0.leases -pf /run/tarn-scene-dhclient.pid u0
}

# A static IPv4 and IPv6 address, and an IPv6 address from a router advertisement.
scene_ipv6() {
  start_srv
  printf 'nic = u0\n' > /etc/tarn/linux-host.conf
  peer u0 02:00:00:00:00:01 02:00:00:00:00:f1
  sysctl -qw net.ipv6.conf.u0.accept_dad=0
  ip netns exec srv sysctl -qw net.ipv6.conf.p0.accept_dad=0
  ip -n srv addr add 2001:db8:9::1/64 dev p0
  ip link set u0 up
  ip addr add 198.51.100.5/24 dev u0
  ip addr add 2001:db8:5::5/64 dev u0
  ip route add default via 198.51.100.1 dev u0
  ip netns exec srv dnsmasq --no-resolv --no-hosts --leasefile-ro --bind-interfaces --interface=p0 \
    --pid-file=/run/tarn-scene-dnsmasq.pid --enable-ra --dhcp-range=2001:db8:9::,ra-only,64
  wait_for "ip -6 addr show dev u0 | grep -q 2001:db8:9:"
  wait_for "ip -6 route show default | grep -q via"
}

# No NIC at all.
scene_none() {
  :
}

# A NIC outside any bridge carries management; another NIC is a bridge's only port.
scene_bare() {
  ipv4_only
  start_srv
  printf 'nic = u0\nnic = u1\n' > /etc/tarn/linux-host.conf
  ip link add br0 address 02:00:00:00:01:00 type bridge
  peer u0 02:00:00:00:00:01 02:00:00:00:00:f1
  peer u1 02:00:00:00:00:02 02:00:00:00:00:f2
  ip link set u0 master br0
  for link in u0 u1 br0; do ip link set "$link" up; done
  ip addr add 203.0.113.9/24 dev u1
  ip route add default via 203.0.113.1 dev u1
}

# A link that systemd-networkd manages and says it configured by DHCP: networkd's state file and, in
# place of networkctl (networkd does not run here), a script that prints its description of the link.
scene_networkd() {
  ipv4_only
  start_srv
  if [ ! -e /usr/bin/networkctl ]; then
    echo "skipped: no /usr/bin/networkctl to stand in for"
    exit 77
  fi
  printf 'nic = u0\n' > /etc/tarn/linux-host.conf
  peer u0 02:00:00:00:00:01 02:00:00:00:00:f1
  ip link set u0 up
  ip addr add 10.7.0.5/24 dev u0
  ip route add default via 10.7.0.1 dev u0
  index=$(cat /sys/class/net/u0/ifindex)
  mkdir -p /run/systemd/netif/links
  : > "/run/systemd/netif/links/$index"
  cat > /run/tarn-networkctl <<SCRIPT
#!/bin/sh
[ "\$1 \$2 \$3" = "--json=short status u0" ] || exit 1
echo '{"Index":$index,"Name":"u0","SetupState":"configured","Addresses":[{"Family":2,"Address":[10,7,0,5],
"PrefixLength":24,"ConfigSource":"DHCPv4","ConfigProvider":[10,7,0,1]}]}'
SCRIPT
  chmod +x /run/tarn-networkctl
  mount --bind /run/tarn-networkctl /usr/bin/networkctl
}
