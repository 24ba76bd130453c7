# What ./run and ./test share: packages and build. To be sourced, with `root` set to the
# project's folder.

die() {
    echo "quorrel: $*" >&2
    exit 1
}

build_packages="g++ cmake ninja-build libcli11-dev rapidjson-dev
    qt6-base-dev qt6-webengine-dev qt6-svg-dev libqt6svg6 breeze-icon-theme fonts-dejavu-core"

# Installs what is missing of the named packages. A stamp keeps later calls quick.
ensure_packages() {
    local wanted missing="" package stamp elevate=""
    wanted=$(echo "$@" | tr -s ' \n' ' ')
    stamp="$root/out/packages/$(echo "$wanted" | cksum | cut -d' ' -f1)"
    [ -e "$stamp" ] && return
    command -v dpkg-query >/dev/null 2>&1 ||
        die "this is no Debian system; install by hand: $wanted; then: mkdir -p ${stamp%/*} && touch $stamp"
    for package in $wanted; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    if [ -n "$missing" ]; then
        if [ "$(id -u)" != 0 ]; then
            command -v sudo >/dev/null 2>&1 ||
                die "missing packages, and neither root nor sudo to install them:$missing"
            elevate=sudo
        fi
        echo "quorrel: installing$missing" >&2
        local log
        log=$(mktemp)
        { $elevate apt-get update && DEBIAN_FRONTEND=noninteractive $elevate apt-get install -y \
            --no-install-recommends $missing; } >"$log" 2>&1 ||
            { tail -n 5 "$log" >&2; die "could not install:$missing"; }
        rm -f "$log"
    fi
    mkdir -p "${stamp%/*}" && touch "$stamp"
}

# Configures and builds a preset; says nothing when there is nothing to do.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if [ ! -e "$root/out/$preset/build.ninja" ]; then
        echo "quorrel: configuring ($preset)" >&2
        (cd "$root" && cmake --preset "$preset") >"$log" 2>&1 ||
            { cat "$log" >&2; die "the configuration failed"; }
    fi
    (set -o pipefail
     ninja -C "$root/out/$preset" "$@" 2>&1 | tee "$log" |
        awk -v preset="$preset" '!told && /^\[[0-9]+\/[0-9]+\] [BLA]/ {
            print "quorrel: building (" preset ")" > "/dev/stderr"; told = 1 }') ||
        { grep -vE '^\[[0-9]+/[0-9]+\]' "$log" >&2; die "the build failed"; }
    rm -f "$log"
}
