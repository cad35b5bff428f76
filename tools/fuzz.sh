#!/bin/sh
# Runs every libFuzzer target of a `make fuzz` build for SECONDS each, from
# the seed corpus in fuzz/corpus/<target>/ (and the dictionary
# fuzz/dict/<target>.dict where there is one). New inputs gather in
# BUILD_DIR/corpus/<target>/; a crash, leak, timeout or sanitizer report
# stops the run with the reproducer's path.
#
#   tools/fuzz.sh BUILD_DIR SECONDS [TARGET...]
set -u
dir=$(cd "$1" && pwd)
seconds=$2
shift 2
src=$(cd "$(dirname "$0")/.." && pwd)
targets=${*:-$(cat "$dir/fuzz-targets.txt")}
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="abort_on_error=1:detect_leaks=1:${ASAN_OPTIONS:-}"
export LSAN_OPTIONS="suppressions=$src/fuzz/lsan.supp:print_suppressions=0:${LSAN_OPTIONS:-}"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:${UBSAN_OPTIONS:-}"
mkdir -p "$dir/artifacts"
for t in $targets; do
    corpus="$dir/corpus/$t"
    mkdir -p "$corpus"
    dict=""
    [ -f "$src/fuzz/dict/$t.dict" ] && dict="-dict=$src/fuzz/dict/$t.dict"
    echo "== $t: $seconds s"
    log="$dir/artifacts/$t.log"
    # shellcheck disable=SC2086
    "$dir/bin/$t" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=4096 -print_final_stats=1 \
        -artifact_prefix="$dir/artifacts/$t-" $dict "$corpus" "$src/fuzz/corpus/$t" >"$log" 2>&1
    status=$?
    sed -n 's/^INFO: Loaded \([0-9]*\) modules *(\([0-9]*\) inline 8-bit counters).*/instrumented: \2 counters in \1 modules/p' "$log" | head -1
    grep -E "^#[0-9]+[[:space:]]+DONE|^stat::(number_of_executed_units|average_exec_per_sec)" "$log"
    if [ "$status" -ne 0 ]; then
        tail -60 "$log"
        unit=$(sed -n 's/.*Test unit written to \(.*\)$/\1/p' "$log" | tail -1)
        echo "fuzz: $t failed (exit $status); reproduce with: $dir/bin/$t ${unit:-<input>}; full log $log" >&2
        exit 1
    fi
done
echo "fuzz: all targets clean"
