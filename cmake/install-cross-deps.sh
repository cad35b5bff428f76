#!/bin/sh
# Installs what the AArch64 board build needs on a Debian 12 build machine:
# the cross compiler, Qt 5 for arm64 from Debian's multiarch archive (the
# host tools moc, uic, rcc and the catalogue tools stay the build machine's
# own) and the user-mode emulator that runs the cross-built programs.
set -e
cd "$(dirname "$0")/.."
./cmake/install-deps.sh
./cmake/install-deps.sh g++-aarch64-linux-gnu qemu-user-static dpkg-dev \
    qtbase5-dev:arm64 libqt5test5:arm64 libqt5network5:arm64 libqt5widgets5:arm64 \
    libqt5gui5:arm64 libgl-dev:arm64
