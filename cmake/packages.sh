# Sourced by ./run and ./test: installs the Debian packages that are missing. Says what it does, and is quick when
# nothing is missing.
# What the desktop program is built with, the library's own texts in other languages, and what arranges diagrams.
WINDOW_PACKAGES="qt6-base-dev libqt6opengl6-dev qt6-charts-dev qt6-svg-dev libgl-dev qt6-translations-l10n graphviz"

need_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing Debian packages: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# configure_and_build PRESET: configures once and when the presets change, builds what changed.
configure_and_build() {
    echo "Building ($1)"
    [ "build/$1/build.ninja" -nt CMakePresets.json ] || cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -- --quiet
}
