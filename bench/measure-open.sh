#!/usr/bin/env bash
# measure-open.sh BUILD_FOLDER [REPETITIONS]
#
# Measures what it costs to open projects of 1,000, 10,000 and 100,000 topics, beside a plain
# HTML parse of the same contents and index files, and the same projects converted to JavaHelp,
# which has no titles in its files: they are read from the topics. Everything is measured in one
# run, in turns, so that a machine that slows down meanwhile slows down both sides.
set -euo pipefail

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    echo "usage: $0 BUILD_FOLDER [REPETITIONS]" >&2
    exit 2
fi
build=$1
repetitions=${2:-7}
export LC_ALL=C
TIMEFORMAT=%3R

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config
mkdir "$work/samples"

for topics in 1000 10000 100000; do
    "$build/bench/make-project" "$work/$topics" "$topics" >/dev/null
done
for topics in 1000 10000; do
    "$build/quorrel-cli" convert "$work/$topics/manual.hhp" >/dev/null
    # Without its titles an HTML Help project takes them from the topics as well.
    sed '/^;Title=/d' "$work/$topics/manual.hhp" >"$work/$topics/untitled.hhp"
done

# The seconds that one run of a command takes, from RUNS of them: "sample NAME RUNS COMMAND...".
sample() {
    local name=$1 runs=$2 i
    shift 2
    { time for ((i = 0; i < runs; i++)); do "$@" >/dev/null 2>&1 || true; done; } \
        2>"$work/time"
    awk -v runs="$runs" '{ printf "%.5f\n", $1 / runs }' "$work/time" >>"$work/samples/$name"
}

dump() { "$build/quorrel-cli" --edition html dump "$work/$1/manual.hhp"; }
dump_untitled() { "$build/quorrel-cli" --edition html dump "$work/$1/untitled.hhp"; }
dump_java() { "$build/quorrel-cli" --edition javahelp dump "$work/$1/manual.hs"; }
parse() { xmllint --html --noout "$work/10000/manual.hhc" "$work/10000/manual.hhk"; }

median() { sort -n "$work/samples/$1" | awk '{ v[NR] = $1 }
    END { m = int((NR + 1) / 2); print NR % 2 ? v[m] : (v[m] + v[m + 1]) / 2 }'; }
least() { sort -n "$work/samples/$1" | head -n 1; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

# The highest resident memory of one dump in KiB; empty without a time program that tells it.
peak() {
    local program
    program=$(type -P time) || return 0
    "$program" -f %M -o "$work/peak" \
        "$build/quorrel-cli" --edition html dump "$work/$1/manual.hhp" >/dev/null || return 0
    tail -n 1 "$work/peak"
}

have_xmllint=$(type -P xmllint || true)
for topics in 1000 10000 100000; do dump "$topics" >/dev/null; done # to fill the file cache
for ((turn = 0; turn < repetitions; turn++)); do
    sample 1000 10 dump 1000
    sample 10000 1 dump 10000
    if [ -n "$have_xmllint" ]; then sample xmllint 1 parse; fi
    sample 100000 1 dump 100000
    sample java1000 10 dump_java 1000
    sample java10000 1 dump_java 10000
    sample untitled 1 dump_untitled 10000
done

echo "median and least seconds of $repetitions turns; memory is the highest resident size"
for topics in 1000 10000 100000; do
    bytes=$(cat "$work/$topics"/manual.{hhp,hhc,hhk,ali,h} | wc -c)
    kib=$(peak "$topics")
    printf 'dump %6d topics: %8.4f s  (least %.4f)  files %10d bytes' \
        "$topics" "$(median "$topics")" "$(least "$topics")" "$bytes"
    if [ -n "$kib" ]; then
        printf '  memory %7d KiB  memory/files %s' "$kib" "$(ratio "$((kib * 1024))" "$bytes")"
    fi
    echo
done
if [ -n "$have_xmllint" ]; then
    printf 'xmllint 10000 topics: %6.4f s  (least %.4f)\n' "$(median xmllint)" "$(least xmllint)"
    echo "dump(10000) / xmllint(10000): $(ratio "$(median 10000)" "$(median xmllint)")"
fi
for topics in 1000 10000; do
    printf 'JavaHelp %6d topics: %6.4f s  (least %.4f)\n' \
        "$topics" "$(median "java$topics")" "$(least "java$topics")"
done
awk -v java="$(median java10000)" -v html="$(median 10000)" -v untitled="$(median untitled)" 'BEGIN {
    titles = untitled - html
    printf "titles of 10000 topics: %.4f s\n", titles
    printf "JavaHelp(10000) / (1.2 HTML Help(10000) + titles): %.2f\n", java / (1.2 * html + titles) }'
echo "JavaHelp(10000) / JavaHelp(1000): $(ratio "$(median java10000)" "$(median java1000)")"
echo "dump(10000) / dump(1000):     $(ratio "$(median 10000)" "$(median 1000)")"
echo "dump(100000) / dump(10000):   $(ratio "$(median 100000)" "$(median 10000)")"
