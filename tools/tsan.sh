#!/bin/sh
# Runs the suite built with ThreadSanitizer (make tsan). Every process the
# suite starts writes its reports into DIR/tsan-reports/; any report, or a
# failing test, fails the run.
#
#   tools/tsan.sh BUILD_DIR [JOBS]
set -u
dir=$(cd "$1" && pwd)
jobs=${2:-2}
reports="$dir/tsan-reports"
rm -rf "$reports"
mkdir -p "$reports"
TSAN_OPTIONS="suppressions=$(cd "$(dirname "$0")" && pwd)/tsan.supp log_path=$reports/report second_deadlock_stack=1 ${TSAN_OPTIONS:-}"
export TSAN_OPTIONS
# Qt 6's clone() of a child into the parent's memory, made a real fork.
LD_PRELOAD="$dir/lib/libradio-tsanclone.so${LD_PRELOAD:+:$LD_PRELOAD}"
export LD_PRELOAD
status=0
(cd "$dir" && ctest --output-on-failure -j "$jobs") || status=$?
# The runtime writes a file only when it has something to say: a warning
# (race, lock-order inversion), or why it crashed or gave up.
files=$(find "$reports" -name 'report.*' | wc -l)
if [ "$files" -gt 0 ]; then
    cat "$reports"/report.*
    warnings=$(cat "$reports"/report.* | grep -c '^WARNING: ThreadSanitizer')
    echo "tsan: $warnings ThreadSanitizer warnings in $files reports, in $reports" >&2
    exit 1
fi
[ "$status" -eq 0 ] && echo "tsan: no ThreadSanitizer report"
exit "$status"
