#!/bin/sh
# Installs what the AArch64 board build needs on a Debian 12 build machine:
# the cross compiler, Qt for arm64 (the major in RADIO_QT_MAJOR, 5 when
# unset) from Debian's multiarch archive (the host tools moc, uic, rcc and
# the catalogue tools stay the build machine's own) and the user-mode
# emulator that runs the cross-built programs.
set -e
cd "$(dirname "$0")/.."
./cmake/install-deps.sh
if [ "${RADIO_QT_MAJOR:-5}" = 6 ]; then
    QT_ARM64="qt6-base-dev:arm64 libqt6test6:arm64 libqt6network6:arm64 libqt6widgets6:arm64 libqt6gui6:arm64"
else
    QT_ARM64="qtbase5-dev:arm64 libqt5test5:arm64 libqt5network5:arm64 libqt5widgets5:arm64 libqt5gui5:arm64"
fi
./cmake/install-deps.sh g++-aarch64-linux-gnu qemu-user-static dpkg-dev $QT_ARM64 libgl-dev:arm64 libpcap-dev:arm64
