#!/bin/sh
# Installs what the AArch64 board build needs on a Debian 12 build machine:
# the cross compiler, Qt 5 for arm64 from Debian's multiarch archive (the
# host tools moc, uic and rcc stay the build machine's own) and the user-mode
# emulator that runs the cross-built programs. Asks apt only for what is
# missing.
set -e
cd "$(dirname "$0")/.."
./cmake/install-deps.sh

if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi
APT="$SUDO env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600"

PACKAGES="g++-aarch64-linux-gnu qemu-user-static dpkg-dev
    qtbase5-dev:arm64 libqt5test5:arm64 libqt5network5:arm64 libqt5widgets5:arm64
    libqt5gui5:arm64 libgl-dev:arm64"
missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0

updated=""
if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    echo "Adding the arm64 architecture"
    $SUDO dpkg --add-architecture arm64
    $APT update -qq
    updated=yes
fi
echo "Installing:$missing"
[ -n "$updated" ] || $APT update -qq
$APT install -y -qq --no-install-recommends $missing
