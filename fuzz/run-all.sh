#!/usr/bin/env bash
# run-all.sh BUILD_FOLDER SECONDS [TARGET...]
#
# Runs each fuzz target for that long, one after the other. New inputs and those that break
# something go to BUILD_FOLDER/fuzz/corpus and BUILD_FOLDER/fuzz/artifacts; the seeds stay as
# they are. Fails if a target failed.
set -euo pipefail

if [ $# -lt 2 ]; then
    echo "usage: $0 BUILD_FOLDER SECONDS [TARGET...]" >&2
    exit 2
fi
build=$(cd "$1" && pwd)/fuzz
seconds=$2
seeds=$(cd "$(dirname "$0")" && pwd)/seeds
shift 2
if [ $# -eq 0 ]; then
    for program in "$build"/fuzz_*; do
        if [ -f "$program" ] && [ -x "$program" ]; then set -- "$@" "${program##*/fuzz_}"; fi
    done
fi

failed=()
for target in "$@"; do
    corpus=$build/corpus/$target
    artifacts=$build/artifacts/$target
    log=$build/$target.log
    mkdir -p "$corpus" "$artifacts"
    result=passed
    "$build/fuzz_$target" -max_total_time="$seconds" -max_len=65536 -timeout=10 \
        -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$artifacts/" \
        "$corpus" "$seeds/$target" >"$log" 2>&1 || result=FAILED
    if [ "$result" = FAILED ]; then failed+=("$target"); fi
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    echo "$target: $result, ${runs:-?} runs, log in $log"
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "failed: ${failed[*]}" >&2
    exit 1
fi
