#!/bin/bash
# install_test.sh BUILD_DIR SOURCE_DIR: an installed tree, also one that was moved, has what a host and
# a user look for: the plug-in is found with CMake and with pkg-config, and the tool runs and finds its
# catalogs of messages.
set -euo pipefail
build=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/first" >"$work/log" || { cat "$work/log"; exit 1; }
mkdir "$work/moved"
mv "$work/first" "$work/moved/installed"
installed=$work/moved/installed

cmake -G Ninja -S "$source/tests/tool/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$installed"
cmake --build "$work/consumer"
"$work/consumer/consumer"

if command -v pkg-config >/dev/null; then
    PKG_CONFIG_PATH=$(dirname "$(find "$installed" -name vela_fcpxml.pc)")
    export PKG_CONFIG_PATH
    plugin=$(pkg-config --variable=plugindir vela_fcpxml)/libvela_fcpxml.so
    # shellcheck disable=SC2046 # options are words
    cc $(pkg-config --cflags vela_fcpxml) -DPLUGIN="\"$plugin\"" "$source/tests/tool/consumer/consumer.c" \
        -o "$work/by_pkg_config" -ldl
    "$work/by_pkg_config"
fi

"$installed/bin/xpjconvert" --version
"$installed/bin/xpjconvert" --quiet "$source/samples/interview.xml" "$work/interview.vlproj"

LC_ALL=de_DE.UTF-8 "$installed/bin/xpjconvert" --quiet "$source/samples/interview.xml" \
    "$work/interview.vlproj" --report "$work/report.txt"
grep -q 'gibt es keine Entsprechung' "$work/report.txt"

for binary in "$installed/bin/xpjconvert" "$(find "$installed" -name libvela_fcpxml.so)"; do
    if readelf --dynamic "$binary" | grep -E 'RPATH|RUNPATH|SONAME'; then
        echo "$binary names a path or a soname"
        exit 1
    fi
done
if grep -rlF -e "$work" -e "$build" "$installed" --include='*.cmake' --include='*.pc'; then
    echo "these files have absolute paths"
    exit 1
fi
