#!/usr/bin/env bash
# Sets up a Debian 12 machine for Hmi.Core and runs one of the two jobs:
#   ./build.sh showcase   build (default preset) and run the showcase on its bundled data
#   ./build.sh test       build and run the whole suite in the default and the asan preset, and the
#                         threaded resource tests in the tsan preset
set -euo pipefail
cd "$(dirname "$0")"

job="${1:-}"
case "$job" in
    showcase|test) ;;
    *) echo "usage: $0 showcase|test" >&2; exit 2 ;;
esac

packages=(
    cmake ninja-build g++ pkg-config
    qtbase5-dev qtbase5-dev-tools qtdeclarative5-dev qtquickcontrols2-5-dev
    libqt5xmlpatterns5-dev libqt5sql5-sqlite libqt5svg5
    qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qttest
    qml-module-qtquick-controls2 qttools5-dev-tools
)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
fi

jobs="$(nproc)"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"

run_preset() {
    cmake --preset "$1"
    cmake --build --preset "$1" --parallel "$jobs"
}

case "$job" in
    showcase)
        run_preset default
        ./build/default/examples/showcase/showcase --screenshot build/default/showcase.png
        ;;
    test)
        for preset in default asan tsan; do
            run_preset "$preset"
            ctest --preset "$preset" --parallel "$jobs"
        done
        ;;
esac
