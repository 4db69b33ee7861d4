# What the tests of the tool share: a working folder, runs of the tool, expectations. To be sourced
# with the tool's path in $tool. A failed expectation names the line of the test.
set -uo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
work=$(cd "$work" && pwd -P)
cd "$work" || exit 2
mkdir documents
export XDG_DOCUMENTS_DIR=$work/documents
unset VELA_DEBUG_DATABASE
failures=0

fail() {
    echo "$(basename "$0"):${BASH_LINENO[1]}: $*"
    sed 's/^/    out: /' out 2>/dev/null | tail -5
    sed 's/^/    err: /' err 2>/dev/null | tail -5
    failures=$((failures + 1))
}
# Runs the tool with the output in the files out and err; the first argument is the status due.
expect_status() {
    local wanted=$1 status
    shift
    "$tool" "$@" >out 2>err </dev/null
    status=$?
    [ "$status" -eq "$wanted" ] || fail "xpjconvert $*: status $status instead of $wanted"
}
expect_text() { grep -qF -- "$2" "$1" || fail "no '$2' in $1"; }
expect_no_text() { ! grep -qF -- "$2" "$1" || fail "'$2' in $1"; }
expect_file() { [ -s "$1" ] || fail "no $1"; }
expect_no_file() { [ ! -e "$1" ] || fail "there is a $1"; }
expect_same() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }
expect_different() { ! cmp -s "$1" "$2" || fail "$1 and $2 are the same"; }
expect_lines() { [ "$(wc -l <"$1")" -eq "$2" ] || fail "not $2 lines in $1"; }
