#!/usr/bin/env bash
# Builds the .deb from a built tree and checks it as an administrator would meet it: its control data,
# lintian, apt's dry run against this machine, an install and purge by dpkg in a scratch root, the unit
# through systemd-analyze, and the installed programs themselves (--version, simhost init, the console
# creating its default host, an end-to-end smoke run). Nothing is installed on this machine.
# Usage: install_test.sh BUILD_DIR VERSION INSTALL_PREFIX
set -euo pipefail
build=$(cd "$1" && pwd)
version=$2
if [ "$3" != /usr ]; then
  echo "skipped: $build is configured for the prefix $3; a Debian package needs /usr:"
  echo "  cmake -S . -B $1 -DCMAKE_INSTALL_PREFIX=/usr"
  exit 77
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/tarn-package.XXXXXX")
trap 'rm -rf "$work"' EXIT
failures=0
quiet() { "$@" >/dev/null; }
check() { # check DESCRIPTION COMMAND...: runs the command; reports and counts a failure
  local what=$1
  shift
  if "$@"; then echo "ok: $what"; else echo "FAILED: $what"; failures=$((failures + 1)); fi
}

echo "== cpack"
cpack --config "$build/CPackConfig.cmake" -B "$work/out" >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; exit 1; }
deb=$(ls "$work"/out/tarn_"$version"_*.deb)
echo "built $(basename "$deb")"

echo "== control data"
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
depends_on() { tr ',' '\n' <<<"$depends" | sed 's/^ *//; s/ .*//' | grep -qxF "$1"; }
for package in libc6 libncursesw6 libstdc++6 libpam0g libpam-runtime less libnl-3-200 libnl-route-3-200; do
  check "depends on $package" depends_on "$package"
done
conffiles() { dpkg-deb --ctrl-tarfile "$deb" | tar -xOf - ./conffiles; }
check "the PAM service is a conffile" grep -qx /etc/pam.d/tarn <(conffiles)
listing=$(dpkg-deb -c "$deb" | awk '{ print $6 ($7 ? " " $7 " " $8 : "") }')
for path in ./usr/sbin/tarn ./usr/libexec/tarn/simhost ./usr/libexec/tarn/simhost-tool \
            ./usr/libexec/tarn/pam_simhost.so "./usr/bin/simhost -> ../libexec/tarn/simhost" \
            ./usr/share/man/man8/tarn.8.gz ./usr/share/man/man1/simhost.1.gz ./etc/pam.d/tarn \
            ./lib/systemd/system/tarn@.service ./usr/share/doc/tarn/copyright ./usr/share/doc/tarn/changelog.gz; do
  check "ships $path" grep -qxF "$path" <<<"$listing"
done
# Enabling would show as a .wants link or as maintainer scripts that call systemctl.
not_enabled() {
  ! grep -q '\.wants/' <<<"$listing" && ! dpkg-deb --ctrl-tarfile "$deb" | tar -t | grep -qE 'inst$|rm$'
}
check "the unit is installed, not enabled" not_enabled

echo "== lintian"
lintian "$deb" 2>&1 | grep -v 'root privileges' | tee "$work/lintian.txt" || true
check "lintian reports no errors" bash -c '! grep -q "^E:" "$1"' _ "$work/lintian.txt"

echo "== apt, simulated, on this machine"
apt_simulates() { apt-get -s -qq install "$deb" >"$work/apt.log" 2>&1 || { cat "$work/apt.log"; false; }; }
check "apt would install it here" apt_simulates

echo "== dpkg install and purge in a scratch root"
droot=$work/dpkg-root
mkdir -p "$droot"/var/lib/dpkg/{info,updates,triggers}
touch "$droot"/var/lib/dpkg/{status,available}
dpkg_root() { dpkg --root="$droot" --force-script-chrootless --log=/dev/null "$@" >"$work/dpkg.log" 2>&1; }
check "installs" dpkg_root --force-depends -i "$deb"
check "is installed" grep -qx 'Status: install ok installed' <(dpkg --root="$droot" -s tarn)
check "purges" dpkg_root -P tarn
check "leaves nothing after the purge" test -z "$(cd "$droot" && find . ! -type d ! -path './var/lib/dpkg/*')"

echo "== the unit"
root=$work/root
dpkg -x "$deb" "$root"
vroot=$work/verify-root # the package's files beside this machine's units, for the targets it names
cp -a "$root" "$vroot"
cp -an /lib/systemd/system/. "$vroot/lib/systemd/system/"
verify_unit() {
  local out
  out=$(systemd-analyze verify --man=no --root="$vroot" tarn@tty2.service 2>&1) && [ -z "$out" ] || { echo "$out"; false; }
}
check "systemd-analyze verify accepts tarn@tty2.service" verify_unit

echo "== the installed programs"
check "tarn links the shared C++ runtime" grep -q 'NEEDED.*libstdc++' <(readelf -d "$root/usr/sbin/tarn")
check "tarn --version prints $version" test "$("$root/usr/sbin/tarn" --version 2>&1)" = "tarn $version"
check "man shows tarn(8)" grep -q TARN_HOST <(MANWIDTH=80 man -l "$root/usr/share/man/man8/tarn.8.gz" 2>/dev/null)
host=$work/host
check "simhost init through the link on the PATH" quiet "$root/usr/bin/simhost" init "$host" --scenario dhcp
check "the host got the installed tool" cmp -s "$root/usr/libexec/tarn/simhost-tool" "$host/bin/kelp-cmd"
check "the host got the installed PAM module" \
  cmp -s "$root/usr/libexec/tarn/pam_simhost.so" "$host/lib/security/pam_simhost.so"
check "a tool of that host answers" quiet "$host/bin/tesping" -c 1 192.0.2.1
# With TARN_HOST unset the installed console creates its default host with the installed simhost before it
# opens the terminal (there is none here, so it ends then).
state=$work/state
env -u TARN_HOST XDG_STATE_HOME="$state" TERM=dumb timeout 10 "$root/usr/sbin/tarn" </dev/null >/dev/null 2>&1 || true
check "the console creates its default host through the installed simhost" \
  test -f "$state/tarn/simhost/etc/simhost/host.json"

echo "== end-to-end smoke test against the installed programs"
view=$work/programs # the harness takes tarn and simhost from one directory
mkdir -p "$view"
ln -s "$root/usr/sbin/tarn" "$view/tarn"
ln -s "$root/usr/bin/simhost" "$view/simhost"
check "e2e smoke" env TARN_BUILD_DIR="$view" TARN_E2E_OUT="$work/e2e-out" "$build/e2e_tests" --gtest_brief=1 \
  '--gtest_filter=Welcome.DefaultHost*:Login.EscThenWrong*:Power.EscRunsNothing*'

[ "$failures" -eq 0 ] && echo "package: all checks passed" || echo "package: $failures checks failed"
[ "$failures" -eq 0 ]
