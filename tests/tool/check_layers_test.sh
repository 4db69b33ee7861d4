#!/bin/bash
# check_layers_test.sh CHECK_LAYERS: the lint finds what it is there for.
set -uo pipefail
lint=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/src/{core,tree,import,export}
echo '#include "core/text.h"' >"$tree/src/tree/a.cpp"

expect() {
    local wanted=$1 status
    "$lint" "$tree" >"$tree/out"
    status=$?
    [ "$status" -eq "$wanted" ] && return
    echo "check_layers_test.sh:${BASH_LINENO[0]}: status $status instead of $wanted"
    cat "$tree/out"
    exit 1
}
# With the line as one more file it is a fault.
expect_fault() {
    mkdir -p "$(dirname "$tree/$1")"
    printf '%s\n' "$2" >"$tree/$1"
    expect 1
    rm "$tree/$1"
}

expect 0
expect_fault src/core/up.h '#include "tree/object.h"'
expect_fault src/core/up.h '  #  include <tree/object.h> // so'
expect_fault src/import/side.cpp '#include "export/export_driver.h"'
expect_fault src/tree/near.cpp '#include "object.h"'
expect_fault src/tree/far.cpp '#include "../core/text.h"'
expect_fault src/novel/new.cpp ''

# Cycles: of two units, through a .cpp, of three; a unit may include itself.
printf '#include "tree/a.h"\n' >"$tree/src/tree/a.cpp"
printf '#include "tree/b.h"\n' >"$tree/src/tree/a.h"
printf '#include "core/text.h"\n' >"$tree/src/tree/b.h"
expect 0
expect_fault src/tree/b.cpp '#include "tree/a.h"'
printf '#include "tree/c.h"\n' >"$tree/src/tree/b.cpp"
expect_fault src/tree/c.h '#include "tree/a.h"'
expect 0
