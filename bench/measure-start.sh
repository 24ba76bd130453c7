#!/usr/bin/env bash
# Compares the start of the program with that of an empty web-engine window, warm and, for the
# super-user, cold (the system's file cache emptied before each start). Needs a screen or
# QT_QPA_PLATFORM=offscreen.
#   bench/measure-start.sh BUILD_FOLDER [TURNS]
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
benchmark=$1/bench/start-benchmark
turns=${2:-7}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R "$root/samples/htmlhelp" "$work/sample"
mkdir -p "$work/config/quorrel"
printf '[Recent HTML Projects]\r\n0=Z:%s|Sample\r\n' \
    "$(echo "$work/sample/sourdough.hhp" | tr / '\\')" >"$work/config/quorrel/qrrl_hj.ini"
export XDG_CONFIG_HOME=$work/config

empty_cache() {
    sync
    echo 3 >/proc/sys/vm/drop_caches
}

median() { # of the figures that `what` has in the file
    grep "^$1 " "$2" | cut -d' ' -f2 | sort -n | awk '{v[NR]=$1} END {print v[int((NR+1)/2)]}'
}

measure() { # name of the condition, command to run before each start
    local log=$work/$1
    for _ in $(seq "$turns"); do
        $2
        START_NS=$(date +%s%N) "$benchmark" bare "$work/sample/welcome.htm" >>"$log" 2>/dev/null
        $2
        START_NS=$(date +%s%N) "$benchmark" program >>"$log" 2>/dev/null
    done
    awk -v how="$1" -v bare="$(median bare "$log")" -v window="$(median window "$log")" \
        -v topic="$(median topic "$log")" 'BEGIN {
        printf "%s: engine window %.0f ms; program: window %.0f ms (%.2f), topic %.0f ms (%.2f)\n",
            how, bare, window, window / bare, topic, topic / bare }'
}

measure warm true
if [ -w /proc/sys/vm/drop_caches ]; then measure cold empty_cache; fi
