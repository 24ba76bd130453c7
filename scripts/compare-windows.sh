#!/usr/bin/env bash
# compare-windows.sh NATIVE_CLI WINDOWS_CLI FOLDER...
#
# Gives every help project in the folders to quorrel-cli as it is built for this system and, under
# wine, for Windows, and compares what both print and what they write, to the byte.
set -euo pipefail
shopt -s nullglob globstar

if [ $# -lt 3 ]; then
    echo "usage: $0 NATIVE_CLI WINDOWS_CLI FOLDER..." >&2
    exit 2
fi
native=$(readlink -f "$1")
windows=$(readlink -f "$2")
wine=$(PATH=$PATH:/usr/lib/wine type -P wine64 || type -P wine)
shift 2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8 WINEDEBUG=-all QUORREL_ANSI_CODEPAGE=1252
mkdir "$work/run"

# run_cli SYSTEM ARGUMENT... PROJECT: the drive of wine that is this system's root has the name that
# the program gives it, so the paths in what is printed are the same.
run_cli() {
    local system=$1 project=${*: -1}
    set -- "${@:2:$#-2}"
    if [ "$system" = native ]; then
        XDG_CONFIG_HOME=$work/config "$native" "$@" "$project"
    else
        XDG_CONFIG_HOME="Z:$work/config" "$wine" "$windows" "$@" "Z:$project"
    fi
}

# What a command makes of the project on one system: its output, its exit code and the folder.
try() {
    local system=$1 folder=$2 name=$3 code=0
    shift 3
    rm -rf "$work/p" "$work/$system"
    cp -R "$folder" "$work/p"
    chmod -R u+w "$work/p"
    (cd "$work/run" && run_cli "$system" "$@" "$work/p/$name") \
        >"$work/$system.out" 2>"$work/$system.err" || code=$?
    echo "exit code $code" >>"$work/$system.out"
    mv "$work/p" "$work/$system"
}

failed=0
compared=0
compare() {
    try native "$@"
    try windows "$@"
    # The list of a conversion has native paths.
    if [ "$3" = convert ]; then
        tr '\\' / <"$work/windows.out" | sed 's/\r$//; s/^Z://' >"$work/turned"
        mv "$work/turned" "$work/windows.out"
    fi
    compared=$((compared + 1))
    if ! cmp -s "$work/native.out" "$work/windows.out"; then
        echo "$1/$2: ${*:3}: the output differs"
        diff "$work/native.out" "$work/windows.out" | cut -c1-300 | head -5 || true
        failed=$((failed + 1))
    fi
    if ! diff -r "$work/native" "$work/windows"; then
        echo "$1/$2: ${*:3}: the files differ"
        failed=$((failed + 1))
    fi
}

for folder in "$@"; do
    for project in "$folder"/**/*.hhp "$folder"/**/*.hs; do
        home=$(dirname "$project")
        name=$(basename "$project")
        case $name in
        *.hhp)
            compare "$home" "$name" --edition html dump
            compare "$home" "$name" --edition html resave --all
            compare "$home" "$name" convert --force
            ;;
        *.hs)
            compare "$home" "$name" --edition javahelp dump
            compare "$home" "$name" --edition javahelp resave --all
            ;;
        esac
    done
done
echo "$compared comparisons, $failed differences"
[ "$compared" -gt 0 ] && [ "$failed" -eq 0 ]
