#!/bin/sh
# The radio screen demo: starts the tuner simulator, waits until it
# listens, then runs the head unit against it. Without a display the head
# unit runs its scripted tour offscreen and leaves one screenshot per step.
#
# Usage: tools/demo.sh <build-dir> [extra radio-headunit options]
#        tools/demo.sh build --lang de      (the radio screen in German)
set -eu

if [ $# -lt 1 ]; then
    echo "usage: $0 <build-dir> [radio-headunit options]" >&2
    exit 64
fi
build=$(cd "$1" && pwd)
shift
sim="$build/bin/radio-tunersim"
headunit="$build/bin/radio-headunit"
socket_name=kestrelhub
listen_timeout_s=10

for program in "$sim" "$headunit"; do
    if [ ! -x "$program" ]; then
        echo "demo: $program is missing; build first (make build)" >&2
        exit 1
    fi
done

# The simulator's abstract socket is machine-wide: a tuner that already
# listens would take the head unit's connection instead of ours.
listening() {
    grep -q " @$socket_name\$" /proc/net/unix
}
if listening; then
    echo "demo: something already listens on @$socket_name; stop it first" >&2
    exit 1
fi

sim_log="$build/demo-tunersim.log"
"$sim" --name "$socket_name" >"$sim_log" 2>&1 &
sim_pid=$!
stop_sim() {
    kill "$sim_pid" 2>/dev/null || true
    wait "$sim_pid" 2>/dev/null || true
}
trap stop_sim EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

waited=0
until listening; do
    if ! kill -0 "$sim_pid" 2>/dev/null; then
        echo "demo: the tuner simulator stopped before it listened:" >&2
        cat "$sim_log" >&2
        exit 1
    fi
    if [ "$waited" -ge $((listen_timeout_s * 10)) ]; then
        echo "demo: the tuner simulator did not listen on @$socket_name within ${listen_timeout_s}s" >&2
        exit 1
    fi
    sleep 0.1
    waited=$((waited + 1))
done
echo "demo: tuner simulator listening on @$socket_name (log: $sim_log)"

# The radio screen's link prints a line per tuner record on standard
# output: that goes to a log, the head unit's messages stay on the terminal.
headunit_log="$build/demo-headunit.log"
settings="$build/demo-settings.ini"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    tour="$build/demo-tour"
    rm -rf "$tour"
    echo "demo: no display; running the scripted tour offscreen"
    status=0
    QT_LOGGING_RULES="${QT_LOGGING_RULES:-default.debug=false}" QT_QPA_PLATFORM=offscreen "$headunit" --settings "$settings" --tour "$tour" "$@" >"$headunit_log" || status=$?
    echo "demo: screenshots of the tour are in $tour"
    exit "$status"
fi

echo "demo: starting the head unit (F1 home, F2 radio, Ctrl+L next language, Ctrl+Q quits; log: $headunit_log)"
"$headunit" --settings "$settings" "$@" >"$headunit_log"
