#!/usr/bin/env bash
# Runs every fuzz harness built in BUILD_DIR: once over the inputs kept in
# regressions/<harness>/ and over the seed corpus, then for a bounded time on
# a copy of the seed corpus (the corpus in the repository does not grow).
# Exits non-zero on any crash, sanitizer report, leak or time-out; the
# offending inputs are kept in BUILD_DIR/fuzz-artifacts/<harness>/.
#
#   fuzz/run-fuzzers.sh BUILD_DIR
#   MX_FUZZ_SECONDS=600 fuzz/run-fuzzers.sh BUILD_DIR   # longer runs
set -uo pipefail

if [ $# -ne 1 ]; then
    echo "usage: $0 BUILD_DIR" >&2
    exit 2
fi
build="$(cd "$1" && pwd)" || exit 2
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
seconds="${MX_FUZZ_SECONDS:-60}"
harnesses=(curvetextconverter_fuzzer camdescriptionbinary_fuzzer camdescriptionjson_fuzzer driveproject_fuzzer camplan_fuzzer)

# Every sanitizer finding is fatal.
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:halt_on_error=1:symbolize=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
export LSAN_OPTIONS="suppressions=$here/lsan.supp:print_suppressions=0"
export QT_QPA_PLATFORM=offscreen
export LC_ALL=C.UTF-8

common=(-timeout=10 -rss_limit_mb=2048)

# Per harness: extra libFuzzer flags and extra ASan options.
harness_flags() {
    case "$1" in
        # Long enough for a line of a million characters, the size at which
        # a backtracking reader would take minutes; the converter reads such
        # a line in milliseconds, so the 20000-line seed is mutated whole too.
        curvetextconverter_fuzzer) echo "-max_len=1100000" ;;
        *) echo "" ;;
    esac
}
harness_asan() {
    case "$1" in
        # The Qt parser's own leak is suppressed by its frame, which only a
        # full unwind finds (Qt is built without frame pointers).
        camdescriptionjson_fuzzer | driveproject_fuzzer | camplan_fuzzer) echo ":fast_unwind_on_malloc=0" ;;
        *) echo "" ;;
    esac
}

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
failed=0

# Runs the harness; a non-zero exit or any sanitizer text in the log fails.
run() {
    local name="$1" log="$2"
    shift 2
    ASAN_OPTIONS="$ASAN_OPTIONS$(harness_asan "$name")" "$build/fuzz/$name" "$@" >"$log" 2>&1
    local status=$?
    if [ $status -ne 0 ] || grep -qE "runtime error:|ERROR: (Address|Leak|UndefinedBehavior)Sanitizer|ERROR: libFuzzer" "$log"; then
        echo "FAILED: $name $* (exit $status)" >&2
        grep -E "ERROR|runtime error|SUMMARY|Test unit written" "$log" | head -n 20 >&2
        return 1
    fi
    return 0
}

keep_artifacts() {
    local name="$1" from="$2"
    local to="$build/fuzz-artifacts/$name"
    mkdir -p "$to"
    cp "$from"/crash-* "$from"/leak-* "$from"/timeout-* "$from"/oom-* "$to"/ 2>/dev/null
    cp "$from"/*.log "$to"/ 2>/dev/null
    echo "  inputs and logs kept in $to" >&2
}

for name in "${harnesses[@]}"; do
    if [ ! -x "$build/fuzz/$name" ]; then
        echo "FAILED: $build/fuzz/$name is not built" >&2
        failed=1
        continue
    fi
    dir="$work/$name"
    mkdir -p "$dir/corpus" "$dir/artifacts"
    read -r -a flags <<<"$(harness_flags "$name")"

    # 1. Kept regression inputs and the seeds, each run once, whole.
    inputs=()
    for source in "$here/regressions/$name" "$here/corpus/$name"; do
        [ -d "$source" ] && while IFS= read -r -d '' file; do inputs+=("$file"); done \
            < <(find "$source" -type f -print0 | sort -z)
    done
    if [ ${#inputs[@]} -gt 0 ]; then
        echo "== $name: ${#inputs[@]} kept inputs"
        if ! run "$name" "$dir/replay.log" "${common[@]}" "${inputs[@]}"; then
            keep_artifacts "$name" "$dir"
            failed=1
            continue
        fi
    fi

    # 2. Fuzzing for a bounded time on a copy of the seeds.
    [ -d "$here/corpus/$name" ] && cp -R "$here/corpus/$name/." "$dir/corpus/"
    echo "== $name: fuzzing for $seconds s"
    if ! run "$name" "$dir/fuzz.log" "${common[@]}" ${flags[@]+"${flags[@]}"} \
            -max_total_time="$seconds" -print_final_stats=1 \
            -artifact_prefix="$dir/artifacts/" "$dir/corpus"; then
        keep_artifacts "$name" "$dir/artifacts"
        cp "$dir/fuzz.log" "$build/fuzz-artifacts/$name/" 2>/dev/null
        failed=1
        continue
    fi
    executions="$(sed -n 's/^stat::number_of_executed_units: *//p' "$dir/fuzz.log")"
    rate="$(sed -n 's/^stat::average_exec_per_sec: *//p' "$dir/fuzz.log")"
    # The edges reached: what the instrumented library and harness cover.
    edges="$(grep -oE 'cov: [0-9]+' "$dir/fuzz.log" | tail -n 1 | cut -d ' ' -f 2)"
    echo "   ${executions:-?} executions (${rate:-?}/s), ${edges:-?} edges, corpus $(find "$dir/corpus" -type f | wc -l) inputs, clean"
done

if [ $failed -ne 0 ]; then
    echo "fuzzing found problems" >&2
    exit 1
fi
echo "fuzzing clean"
