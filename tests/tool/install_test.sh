#!/bin/bash
# install_test.sh BUILD_DIR SOURCE_DIR: an installed tree serves a consumer, and the tool runs from it.
set -euo pipefail
build=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/installed" >"$work/log" || { cat "$work/log"; exit 1; }
cmake -G Ninja -S "$source/tests/tool/consumer" -B "$work/consumer" \
    -DCMAKE_PREFIX_PATH="$work/installed"
cmake --build "$work/consumer"
"$work/consumer/consumer"
"$work/installed/bin/xpjconvert" --version
