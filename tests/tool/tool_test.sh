#!/bin/bash
# Runs the tool as a user does:  tool_test.sh TOOL SAMPLES THEME
# Each theme is a ctest of its own; a failed expectation names its line.
set -uo pipefail
tool=$1 samples=$2 theme=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 2
mkdir documents
export XDG_DOCUMENTS_DIR=$work/documents
unset VELA_DEBUG_DATABASE
failures=0

fail() {
    echo "tool_test.sh:${BASH_LINENO[1]}: $*"
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

minimal() {
    printf '<?xml version="1.0"?>\n<!DOCTYPE xmeml>\n<xmeml version="5">\n<project>%s</project>\n</xmeml>\n' \
        "<name>Small</name><children>${1:-}</children>"
}

usage() {
    expect_status 0 --help
    expect_text out INPUT
    expect_text out 'Exit status'
    expect_status 0 --version
    expect_text out xpjconvert
    expect_lines out 1

    local arguments
    for arguments in '' '--nonsense a.xml' 'a.xml b c' '--seed many a.xml' '--set nothing a.xml' \
        '--sequence 12 a.vlproj' '--handoff a.xml'; do
        # shellcheck disable=SC2086
        expect_status 64 $arguments
        [ -s err ] || fail "nothing is said about '$arguments'"
    done
    expect_status 64 notes.txt
    cat out err >both
    expect_text both 'XPJConvert: Unrecognized file extension: txt (.xml or .vlproj expected).'
    expect_status 64 notes
    cat out err >both
    expect_text both 'XPJConvert: Input file notes appears to lack a file extension'
}

samples() {
    local sample name
    for sample in "$samples"/*.xml; do
        name=$(basename "$sample" .xml)
        expect_status 0 --seed 1 "$sample"
        expect_file "$name.vlproj"
        expect_text "$name.vlproj" VelaData
        tail -1 out >closing
        expect_text closing "$name.vlproj"
        xmllint --noout "$name.vlproj" 2>/dev/null || ! command -v xmllint >/dev/null ||
            fail "$name.vlproj is not well formed"
        # And back.
        expect_status 0 --seed 1 "$name.vlproj" back.xml
        expect_text back.xml '<xmeml version="4">'
    done
}

seed() {
    expect_status 0 --quiet --seed 7 "$samples/film.xml" one.vlproj
    expect_status 0 --quiet --seed 7 "$samples/film.xml" two.vlproj
    expect_status 0 --quiet --seed 8 "$samples/film.xml" other.vlproj
    # The reports that the projects refer to have names of their own.
    sed -i '/FCP Translation Results/d' one.vlproj two.vlproj
    expect_same one.vlproj two.vlproj
    expect_different one.vlproj other.vlproj
    expect_status 0 --quiet "$samples/film.xml" random1.vlproj
    expect_status 0 --quiet "$samples/film.xml" random2.vlproj
    expect_different random1.vlproj random2.vlproj
}

# Whole samples there and back, against what was reviewed; VELA_ACCEPT=1 accepts what came out.
golden() {
    local kept=$samples/../tests/data/samples sample file
    for sample in effects grade; do
        expect_status 0 --seed 1 "$samples/$sample.xml" "$sample.vlproj"
        grep -v -e 'Progress: ' -e '^Wrote ' out >"$sample.findings"
        expect_status 0 --quiet --seed 1 "$sample.vlproj" "$sample.back.xml"
        sed -i '/FCP Translation Results/d' "$sample.vlproj"
        for file in "$sample.vlproj" "$sample.findings" "$sample.back.xml"; do
            [ -z "${VELA_ACCEPT:-}" ] || cp "$file" "$kept/$file"
            diff -u "$kept/$file" "$file" | head -40
            expect_same "$kept/$file" "$file"
        done
    done
}

output() {
    minimal >small.xml
    expect_status 0 small.xml
    expect_file small.vlproj
    expect_status 64 small.xml small.xml
    expect_text err 'same file'
    expect_status 0 --quiet small.xml named.vlproj
    expect_lines out 1
    expect_text out named.vlproj
    expect_no_text out 'Progress: '
    mkdir -p sub
    (cd sub && "$tool" --quiet ../small.xml >/dev/null)
    expect_file sub/small.vlproj
}

# What can't be read: file, reason, place; and nothing under the output's name.
unreadable() {
    expect_status 5 absent.xml
    expect_text err absent.xml
    expect_no_file absent.vlproj
    : >empty.xml
    expect_status 4 empty.xml
    expect_text err empty.xml
    expect_no_file empty.vlproj

    printf '<?xml version="1.0"?>\n<xmeml version="5">\n  <project>\n    <name>A</name>\n    <children>< <\n' >broken.xml
    expect_status 6 broken.xml
    expect_text err 'broken.xml:5:'
    expect_text err 'xmeml/project/children'
    expect_no_file broken.vlproj
    expect_no_file broken.vlproj.part

    # Cut off: what came before is converted, and the tool says so.
    printf '<xmeml version="5">\n<bin>\n<name>A</name><children></bin>' >cut.xml
    expect_status 0 cut.xml
    expect_text err 'cut.xml:3:'
    expect_text err 'ends inside an element, in xmeml/bin/children'
    expect_file cut.vlproj

    echo earlier >kept.vlproj
    expect_status 6 broken.xml kept.vlproj
    echo earlier >earlier
    expect_same kept.vlproj earlier
}

unwritable() {
    minimal >small.xml
    expect_status 6 small.xml absent/folder/small.vlproj
    expect_text err absent/folder/small.vlproj
    expect_status 6 small.xml /dev/full
    expect_text err /dev/full
    expect_status 0 small.xml /dev/null
}

# An unrecognised version is a finding of every build.
report() {
    minimal | sed 's/version="5"/version="9"/' >nine.xml
    expect_status 0 nine.xml
    ls documents/*.txt >reports 2>/dev/null
    expect_lines reports 1
    tail -1 out >closing
    expect_text closing '1 finding'
    expect_text closing "$(cat reports)"
    expect_text out 'version (9)'

    expect_status 0 --report-dir "$work/sub" nine.xml
    ls sub/*.txt >reports 2>/dev/null
    [ -d sub ] && expect_lines reports 1

    printf '<VelaData Version="4"><Project ObjectID="1"></Project></VelaData>' >four.vlproj
    mkdir -p export beside
    expect_status 0 --report-dir export four.vlproj beside/four.xml
    ls export/*.txt >reports 2>/dev/null
    expect_lines reports 1
    expect_status 0 four.vlproj beside/four.xml
    ls beside/*.txt >reports 2>/dev/null
    expect_lines reports 1

    # A folder that can't be used costs only the report.
    : >file
    expect_status 0 --report-dir "$work/file/x" nine.xml
    expect_file nine.vlproj
    tail -1 out >closing
    expect_text closing '1 finding'
    expect_no_text closing .txt

    minimal >small.xml
    expect_status 0 small.xml
    tail -1 out >closing
    grep -q -e 'nothing was lost' -e 'not carried over yet; no findings' closing ||
        fail 'losses are not told'
}

# Sequence "Cut" with one clip "A" from the frame given.
one_clip() {
    printf '<xmeml version="5"><sequence id="s"><name>Cut</name>%s<media><video><track>%s</track></video></media></sequence></xmeml>\n' \
        '<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>' \
        "<clipitem id=\"a\"><name>A</name><start>$1</start><end>$(($1 + 50))</end><in>0</in><out>50</out></clipitem>"
}

inspect() {
    one_clip 100 >one.xml
    expect_status 0 --inspect one.xml
    expect_text out '00:00:04:00 - 00:00:06:00  "A"'
    expect_no_file one.vlproj
    expect_status 0 --inspect --json one.xml
    expect_text out '"timecode": "00:00:04:00"'
    # The family is told by the content; nothing else mixes with what is printed.
    cp one.xml one.vlproj
    expect_status 0 --inspect one.vlproj
    expect_text out '"A"'
    sed 's/<media>/<media><media>/' one.xml | cat one.xml - >twice.xml
    expect_status 0 --inspect --json twice.xml
    head -c 1 out >first
    printf '{' >brace
    expect_same first brace

    # Looks and tables too, whatever their names.
    cp "$samples/dusk.look" look.xml
    expect_status 0 --inspect look.xml
    expect_text out 'look "Dusk on the quay"'
    expect_text out 'layer BasicCorrection  "Balance"'
    cp "$samples/lamps.cube" table.look
    expect_status 0 --inspect --json table.look
    expect_text out '"format": ".cube"'
    cat "$samples/lamps.cube" | "$tool" --inspect /dev/stdin >out 2>err || fail 'a table in a pipe'
    expect_text out '  .cube  3D  size '
    printf 'LUT_1D_SIZE 2\n0 0 0\n1 x 1\n' >short.cube
    expect_status 2 --inspect short.cube
    expect_text err 'short.cube:3:3: Lookup table "short.cube" could not be loaded: unknown format.'
    printf '<Gradiva>\n<na me>' >short.look
    expect_status 2 --inspect short.look
    expect_text err 'short.look:2:4: Whitespace unexpected in < > brackets.'

    expect_status 5 --inspect absent.xml
    expect_text err absent.xml
    printf '<xmeml version="5"><sequence><name>Cut</name>' >cut.xml
    expect_status 0 --inspect cut.xml
    expect_text err 'only what came before was read'
    expect_status 0 --list-effects
    expect_text out '| Family | Effect |'
    local arguments
    for arguments in '--inspect' '--inspect one.xml two.xml' '--inspect --compare one.xml one.xml' \
        '--compare one.xml' '--json one.xml' '--list-effects one.xml'; do
        # shellcheck disable=SC2086
        expect_status 64 $arguments
        [ -s err ] || fail "nothing is said about '$arguments'"
    done
    "$tool" --inspect one.xml >/dev/full 2>err
    [ $? -eq 6 ] || fail 'lost output is no success'
}

compare() {
    one_clip 100 >one.xml
    one_clip 101 >two.xml
    expect_status 0 --compare one.xml one.xml
    expect_text out 'No differences.'
    expect_status 10 --compare one.xml two.xml
    expect_text out 'start 100 (00:00:04:00) -> 101 (00:00:04:01)'
    expect_status 10 --compare --json one.xml two.xml
    expect_text out '"change": "moved"'
    cp two.xml kept.xml
    expect_same two.xml kept.xml
    expect_status 5 --compare one.xml absent.xml
    expect_text err absent.xml
}

interrupt() {
    { # long enough to be met at work
        printf '<xmeml version="5"><project><name>Long</name><children>'
        awk 'BEGIN { for (i = 0; i < 400000; i++)
            printf "<bin><name>Bin %d</name><children></children></bin>\n", i }'
        printf '</children></project></xmeml>\n'
    } >long.xml
    echo earlier >long.vlproj
    cp long.vlproj earlier
    "$tool" long.xml >out 2>err </dev/null &
    local pid=$! status tries
    for tries in {1..600}; do # it shows its progress: it is at work
        grep -qs 'Progress: ' out && break
        sleep 0.05
    done
    kill -INT "$pid"
    wait "$pid"
    status=$?
    [ "$status" -eq 1 ] || fail "status $status instead of 1"
    cat out err >both
    expect_text both 'The operation was aborted.'
    expect_same long.vlproj earlier
    expect_no_file long.vlproj.part
}

"$theme"
[ "$failures" -eq 0 ]
