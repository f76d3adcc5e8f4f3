# shellcheck shell=bash disable=SC2154 # root is of the script that reads this one
# From a fresh clone to something that runs. Demonstration, programs and tests share the preset `dev` (optimised, with
# assertions), so that the first of them leaves nothing to compile for the others; only benchmarks build `release`, and
# fuzzers and sanitized tests build `asan` and `tsan`.

# prepare PURPOSE...: the packages for the purposes, the npm packages, and the build that the first purpose needs;
# linters need none. One at a time: a second caller waits until the first has built.
prepare() {
    local preset targets
    preset=$(preset_for "$1")
    lock_build
    install_step "$@"
    check_interpreter
    npm_step 'npm packages' host/node
    [[ " $* " != *' lint '* ]] || npm_step 'npm packages of the linters' scripts/lint
    configure_step "$preset"
    read -ra targets <<<"$(targets_for "$1")"
    [ "$1" = lint ] || step 'building' build "$preset" "${targets[@]}"
    exec 9>&-
}

# prepare_preset PRESET TARGET...: one more build, when everything else is there.
prepare_preset() {
    local preset=$1
    shift
    lock_build
    configure_step "$preset"
    step "building $preset" build "$preset" --target "$@"
    exec 9>&-
}

preset_for() {
    case $1 in
        bench | package) echo release ;;
        fuzz) echo asan ;;
        *) echo dev ;;
    esac
}

lock_build() {
    mkdir -p -- "$root/build" || die "can not write to $root"
    exec 9>"$root/build/.lock"
    flock -n 9 || { note 'waiting for another ./tarn that is building' && flock 9; }
}

# Words for `cmake --build`: the whole tree unless less will do.
targets_for() {
    case $1 in
        page) echo --target tarn_dump ;;
        program) echo --target tarn_node ;;
        package) echo --target tarn_node tarn_sound tarn_print ;;
        bench) echo --target tarn_bench ;;
        fuzz) echo --target tarn_fuzz ;;
    esac
}

check_interpreter() {
    local major
    major=$(node -p 'process.versions.node.split(".")[0]' 2>/dev/null) || die 'node does not run'
    [ "$major" -ge 18 ] || die "Node.js 18 or newer is needed; $(command -v node) is $(node --version)"
}

# npm_fingerprint FOLDER: what decides about its npm packages, as one word.
npm_fingerprint() {
    cat "$root/$1/package.json" "$root/$1/package-lock.json" 2>/dev/null | cksum | tr ' ' -
}

# npm_step TITLE FOLDER
npm_step() {
    local stamp=$root/$2/node_modules/.tarn-stamp
    if [ ! -f "$root/$2/package.json" ] || [ "$(cat "$stamp" 2>/dev/null)" = "$(npm_fingerprint "$2")" ]; then
        step_ready "$1"
        return
    fi
    step "fetching $1" install_npm_packages "$2"
    npm_fingerprint "$2" >"$stamp"
}

# The addon is compiled by this repository's own build, never by a package's install script.
install_npm_packages() {
    cd -- "$root/$1" || return
    local verb=install
    [ ! -f package-lock.json ] || verb=ci
    npm "$verb" --ignore-scripts --no-audit --no-fund --no-update-notifier </dev/null && mkdir -p node_modules
}

# What decides whether a build folder must be configured again, besides the files that ninja watches itself.
configure_fingerprint() {
    (
        cd -- "$root" || exit
        printf '%s\n' "$root" */CMakeLists.txt */*/CMakeLists.txt
        cat CMakePresets.json host/node/node_modules/.tarn-stamp 2>/dev/null
    ) | cksum | tr ' ' -
}

configure_step() {
    local folder=$root/build/$1
    if [ -f "$folder/build.ninja" ] && [ "$(cat "$folder/.tarn-stamp" 2>/dev/null)" = "$(configure_fingerprint)" ]; then
        step_ready 'configuration'
        return
    fi
    step 'configuring' configure "$1"
    configure_fingerprint >"$folder/.tarn-stamp"
}

# The build folder of a clone that was moved or copied still names the old place, in many files: it is made anew.
configure() {
    local cache=$root/build/$1/CMakeCache.txt
    if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; then
        rm -rf -- "$root/build/$1"
    fi
    cd -- "$root" && cmake --preset "$1"
}

# build PRESET [--target NAME...]
build() {
    local preset=$1
    shift
    cd -- "$root" && cmake --build --preset "$preset" --parallel "$(nproc)" "$@"
}

# off_screen COMMAND...: without a display, with the fonts of the tests; their cache needs no home folder.
off_screen() {
    QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 \
        FONTCONFIG_FILE=$root/tests/fonts/fonts.conf XDG_CACHE_HOME=$root/build/cache "$@"
}
