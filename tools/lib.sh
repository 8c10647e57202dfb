# Shell functions of ./run, ./test, .ci/run and tools/make-pictures. Source it with the project's folder as current directory.

say() { printf '== %s\n' "$*"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

# Installs the packages of the lists that are missing; asks the package manager for nothing otherwise.
install_packages() {
    local wanted missing
    wanted=$(cat "$@" | sed 's/#.*//' | xargs)
    missing=$(for package in $wanted; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok' || echo "$package"
    done | xargs)
    [ -z "$missing" ] && return
    say "installing $missing"
    mkdir -p build
    local root=
    [ "$(id -u)" = 0 ] || root=sudo
    [ -z "$root" ] || command -v sudo >/dev/null || fail "installing packages needs root or sudo"
    {
        $root apt-get -q update &&
            $root env DEBIAN_FRONTEND=noninteractive apt-get -q install -y --no-install-recommends $missing
    } >build/install.log 2>&1 || { tail -20 build/install.log >&2; fail "installing failed; see build/install.log"; }
}

# Configures the preset if it isn't, and builds it (or the targets that follow).
build_preset() {
    local preset=$1 log=build/$1.log
    shift
    mkdir -p build
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "configuring $preset"
        cmake --preset "$preset" >"$log" 2>&1 || { tail -30 "$log" >&2; fail "configuring failed; see $log"; }
    fi
    local targets=()
    [ $# = 0 ] || targets=(--target "$@")
    if [ -t 1 ]; then # ninja keeps to one line by itself
        NINJA_STATUS='== building %f of %t: ' cmake --build "build/$preset" "${targets[@]}" || fail "building failed"
        return
    fi
    NINJA_STATUS='%f %t ' cmake --build "build/$preset" "${targets[@]}" >"$log" 2>&1 &
    watch_build $! "$log" || { grep -E -A30 'FAILED|rror' "$log" | head -60 >&2; fail "building $preset failed; see $log"; }
}

# Says every 20 seconds how far the build is; gives its status.
watch_build() {
    local pid=$1 log=$2 next=$((SECONDS + 20)) step
    while kill -0 "$pid" 2>/dev/null; do
        sleep 0.2
        [ $SECONDS -lt $next ] && continue
        next=$((SECONDS + 20))
        step=$(grep -aoE '^[0-9]+ [0-9]+ ' "$log" | tail -1)
        [ -z "$step" ] || say "building $(echo "$step" | awk '{print $1 " of " $2}')"
    done
    wait "$pid"
}

# Runs a command with a display: the one there is, else a virtual one. That would begin anew whenever its last
# client leaves, as between two tests, and refuse the next one meanwhile: it is told not to.
with_display() {
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        "$@"
    else
        xvfb-run -a -s '-screen 0 1280x1024x24 -noreset' "$@"
    fi
}

# Draws the example case as a PNG: the sphere and, with the block behind all, the plane through its middle.
render_example() {
    local stem=build/default/examples/sphere sphere=() plane block
    for block in 1 2 3 4; do sphere+=(--surface "$block:K=1"); done
    plane=(--surface 1:J=1 --surface 3:J=1 --surface 5:K=23)
    build/default/bin/zento-batch render --grid $stem.xyz --q $stem.q --scalar 'M[Q]' --colormap Viridis \
        "${sphere[@]}" "${plane[@]}" --legend --axes --background white --size 1000x640 --output "$1"
}
