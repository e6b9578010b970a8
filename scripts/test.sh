#!/usr/bin/env bash
# Sets up, builds and runs the whole test suite: the regular build, then the
# same sources under AddressSanitizer and UndefinedBehaviorSanitizer (clang,
# which also builds the fuzz harnesses), then each fuzz harness for a bounded time.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
jobs="$(nproc 2>/dev/null || echo 2)"

echo "== regular build (with the benchmarks, so that they always compile)"
"$here/scripts/setup.sh" "$here/build" -DMX_BUILD_BENCHMARKS=ON
(cd "$here/build" && ctest --output-on-failure --parallel "$jobs")

echo "== sanitizer build (ASan + UBSan)"
"$here/scripts/setup.sh" "$here/build-sanitize" \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_BUILD_TYPE=Debug -DMX_BUILD_FUZZERS=ON -DMX_BUILD_BENCHMARKS=OFF
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
export LSAN_OPTIONS="suppressions=$here/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
(cd "$here/build-sanitize" && ctest --output-on-failure --parallel "$jobs")

if [ -x "$here/fuzz/run-fuzzers.sh" ]; then
    echo "== fuzzing"
    "$here/fuzz/run-fuzzers.sh" "$here/build-sanitize"
fi
