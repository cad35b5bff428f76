#!/bin/sh
# ctest's emulator for the AArch64 build (see toolchain-aarch64.cmake):
# runs one cross-built program under qemu-user.
#
# qemu-user 7.2 lets Qt's probe for pidfds through to this machine's kernel
# but refuses the clone(CLONE_PIDFD) that follows. Qt's forkfd then goes on
# with pid -1: QProcess::start() reports a child that never existed, and
# stopping it sends kill(-1, SIGTERM), which reaches every process this user
# may signal (as root: the whole machine). The preload answers the probe as
# an old kernel would; the emulator puts it into the program's environment,
# from where it passes to the programs that one starts. Nothing runs unless
# radio-qemucompat-check finds QProcess safe with it.
#
# Usage: qemu-aarch64-run.sh <build-dir> <program> [arguments]
set -eu
build=$1
shift
emulator=$(command -v qemu-aarch64-static || command -v qemu-aarch64 || true)
compat="$build/lib/libradio-qemucompat.so"
check="$build/bin/radio-qemucompat-check"
if [ -z "$emulator" ] || [ ! -f "$compat" ] || [ ! -f "$check" ]; then
    echo "qemu-aarch64-run: needs qemu-aarch64, $compat and $check (make cross)" >&2
    exit 1
fi
export QEMU_SET_ENV="LD_PRELOAD=$compat"
if ! "$emulator" -L / "$check" >/dev/null; then
    echo "qemu-aarch64-run: QProcess cannot start programs safely under $emulator; not running $1" >&2
    exit 1
fi
exec "$emulator" -L / "$@"
