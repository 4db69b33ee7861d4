#!/bin/bash
# Converts many documents in one run as a user does:  batch_test.sh TOOL THEME
# Each theme is a ctest of its own; a failed expectation names its line.
tool=$1 theme=$2
# shellcheck source=SCRIPTDIR/expectations.sh
. "$(dirname "$0")/expectations.sh"

expect_last() { [ "$(tail -1 out)" = "$1" ] || fail "the last line is '$(tail -1 out)', not '$1'"; }
# The files below a folder, separated by spaces.
expect_files() {
    local found
    found=$(cd "$1" && find . -type f -printf '%P\n' | LC_ALL=C sort | tr '\n' ' ')
    [ "${found% }" = "$2" ] || fail "$1 has '${found% }', not '$2'"
}
# An expression about the rows of a summary (by input) and, of JSON, its totals.
expect_rows() {
    python3 - "$1" "$2" <<'CHECK' || fail "$1: not $2"
import csv, json, sys
path, expression = sys.argv[1:]
with open(path, newline="", errors="surrogateescape") as file:
    summary = json.load(file) if path.endswith(".json") else {"rows": list(csv.DictReader(file))}
rows = {row["input"]: row for row in summary["rows"]}
assert len(rows) == len(summary["rows"])
sys.exit(not eval(expression, {"rows": rows, "totals": summary.get("totals")}))
CHECK
}

document() {
    printf '<?xml version="1.0"?>\n<xmeml version="%s">\n<project><name>%s</name><children></children></project>\n</xmeml>\n' \
        "${2:-5}" "$1"
}
broken() { printf '<xmeml version="5"><bin>< <'; }
# Two days with a cut each, and one document that can't be read.
archive() {
    mkdir -p archive/day1 archive/day2/late
    document One >archive/day1/cut.xml
    document Two 9 >archive/day2/cut.XML
    document Three >archive/day2/late/pickups.xml
    broken >archive/broken.xml
    echo 'no document' >archive/notes.txt
}

folders() {
    archive
    expect_status 12 -j 2 -r archive -o projects
    expect_last 'Converted 3 of 4 documents, 1 failed; 1 assumed.'
    expect_files projects 'day1/cut.vlproj day2/cut.report.txt day2/cut.vlproj day2/late/pickups.vlproj'
    expect_text projects/day2/cut.vlproj Two
    expect_text err 'archive/broken.xml:1:'
    # Without -r, and with reports of their own elsewhere.
    expect_status 0 --quiet --report-format json,csv --report-dir reports archive/day1 archive/day2 -o flat
    [ "$(wc -l <out)" -eq 1 ] || fail 'more than the last line'
    expect_files flat 'day1/cut.vlproj day2/cut.vlproj'
    expect_files reports 'day1/cut.vlproj.report.csv day1/cut.vlproj.report.json day2/cut.vlproj.report.csv day2/cut.vlproj.report.json'
    # And back: the folder above has documents of both kinds now.
    cp -r archive/day1 both
    cp projects/day2/late/pickups.vlproj both
    expect_status 0 -j both -o back
    expect_files back 'cut.vlproj pickups.xml'
    expect_status 0 -j both -o back --skip-existing --to vlproj
    expect_last 'Converted 0 of 2 documents, 2 skipped.'
    expect_status 0 --dry-run -r archive/day1 -o dry
    expect_last 'Would convert 1 of 1 document; nothing was lost.'
    [ ! -e dry ] || fail 'a run that writes nothing makes a folder'
}

# No output is written over another one, or over an input.
names() {
    archive
    expect_status 0 archive/day1/cut.xml archive/day2/late/pickups.xml archive/day1/cut.xml -o flat
    expect_files flat 'cut.vlproj pickups.vlproj'
    expect_last 'Converted 2 of 2 documents; nothing was lost.'
    printf '%s\n' archive/day1/cut.xml '' archive/day2/cut.XML >list
    expect_status 0 @list -o tree
    expect_files tree 'day1/cut.vlproj day2/cut.report.txt day2/cut.vlproj'
    document Four >archive/day1/CUT.xml
    document Five >archive/day1/cut
    expect_status 0 archive/day1/cut archive/day1 -o same
    expect_files same 'CUT.xml.vlproj cut.vlproj cut.xml.vlproj'
    # What a run has written is no input of the next.
    for _ in 1 2; do
        (cd archive/day2 && expect_status 0 --skip-existing -r . -o projects/ && exit $failures) ||
            failures=$((failures + 1))
        expect_files archive/day2/projects 'cut.report.txt cut.vlproj late/pickups.vlproj'
    done
    mkdir beside
    document Six >beside/a.xml
    "$tool" -q beside/a.xml beside/a.vlproj >out
    cp beside/a.vlproj before
    expect_status 12 --overwrite beside -o beside
    expect_text err 'beside/a.vlproj is another document of this batch'
    expect_same beside/a.vlproj before
    # Nor through a link, nor by another part of the batch.
    ln -s beside link
    expect_status 12 --overwrite link -o beside
    expect_same beside/a.vlproj before
    for part in 1/3 2/3 3/3; do
        "$tool" -q --overwrite --part $part beside -o beside >out 2>err
        expect_same beside/a.vlproj before
    done
}

existing() {
    archive
    rm archive/broken.xml
    expect_status 0 -r archive -o projects
    echo mine >projects/day1/cut.vlproj
    expect_status 12 -r archive -o projects --summary s.csv
    expect_last 'Converted 0 of 3 documents, 3 failed.'
    expect_text err 'projects/day1/cut.vlproj exists; --overwrite replaces it'
    expect_text projects/day1/cut.vlproj mine
    expect_rows s.csv 'all(row["status"] == "6" for row in rows.values())'
    # What is missing or older is done.
    rm projects/day2/cut.vlproj
    touch -d '1 hour' archive/day2/late/pickups.xml
    expect_status 0 -r archive -o projects --skip-existing --summary s.csv
    expect_last 'Converted 2 of 3 documents, 1 skipped; 1 assumed.'
    expect_rows s.csv 'rows["archive/day1/cut.xml"]["result"] == "skipped"'
    expect_text projects/day1/cut.vlproj mine
    expect_status 0 -r archive -o projects --overwrite
    expect_text projects/day1/cut.vlproj One
    expect_status 64 -r archive -o projects --overwrite --skip-existing
}

options() {
    archive
    local arguments
    for arguments in '-j 5000 archive -o projects' '--part 0/2 archive -o projects' \
        '--part 3/2 archive -o projects' '--part 1 archive -o projects' '--summary s.txt archive -o projects' \
        '--report-format doc archive -o projects' '--report r.json archive -o projects' '-j archive -o -'; do
        # shellcheck disable=SC2086
        expect_status 64 $arguments
        [ -s err ] || fail "nothing is said about '$arguments'"
    done
    # -j is followed by its number, by an input, or by nothing.
    for arguments in '-j 3 archive/day1 -o projects' '-j3 archive/day1 -o projects' '--jobs=3 archive/day1 -o projects' \
        '-j archive/day1 -o projects' 'archive/day1 -o projects -j'; do
        # shellcheck disable=SC2086
        expect_status 0 --overwrite $arguments
        expect_last 'Converted 1 of 1 document; nothing was lost.'
    done
    expect_status 11 --fail-on assumed -r archive/day2 -o losses --summary s.csv
    expect_rows s.csv 'rows["archive/day2/cut.XML"]["status"] == "11"'
    expect_status 12 --fail-on assumed -r archive -o failed
    expect_status 12 archive/day1 absent.xml @absent -o some
    expect_text err 'absent.xml'
    expect_text err 'absent: No such file or directory'
    expect_files some cut.vlproj
    mkdir empty
    expect_status 0 -j empty -o none
    expect_last 'Converted 0 of 0 documents.'
    expect_status 6 archive/day1 -o archive/notes.txt
    expect_status 6 archive/day1 -o projects --summary absent/s.csv
    expect_text err 'absent/s.csv: the summary could not be written'
}

# More at a time than the system has files for: the others wait.
scarce() {
    mkdir many
    for i in {1..40}; do document "$i" >"many/$i.xml"; done
    (
        ulimit -n 20
        expect_status 0 --quiet -j 30 many -o projects
        exit $failures
    ) || failures=$((failures + 1))
    expect_last 'Converted 40 of 40 documents; nothing was lost.'
}

# Parts have each document once, whatever else is in the folder.
parts() {
    local i
    mkdir many
    for i in {1..40}; do document "$i" >"many/$i.xml"; done
    for i in 1 2 3; do
        expect_status 0 --quiet -j2 --part "$i/3" many -o projects --summary "$i.csv"
        [ "$(wc -l <"$i.csv")" -gt 5 ] || fail "part $i is hardly one"
    done
    local outputs=(projects/*)
    [ ${#outputs[@]} -eq 40 ] || fail "${#outputs[@]} outputs of 40"
    [ "$(cat [123].csv | wc -l)" -eq 43 ] || fail 'some are in two parts'
    document More >many/0.xml
    expect_status 0 --quiet --part 2/3 many -o again --summary again.csv
    cut -d, -f1 2.csv | sort >before
    cut -d, -f1 again.csv | sort >after
    [ -z "$(comm -23 before after)" ] || fail 'a new document moves others'
}

# Names may hold what they like.
summary() {
    mkdir odd
    document One >'odd/a,"b".xml'
    document Two >odd/$'two\nlines.xml'
    document Three 9 >'odd/=1+1 $(x) {y}.xml'
    document Four >odd/$'caf\351.xml'
    broken >odd/broken.xml
    expect_status 12 -j2 odd -o projects --summary s.csv
    expect_status 12 -j2 odd -o projects --summary s.json --overwrite
    local file
    for file in s.csv s.json; do
        expect_rows $file 'len(rows) == 5'
        expect_rows $file 'rows["odd/a,\"b\".xml"]["output"] == "projects/a,\"b\".vlproj"'
        expect_rows $file 'rows["odd/two\nlines.xml"]["result"] == "converted"'
        expect_rows $file 'rows["odd/broken.xml"]["message"].startswith("odd/broken.xml:1:")'
        expect_rows $file 'rows["odd/=1+1 $(x) {y}.xml"]["report"].endswith(".txt")'
        expect_rows $file 'all(float(row["peak_memory"]) > 1e6 for row in rows.values())'
        expect_rows $file 'all((int(row["bytes_out"]) > 0) == (row["result"] == "converted") for row in rows.values())'
    done
    expect_rows s.csv 'rows["odd/caf\udce9.xml"]["status"] == "0"'
    expect_rows s.json 'totals == {"documents": 5, "converted": 4, "skipped": 0, "failed": 1, "aborted": 0}'
}

# A running conversion waits for the pipe that it reads.
child_of() {
    local child
    for _ in {1..200}; do
        read -r child _ <"/proc/$1/task/$1/children"
        [ -n "${child:-}" ] && break
        sleep 0.05
    done
    echo "$child"
}

# What ends one process costs one document.
crash() {
    archive
    mkfifo pipe.xml
    local signal pid
    for signal in TERM KILL; do
        rm -rf projects
        "$tool" -j 1 pipe.xml archive/day1/cut.xml -o projects --summary $signal.csv >out 2>err &
        pid=$!
        kill -$signal "$(child_of $pid)"
        wait $pid
        [ $? -eq 12 ] || fail 'not the status of some failures'
        expect_files projects cut.vlproj
    done
    expect_text err 'pipe.xml: the conversion was ended by signal 9'
    expect_rows KILL.csv 'rows["pipe.xml"]["status"] == "137"'
    expect_rows TERM.csv 'rows["pipe.xml"]["result"] == "failed"'

    { # more than fits
        printf '<xmeml version="5"><project><name>Large</name><children>'
        awk 'BEGIN { for (i = 0; i < 200000; i++) printf "<bin><name>Bin %d</name></bin>\n", i }'
        printf '</children></project></xmeml>\n'
    } >archive/large.xml
    case $(nm -D "$tool" 2>/dev/null) in
    *__asan* | *__tsan*) ;; # their own memory is beyond every limit
    *)
        (
            ulimit -v 60000
            expect_status 12 -r archive -o small --summary s.csv
            exit $failures
        ) || failures=$((failures + 1))
        expect_rows s.csv 'rows["archive/large.xml"]["status"] == "3"'
        expect_rows s.csv 'rows["archive/day2/cut.XML"]["status"] == "0"'
        ;;
    esac
    (
        ulimit -f 100
        expect_status 12 -j -r archive -o limited --summary s.csv
        exit $failures
    ) || failures=$((failures + 1))
    expect_text err 'File too large'
    [ -z "$(find . -name '*.part*')" ] || fail "$(find . -name '*.part*') is left"
}

# Signals stop what runs, and keep what is done; a second run does the rest.
interrupt() {
    archive
    mkfifo pipe.xml
    local signal pid status child
    for signal in INT TERM; do
        rm -rf projects
        "$tool" -j 1 archive/day1/cut.xml pipe.xml archive/day2/late -o projects --summary s.json >out 2>err &
        pid=$!
        until [ -e projects/cut.vlproj ]; do sleep 0.05; done
        child_of $pid >/dev/null
        sleep 0.3
        # As from a terminal or a scheduler: each process gets it.
        child=$(child_of $pid)
        kill -$signal $pid
        [ $signal = INT ] || kill -$signal "$child"
        wait $pid
        status=$?
        [ "$status" -eq $((128 + $(kill -l $signal))) ] || fail "status $status after SIG$signal"
        expect_files projects cut.vlproj
        expect_rows s.json 'totals == {"documents": 3, "converted": 1, "skipped": 0, "failed": 0, "aborted": 1}'
        tail -1 out | grep -qF 'Converted 1 of 3 documents, 1 aborted, 1 not begun' ||
            fail "$(tail -1 out)"
    done
    # Nothing goes on when the tool itself is killed.
    rm -rf projects
    "$tool" -j 1 pipe.xml -o projects >out 2>err &
    pid=$!
    child=$(child_of $pid)
    kill -KILL $pid
    wait $pid 2>/dev/null
    for _ in {1..100}; do
        [ -d "/proc/$child" ] || break
        sleep 0.05
    done
    [ ! -d "/proc/$child" ] || { fail 'a conversion without its parent'; kill -KILL "$child"; }
    expect_status 0 archive/day1/cut.xml archive/day2/late -o projects --skip-existing
    expect_last 'Converted 2 of 2 documents; nothing was lost.'
}

"$theme"
[ "$failures" -eq 0 ]
