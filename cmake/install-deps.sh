#!/bin/sh
# Installs Debian packages, asking apt only for what is missing: the ones
# given as arguments, else what the build, the tests and the demo need with
# the Qt major in RADIO_QT_MAJOR (5 when unset, 6).
# A package of another architecture (name:arm64) has that architecture
# added first.
set -e
case "${RADIO_QT_MAJOR:-5}" in
5) QT_PACKAGES="qtbase5-dev qtbase5-dev-tools qttools5-dev-tools qttools5-dev libqt5test5" ;;
6) QT_PACKAGES="qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libqt6test6 qt6-qpa-plugins" ;;
*) echo "install-deps: RADIO_QT_MAJOR must be 5 or 6, not $RADIO_QT_MAJOR" >&2; exit 64 ;;
esac
PACKAGES="${*:-cmake make g++ pkg-config libpcap-dev $QT_PACKAGES fonts-dejavu-core xvfb xauth}"
missing=""
for p in $PACKAGES; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0
if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi
for arch in $(printf '%s\n' $missing | sed -n 's/^[^:]*:\(.*\)$/\1/p' | sort -u); do
    if ! dpkg --print-foreign-architectures | grep -qx "$arch"; then
        echo "Adding the $arch architecture"
        $SUDO dpkg --add-architecture "$arch"
    fi
done
echo "Installing:$missing"
APT="$SUDO env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600"
$APT update -qq
$APT install -y -qq --no-install-recommends $missing
