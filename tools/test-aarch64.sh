#!/bin/sh
# Runs the cross-built suite under user-mode emulation (qemu-user), then the
# offscreen tour of the cross-built head unit with the cross-built plugin and
# tuner simulator, and leaves the tour's screenshots in <build-dir>/demo-tour.
#
# Usage: tools/test-aarch64.sh [build-dir]      (default: build-aarch64)
set -eu

source_dir=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$source_dir/build-aarch64}" && pwd)
started=$(date +%s)
if [ "$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi

emulator=$(command -v qemu-aarch64-static || command -v qemu-aarch64 || true)
if [ -z "$emulator" ]; then
    echo "test-aarch64: no qemu-aarch64; run make cross-deps" >&2
    exit 1
fi

# ctest starts each suite through the emulator itself, but suites and the
# demo start cross-built programs of their own: the kernel has to hand
# AArch64 executables to the emulator (binfmt_misc). qemu-user-static ships
# the registration; without systemd nobody applies it.
binfmt=/proc/sys/fs/binfmt_misc
[ -e "$binfmt/register" ] || $SUDO mount -t binfmt_misc binfmt_misc "$binfmt"
if ! grep -qs '^enabled' "$binfmt/qemu-aarch64"; then
    echo "test-aarch64: registering $emulator for AArch64 executables (binfmt_misc)"
    grep -v '^#' /usr/lib/binfmt.d/qemu-aarch64.conf | $SUDO tee "$binfmt/register" >/dev/null
fi

# ctest runs each suite through cmake/qemu-aarch64-run.sh, which preloads
# the workaround for the emulator's missing clone(CLONE_PIDFD) and refuses
# to run anything when QProcess would still be unsafe. Check that once here.
if ! "$source_dir/cmake/qemu-aarch64-run.sh" "$build" "$build/bin/radio-qemucompat-check"; then
    echo "test-aarch64: not running the suite" >&2
    exit 1
fi

jobs=$(nproc 2>/dev/null || echo 2)
log="$build/test-aarch64.log"
echo "test-aarch64: the suite under $emulator (log: $log)"
ctest_status=0
(cd "$build" && ctest --output-on-failure -j "$jobs") >"$log" 2>&1 || ctest_status=$?
grep -E '^ *[0-9]+/[0-9]+ Test +#' "$log" || true
grep -E '^[0-9]+% tests passed|^Total Test time' "$log" || true

echo "test-aarch64: the tour of the cross-built head unit"
tour_status=0
env -u DISPLAY -u WAYLAND_DISPLAY "$source_dir/tools/demo.sh" "$build" || tour_status=$?

elapsed=$(( $(date +%s) - started ))
echo "test-aarch64: done in $((elapsed / 60)) min $((elapsed % 60)) s"
if [ "$ctest_status" -ne 0 ]; then
    echo "test-aarch64: failed:" $(sed 's/^[0-9]*://' "$build/Testing/Temporary/LastTestsFailed.log" 2>/dev/null) >&2
    exit 1
fi
if [ "$tour_status" -ne 0 ]; then
    echo "test-aarch64: the tour failed (exit $tour_status; log: $build/demo-headunit.log)" >&2
    exit 1
fi
