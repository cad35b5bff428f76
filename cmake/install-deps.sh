#!/bin/sh
# Installs the Debian packages the build, the tests and the demo need,
# asking apt only for what is missing.
set -e
PACKAGES="cmake make g++ pkg-config qtbase5-dev qtbase5-dev-tools qttools5-dev-tools qttools5-dev libqt5test5 fonts-dejavu-core xvfb xauth"
missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0
echo "Installing:$missing"
if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends $missing
