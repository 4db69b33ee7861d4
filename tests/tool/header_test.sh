#!/bin/bash
# The public header compiles by itself in every version of both languages that hosts are written in,
# also where the system has no <uchar.h>, with the compilers of the build and with GCC and clang where
# they are installed; and its layout checks do fail.
#   header_test.sh INCLUDE CC CXX
set -uo pipefail
include=$1 cc=$2 cxx=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

mkdir "$work/poor"
echo '#error "there is no <uchar.h> here"' >"$work/poor/uchar.h"
cat >"$work/host.c" <<'CODE'
#include <vela_fcpxml/plugin.h>
VelaChar16 path[] = {'a', 0};
ConverterContext context;
int main(void)
{
    context.path = path;
    return xProjectConverterEntry(kVelaSelectorImport, &context) == kVelaDone ? 0 : 1;
}
CODE
cp "$work/host.c" "$work/host.cpp"

# compiles COMPILER STANDARD SUFFIX
compiles() {
    "$1" "-std=$2" -Wall -Wextra -pedantic-errors -Werror -fsyntax-only -I "$work/poor" -I "$include" \
        "$work/host.$3" >"$work/log" 2>&1
}
# check_all SUFFIX COMPILER STANDARD...
check_all() {
    local suffix=$1 compiler=$2 standard
    shift 2
    command -v "$compiler" >/dev/null || return 0
    for standard in "$@"; do
        compiles "$compiler" "$standard" "$suffix" && continue
        failures=1
        echo "$compiler -std=$standard:"
        cat "$work/log"
    done
}
for compiler in "$cc" gcc clang; do
    check_all c "$compiler" c99 c11 c17
done
for compiler in "$cxx" g++ clang++; do
    check_all cpp "$compiler" c++11 c++14 c++17 c++20
done

# One byte more in a record is noticed.
mkdir "$work/changed" "$work/changed/vela_fcpxml"
sed 's/uint8_t reserved2\[5\]/uint8_t reserved2[15]/' "$include/vela_fcpxml/plugin.h" \
    >"$work/changed/vela_fcpxml/plugin.h"
include=$work/changed
for standard in c99 c11; do
    ! compiles "$cc" $standard c || { failures=1; echo "$standard: a changed layout passes"; }
done
! compiles "$cxx" c++11 cpp || { failures=1; echo "c++11: a changed layout passes"; }
exit $failures
