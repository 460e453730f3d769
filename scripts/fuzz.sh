#!/usr/bin/env bash
# Builds the fuzz target with clang, libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer in
# a build folder of its own and runs it for SECONDS (WORKERS processes, default 1). Exits non-zero
# on any finding; the input that found it is left in the build folder's fuzz-findings/ (run
# `build-fuzz/fuzz/pandrel-fuzz FILE` to see it again). The corpus grows in fuzz-corpus/ from one
# run to the next; the seeds are the databases of the sample handheld and of the built-in
# applications' handhelds that pandrel-estandar builds.
# Usage: scripts/fuzz.sh SECONDS [WORKERS]
set -euo pipefail
seconds="${1:?usage: scripts/fuzz.sh SECONDS [WORKERS]}"
workers="${2:-1}"
root=$(cd "$(dirname "$0")/.." && pwd)
build="${PANDREL_FUZZ_BUILD:-$root/build-fuzz}"

command -v clang++ >/dev/null || { echo "scripts/fuzz.sh needs clang (Debian: clang)" >&2; exit 2; }
# libFuzzer's runtime comes with the compiler runtime package of clang's version.
probe='extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }'
if ! echo "$probe" | clang++ -x c++ - -fsanitize=fuzzer -o /dev/null 2>/dev/null; then
    version=$(clang++ -dumpversion | cut -d. -f1)
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "Installing: libclang-rt-$version-dev"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "libclang-rt-$version-dev" >/dev/null
fi

CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DPANDREL_FUZZ=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" --target pandrel-fuzz pandrel-muestra pandrel-estandar

# Seeds: every database of the sample and of the built-in applications' handhelds, behind first
# bytes that pick each kind of write (and, with 0x40, Shift_JIS for the decoders).
seeds="$build/fuzz-seeds"
rm -rf "$seeds" && mkdir -p "$seeds/sample"
"$build/tools/pandrel-muestra" "$seeds/sample" >/dev/null
"$build/tools/pandrel-estandar" "$seeds/sample/estandar" >/dev/null
"$build/tools/pandrel-estandar" --japanese "$seeds/sample/japones" >/dev/null
for file in "$seeds"/sample/estandar/*.pdb "$seeds"/sample/japones/*.pdb; do
    mv "$file" "$seeds/sample/$(basename "$(dirname "$file")")-$(basename "$file")"
done
for file in "$seeds"/sample/*.pdb "$seeds"/sample/*.prc; do
    for mode in 00 01 02 03 24 47 5c 83; do
        { printf "\\x$mode"; cat "$file"; } >"$seeds/$(basename "$file").$mode"
    done
done
rm -rf "$seeds/sample"
mkdir -p "$build/fuzz-corpus" "$build/fuzz-findings"

# The folder of each input lives in memory when it can: the target writes a file per input.
[ -w /dev/shm ] && export TMPDIR=/dev/shm
# Allocation stacks are left out of reports and fresh memory is not filled, for speed; running
# the finding again shows the stacks.
export ASAN_OPTIONS="malloc_context_size=0:max_malloc_fill_size=0:detect_leaks=1:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="print_stacktrace=1:${UBSAN_OPTIONS:-}"
logs="$build/fuzz-logs"
rm -rf "$logs" && mkdir -p "$logs"
# Each worker is a whole fuzzing process on the shared corpus.
pids=()
for worker in $(seq 1 "$workers"); do
    "$build/fuzz/pandrel-fuzz" -max_total_time="$seconds" -max_len=4096 -entropic=0 -timeout=10 \
        -rss_limit_mb=2048 -artifact_prefix="$build/fuzz-findings/" -print_final_stats=1 \
        "$build/fuzz-corpus" "$seeds" >"$logs/worker-$worker.log" 2>&1 &
    pids+=($!)
done
status=0
for pid in "${pids[@]}"; do
    wait "$pid" || status=$?
done
executions=$(cat "$logs"/worker-*.log | awk '/stat::number_of_executed_units/ { n += $2 } END { print n + 0 }')
echo "executions: $executions in $seconds s, $workers worker(s)"
if [ "$status" -ne 0 ]; then
    echo "FINDING (status $status): see $logs and $build/fuzz-findings" >&2
    grep -h -A3 -E "ERROR:|broken promise|SUMMARY" "$logs"/worker-*.log >&2 || true
    exit 1
fi
echo "no finding"
