#!/bin/bash
# What painting costs the real head unit, measured from outside the process
# for one or more build folders side by side (say a build of an older
# commit and the current one):
#
#   bench/headunit/bench_painting.sh [-s SECONDS] [-n RECORDS] [-r ROUNDS] BUILD_DIR...
#
# For each build, on one Xvfb server started here (1280x720x24): its
# radio-tunersim serves a station whose radio text is too long for its box,
# its radio-headunit shows it, and over SECONDS (default 20) after a 5 s
# settle the script reads from /proc the shell's CPU time (all threads),
# the X server's, and the shell's voluntary plus involuntary context
# switches (all threads). The same for a text that fits, which must cost
# nothing. Then each build's bench_statusflood floods RECORDS (default
# 200000) records through the real shell on the same X server, in ROUNDS
# (default 2) rounds whose order of builds alternates: a flood measured
# later in a run was seen to run 10-15 % slower than the same build
# measured first.
#
# Binds @kestrelhub and /tmp/_tnlk: run it alone, or under
# ../shared/tools/iso. Needs Xvfb (xvfb), which `make test` installs.
set -u
seconds=20
records=200000
rounds=2
while getopts "s:n:r:" opt; do
    case $opt in
    s) seconds=$OPTARG ;;
    n) records=$OPTARG ;;
    r) rounds=$OPTARG ;;
    *) exit 64 ;;
    esac
done
shift $((OPTIND - 1))
[ $# -ge 1 ] || { echo "usage: $0 [-s SECONDS] [-n RECORDS] [-r ROUNDS] BUILD_DIR..." >&2; exit 64; }

work=$(mktemp -d)
display=:$((90 + RANDOM % 9))
Xvfb "$display" -screen 0 1280x720x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null; rm -rf "$work"' EXIT
for _ in $(seq 50); do [ -e "/tmp/.X11-unix/X${display#:}" ] && break; sleep 0.1; done
export DISPLAY=$display

hz=$(getconf CLK_TCK)
# utime + stime of a process, all its threads, in clock ticks.
ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
# Context switches of every thread of a process.
switches() {
    cat /proc/"$1"/task/*/status 2>/dev/null |
        awk '/^(non)?voluntary_ctxt_switches/ { n += $2 } END { print n + 0 }'
}

# measure BUILD TEXT: "shell-cpu% x-cpu% switches/s" while TEXT is shown.
measure() {
    local build=$1 text=$2 sim shell s0 x0 c0 s1 x1 c1
    printf 'freq,ps,pty,tp,rt,signal\n88.0,BENCH,10,0,%s,70\n' "$text" >"$work/lineup.csv"
    "$build/bin/radio-tunersim" --lineup "$work/lineup.csv" --rds-speed 20 >"$work/sim.log" 2>&1 &
    sim=$!
    for _ in $(seq 50); do grep -q ' @kestrelhub$' /proc/net/unix && break; sleep 0.1; done
    env -u QT_QPA_PLATFORM "$build/bin/radio-headunit" --frameless --lang en --settings "$work/settings-$RANDOM.ini" >"$work/shell.log" 2>&1 &
    shell=$!
    sleep 5
    if ! kill -0 $shell 2>/dev/null; then
        echo "$build: the shell did not stay up:" >&2
        cat "$work/shell.log" >&2
        exit 1
    fi
    s0=$(ticks $shell) x0=$(ticks $xvfb) c0=$(switches $shell)
    sleep "$seconds"
    s1=$(ticks $shell) x1=$(ticks $xvfb) c1=$(switches $shell)
    kill $shell $sim 2>/dev/null
    wait $shell $sim 2>/dev/null
    awk -v s=$((s1 - s0)) -v x=$((x1 - x0)) -v c=$((c1 - c0)) -v t="$seconds" -v hz="$hz" \
        'BEGIN { printf "%.2f %.2f %.0f", 100 * s / hz / t, 100 * x / hz / t, c / t }'
}

long="Now playing: a radio text far too long for its box, so it scrolls from right to left all the time"
declare -A rolling fitting flood
for build in "$@"; do
    build=$(cd "$build" && pwd)
    rolling[$build]=$(measure "$build" "$long")
    fitting[$build]=$(measure "$build" "Short text")
done
order=()
for build in "$@"; do order+=("$(cd "$build" && pwd)"); done
for round in $(seq "$rounds"); do
    for build in "${order[@]}"; do
        flood[$build]+="round $round:"$'\n'$(QT_QPA_PLATFORM=xcb "$build/bin/bench_statusflood" "$records" 2>&1 |
            grep -E '^(handled|GUI|resident|snapshots)')$'\n'
    done
    reversed=()
    for ((i = ${#order[@]} - 1; i >= 0; i--)); do reversed+=("${order[i]}"); done
    order=("${reversed[@]}")
done

# table TITLE ARRAY: one line per build of "shell-cpu% x-cpu% switches/s".
table() {
    local -n rows=$2
    printf '\n%-44s %12s %12s %14s\n' "$1" "shell CPU %" "X CPU %" "switches/s"
    for build in "${builds[@]}"; do
        read -r s x c <<<"${rows[$build]}"
        printf '%-44s %12s %12s %14s\n' "$build" "$s" "$x" "$c"
    done
}
builds=()
for build in "$@"; do builds+=("$(cd "$build" && pwd)"); done
table "build: scrolling radio text, $seconds s" rolling
table "build: radio text that fits" fitting
for build in "$@"; do
    build=$(cd "$build" && pwd)
    printf '\nflood of %s records, %s:\n%s' "$records" "$build" "${flood[$build]}"
done
