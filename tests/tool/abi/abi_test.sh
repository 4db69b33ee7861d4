#!/bin/bash
# The binary interface of the public header is the one that hosts were built with, which
# vela_fcpxml.abi describes, and the module exports its functions. A change of a record, a value or a
# function fails. After an intended one: VELA_ACCEPT=1 ./test -R public_interface
#   abi_test.sh SOURCE_DIR MODULE CXX
set -uo pipefail
source=$1 module=$2 cxx=$3
stored=$source/tests/tool/abi/vela_fcpxml.abi
command -v abidw >/dev/null && command -v abidiff >/dev/null || { echo "no abidw here"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# interface INCLUDE OUTPUT: the interface of the header in that folder.
interface() {
    "$cxx" -std=c++17 -g -O0 -fPIC -shared -fvisibility=hidden -ffile-prefix-map="$source/=" \
        -I "$1" "$source/tests/tool/abi/interface.cpp" -o "$work/interface.so" &&
        abidw --no-show-locs --no-corpus-path --no-comp-dir-path --no-architecture \
            "$work/interface.so" --out-file "$2"
}
same_interface() { abidiff --no-architecture "$stored" "$1"; }

interface "$source/include" "$work/now.abi" || exit 1
[ -z "${VELA_ACCEPT:-}" ] || cp "$work/now.abi" "$stored"
same_interface "$work/now.abi" || failures=1

functions() { grep -o "<elf-symbol name='[^']*' type='func-type'" "$1" | cut -d\' -f2 | LC_ALL=C sort; }
exports() { nm --dynamic --defined-only "$1" | awk '{ print $NF }' | LC_ALL=C sort; }
if [ "$(functions "$stored")" != "$(exports "$module")" ]; then
    echo "the module exports:"
    exports "$module"
    failures=1
fi

# Each of these changes is noticed, also where the layout's own checks are silent.
mkdir -p "$work/changed/vela_fcpxml"
while read -r change; do
    sed -e "$change" -e '/^VELA_FCPXML_CHECK/d' "$source/include/vela_fcpxml/plugin.h" \
        >"$work/changed/vela_fcpxml/plugin.h"
    if cmp -s "$work/changed/vela_fcpxml/plugin.h" <(sed '/^VELA_FCPXML_CHECK/d' "$source/include/vela_fcpxml/plugin.h"); then
        echo "changes nothing: $change"
        failures=1
    elif interface "$work/changed" "$work/changed.abi" && same_interface "$work/changed.abi" >/dev/null; then
        echo "passes: $change"
        failures=1
    fi
done <<'CHANGES'
s/uint8_t reserved2\[5\]/uint8_t reserved2[13]/
s/uint32_t bufferSize;/int32_t bufferSize;/
s/VelaChar16 extension\[30\]/VelaChar16 extension[31]/
s/records\[3\]/records[4]/
s/kVelaSelectorExport = 4/kVelaSelectorExport = 5/
s/kVelaConversionFailed = -7000/kVelaConversionFailed = -8000/
s/(\*ReadProjectData)(void\* streamHandle, /&uint64_t offset, /
s/(\*ReleaseSuite)(const char\* name, int32_t version)/(*ReleaseSuite)(const char* name)/
CHANGES
exit $failures
