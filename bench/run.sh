#!/usr/bin/env bash
# Builds all benchmarks and runs them one after the other on one core; prints medians of processor
# times. Wants a quiet machine: compare ratios within a run, not times of two runs.
#   bench/run.sh [name…]      e.g. bench_bitmaps bench_frames; all when none is named
#   KIV_BENCH_CORE=1          the core (default: the last one)
set -eu -o pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

core=${KIV_BENCH_CORE:-$(($(nproc) - 1))}
names=("$@")
[ ${#names[@]} -gt 0 ] ||
    names=(bench_executor bench_bitmaps bench_host bench_frames bench_project bench_search bench_conversion
        bench_canvas bench_bulk bench_docks bench_snapping bench_startup bench_export bench_checks)

fetch_property_browser
build_preset release build benchmarks
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"

# Google Benchmark's own table, its medians alone.
medians() {
    taskset -c "$core" "$@" --benchmark_repetitions=9 --benchmark_report_aggregates_only=true \
        2>/dev/null | grep -E '^Benchmark|_median|words of|project of'
}

echo "core $core of $(nproc), load $(cut -d' ' -f1-3 /proc/loadavg)"
for name in "${names[@]}"; do
    program=build/bench/$name
    if [ ! -x "$program" ]; then
        echo "-- $name: not built"
        continue
    fi
    echo "-- $name"
    case $name in
    bench_executor | bench_bitmaps) taskset -c "$core" "$program" ;; # print medians themselves
    bench_canvas | bench_bulk | bench_docks | bench_export | bench_checks) "$program" 2>/dev/null ;; # on all cores, as they are used
    bench_sizes) "$program" 2> >(grep ' ms ') ;;
    bench_startup) # with a screen that it looks at, and that the editor is shown on
        QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" "$program" 2>/dev/null ;;
    *) medians "$program" ;;
    esac
done
echo "load $(cut -d' ' -f1-3 /proc/loadavg)"
