#!/bin/bash
# Runs the tool as a user does:  tool_test.sh TOOL SAMPLES THEME
# Each theme is a ctest of its own; a failed expectation names its line.
tool=$1 samples=$2 theme=$3
# shellcheck source=SCRIPTDIR/expectations.sh
. "$(dirname "$0")/expectations.sh"

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
    for arguments in '' '--nonsense a.xml' 'a.xml b c' '--seed many a.xml' '--seed -1 a.xml' \
        '--set nothing a.xml' '--handoff a.xml' '--from sgml a.xml' '--from xmeml --to xmeml a.xml' \
        '--inspect=all a.xml' '--inspect a.xml -o b' '--list-sequences' \
        'a.xml -o - --report -' 'a.xml - --report -'; do
        # shellcheck disable=SC2086
        expect_status 64 $arguments
        [ -s err ] || fail "nothing is said about '$arguments'"
    done
    expect_status 0 -V
    expect_lines out 1
    # As wide as a terminal.
    "$tool" --help | awk 'length > 100 { exit 1 }' || fail 'long lines in the help'
}

# The content decides what a document is, not its name.
by_content() {
    minimal >small.xml
    cp small.xml SMALL.XML
    cp small.xml plain
    cp small.xml odd.vlproj
    local name
    for name in SMALL.XML plain odd.vlproj; do
        expect_status 0 --quiet "$name" -o from/
        expect_file "from/${name%.*}.vlproj"
        rm -r from
    done
    expect_status 64 odd.vlproj
    expect_text err 'same file'
    expect_status 64 --to xmeml plain
    expect_text err 'it is a Final Cut Pro XML already'
    iconv -f UTF-8 -t UTF-16 small.xml >wide
    expect_status 0 --quiet wide
    expect_file wide.vlproj
    # What shows nothing is what it is said to be.
    echo text >notes.txt
    expect_status 4 notes.txt
    expect_status 4 --from vlproj notes.txt
    expect_text err 'no element "VelaData"'
    expect_status 4 --to vlproj notes.txt
    # The second of two documents is no place to write to.
    cp small.xml second.xml
    expect_status 64 small.xml second.xml
    expect_text err 'second.xml'
    expect_same small.xml second.xml
    expect_status 0 small.xml -o second.xml
    expect_text second.xml VelaData
}

# Standard streams, folders, and a run that writes nothing.
streams() {
    one_clip 100 >one.xml
    mkdir temporary
    export TMPDIR=$work/temporary
    expect_status 0 --quiet --seed 1 one.xml file.vlproj
    "$tool" --seed 1 - -o - <one.xml >piped.vlproj 2>err || fail "status $?"
    expect_same file.vlproj piped.vlproj
    expect_text err 'Wrote standard output:'
    "$tool" --quiet - <file.vlproj >out 2>err || fail "status $?"
    expect_file 'standard input.xml'
    printf '<xmeml version="5"><bin>< <' | "$tool" - -o - >out 2>err
    expect_text err 'standard input:1:'
    [ ! -s out ] || fail 'half a document on the standard output'
    "$tool" one.xml -o - >/dev/full 2>err
    [ $? -eq 6 ] || fail 'a lost output is no success'
    expect_text err 'standard output: the output could not be written: No space left on device.'

    expect_status 0 --quiet one.xml -o new/folder/
    expect_file new/folder/one.vlproj
    expect_status 0 --quiet one.xml new
    expect_file new/one.vlproj

    expect_status 0 --dry-run --verify --report dry.json one.xml -o dry.vlproj
    tail -1 out >closing
    expect_text closing 'Would write dry.vlproj: '
    expect_no_text dry.json unexplained
    expect_file dry.json
    expect_no_file dry.vlproj
    [ -z "$(ls -A temporary)" ] || fail 'a temporary file is left'
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
        expect_status 0 --seed 1 --no-additions "$name.vlproj" back.xml
        ! grep -q -e vela -e authoringApp back.xml || fail "$name.vlproj: additions are written"
    done
    one_clip 100 | sed 's|<track>|<track><name>Titles</name>|' >named.xml
    expect_status 0 --quiet named.xml
    expect_status 0 --no-additions --report - named.vlproj back.xml
    expect_text out 'Only additions to the document type can state the name of the track.'
}

seed() {
    expect_status 0 --quiet --seed 7 "$samples/film.xml" one.vlproj
    expect_status 0 --quiet --seed 7 "$samples/film.xml" two.vlproj
    expect_status 0 --quiet --seed 8 "$samples/film.xml" other.vlproj
    expect_same one.vlproj two.vlproj
    # Wherever the report goes, and how many there are.
    expect_status 0 --quiet --seed 7 --report-dir elsewhere "$samples/film.xml" two.vlproj
    expect_same one.vlproj two.vlproj
    ls elsewhere/*.txt >reports
    expect_lines reports 1
    expect_different one.vlproj other.vlproj
    expect_status 0 --quiet "$samples/film.xml" random1.vlproj
    expect_status 0 --quiet "$samples/film.xml" random2.vlproj
    expect_different random1.vlproj random2.vlproj
}

# A whole sample there and back, against what was reviewed; VELA_ACCEPT=1 accepts what came out.
#   golden_sample SAMPLE NAME [OPTIONS]
golden_sample() {
    local kept=$samples/../tests/data/samples sample=$1 name=$2 file
    shift 2
    expect_status 0 --seed 1 "$@" "$samples/$sample.xml" "$name.vlproj"
    grep -v -e 'Progress: ' -e '^Wrote ' out >"$name.issues"
    expect_status 0 --seed 1 "$name.vlproj" "$name.back.xml"
    grep -v -e 'Progress: ' -e '^Wrote ' out >"$name.back.issues"
    for file in "$name".vlproj "$name".issues "$name".back.xml "$name".back.issues; do
        [ -z "${VELA_ACCEPT:-}" ] || cp "$file" "$kept/$file"
        diff -u "$kept/$file" "$file" | head -40
        expect_same "$kept/$file" "$file"
    done
}

golden() {
    local graphics=FCP.ConvertTitleToGraphicAndType=true
    golden_sample effects effects
    golden_sample grade grade
    golden_sample titles titles
    golden_sample titles titles_as_graphics --set $graphics
    golden_sample titles titles_on_masters --set $graphics \
        --set FCP.ConvertTitleToGraphicAndTypeAsMasterEffects=true
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

# What can't be read: file, reason, location; and nothing under the output's name.
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

    # Truncated: what came before is converted, and the tool reports it.
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
    expect_text err 'No such file or directory'
    expect_status 6 small.xml /dev/full
    expect_text err '/dev/full: the output could not be written: No space left on device.'
    expect_status 0 small.xml /dev/null
    (ulimit -f 1 && expect_status 6 "$samples/film.xml" large.vlproj && [ "$failures" -eq 0 ]) ||
        failures=$((failures + 1))
    expect_text err 'File too large'
    expect_no_file large.vlproj
    expect_no_file large.vlproj.part
}

# A standard output that can't be written: the conversion succeeds, and the loss is reported.
lost_output() {
    minimal >small.xml
    "$tool" small.xml >/dev/full 2>err || fail "status $?"
    expect_text err 'standard output could not be written: No space left on device'
    expect_file small.vlproj
    rm small.vlproj
    "$tool" small.xml >&- 2>err || fail "status $?"
    expect_text err 'standard output could not be written'
    expect_file small.vlproj
    xmllint --noout small.vlproj 2>/dev/null || ! command -v xmllint >/dev/null ||
        fail 'what was said went into the project'
    rm small.vlproj
    "$tool" small.xml >&- 2>&- </dev/null || fail "status $?"
    expect_file small.vlproj
}

# An unknown version is all that these documents have to report.
report() {
    minimal | sed 's/version="5"/version="9"/' >nine.xml
    expect_status 0 nine.xml
    expect_text nine.report.txt 'Version 9'
    expect_text nine.vlproj "<FullPath>$work/nine.report.txt"
    tail -1 out >closing
    expect_text closing '1 assumed'
    expect_text closing "$work/nine.report.txt"
    expect_text out 'Version 9'
    # Each run has a file of its own.
    expect_status 0 nine.xml
    expect_file 'nine.report (1).txt'

    expect_status 0 --report-dir "$work/sub" nine.xml
    [ -d sub ] && expect_file sub/nine.report.txt
    printf '<VelaData Version="4"><Project ObjectID="1"></Project></VelaData>' >four.vlproj
    mkdir beside
    expect_status 0 four.vlproj beside/four.xml
    expect_file beside/four.report.txt

    # A folder that can't be used costs only the report.
    : >file
    expect_status 0 --report-dir "$work/file/x" nine.xml
    expect_file nine.vlproj
    tail -1 out >closing
    expect_text closing '1 assumed'
    expect_no_text closing .txt

    minimal >small.xml
    expect_status 0 small.xml
    tail -1 out >closing
    expect_text closing 'nothing was lost'
    [ ! -e small.report.txt ] || fail 'a report of nothing'
}

# Reports by name, in every format.
report_files() {
    one_clip 0 | sed -e 's/version="5"/version="4"/' \
        -e 's|</clipitem>|<filter><effect><name>Tom \&amp; "Co"</name><effectid>Tom</effectid><effecttype>filter</effecttype><mediatype>video</mediatype></effect></filter>&|' >tom.xml
    expect_status 0 --quiet --report tom.json --report tom.csv --report tom.TXT --report - tom.xml
    expect_text out 'The effect <Tom & "Co" (Tom)> has no counterpart.'
    expect_text tom.TXT 'The effect <Tom & "Co" (Tom)> has no counterpart.'
    expect_text tom.csv '"Tom & ""Co"" (Tom)"'
    expect_text tom.json '"subject":"Tom & \"Co\" (Tom)"'
    if python3 -c 'import jsonschema' 2>/dev/null; then
        python3 - tom.json "$samples/../docs/report.schema.json" <<'CHECK' || fail 'tom.json is not as its schema'
import json, sys, jsonschema
jsonschema.validate(json.load(open(sys.argv[1])), json.load(open(sys.argv[2])))
CHECK
    fi
    expect_text tom.vlproj "<FullPath>$work/tom.json"
    [ ! -e tom.report.txt ] || fail 'a report that nobody named'
    expect_status 64 --report tom.doc tom.xml
    expect_status 6 --report "$work/none/tom.json" tom.xml
    expect_text err 'the report could not be written'
    expect_no_text tom.vlproj '<FullPath>'
    cp tom.xml tom.txt
    expect_status 64 tom.txt -o tom.vlproj --report "$work/../${work##*/}/tom.txt"
    expect_status 64 tom.xml -o tom.json --report tom.json
    expect_same tom.xml tom.txt

    # The status follows what the report has.
    expect_status 11 --fail-on skipped,lost tom.xml
    expect_file tom.vlproj
    expect_status 11 --fail-on any tom.xml
    expect_status 0 --fail-on cut-off,changed tom.xml
    expect_status 64 --fail-on everything tom.xml
    head -c $(($(wc -c <tom.xml) / 2)) tom.xml >cut.xml
    expect_status 11 --fail-on cut-off --report cut.json cut.xml
    expect_text cut.json '"kind":"document.cut-off"'
}

# Two clips of one file, the second with CONTENT.
#   two_clips CONTENT
two_clips() {
    local item='<clipitem id="%s"><name>A</name><duration>50</duration>%s<start>%s</start><end>%s</end><in>0</in><out>50</out><file id="f">%s</file>%s</clipitem>'
    local rate='<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>'
    local format='<samplecharacteristics><width>1920</width><height>1080</height><pixelaspectratio>square</pixelaspectratio></samplecharacteristics>'
    printf '<xmeml version="4"><sequence id="s"><name>Cut</name>%s<media><video><format>%s</format><track>' \
        "$rate" "$format"
    # shellcheck disable=SC2059
    printf "$item$item" \
        a "$rate" 0 50 "<name>A.mov</name><pathurl>file:///m/A.mov</pathurl>$rate<duration>50</duration><media><video>$format</video></media>" '' \
        b "$rate" 100 150 '' "$1"
    printf '</track></video></media></sequence></xmeml>\n'
}

# What nobody looked at is told, and what was written is read back and marked.
losses() {
    local filter='<filter><effect><name>Tom</name><effectid>Tom</effectid><effecttype>filter</effecttype><mediatype>video</mediatype></effect></filter>'
    two_clips '' >one.xml
    expect_status 0 --quiet --verify one.xml
    expect_text out 'nothing was lost (verified)'

    two_clips "<logginginfo><lognote>take 2</lognote></logginginfo><fold><depth>2</depth></fold>$filter" |
        sed 's|<clipitem id="b">|<clipitem id="b" rating="5">|' >one.xml
    expect_status 0 --quiet --report one.json --verify --mark-losses one.xml
    expect_text one.json '"kind":"master-clip.shared"'
    expect_text one.json '"path":"xmeml/sequence/media/video/track/clipitem@rating"'
    expect_text one.json '"path":"xmeml/sequence/media/video/track/clipitem/fold"'
    expect_text one.json '"kind":"element.unread"'
    expect_text one.json '"kind":"element.unknown"'
    expect_no_text one.json 'fold/depth'
    expect_no_text one.json unexplained
    expect_status 0 --inspect one.vlproj
    expect_text out 'marker 00:00:04:00 "lost: A"'
    # The markers are part of the cut now, and an export marks nothing when nothing is lost.
    expect_status 0 --verify --mark-losses one.vlproj back.xml
    tail -1 out >closing
    expect_text closing 'nothing was lost (verified)'
    [ "$(grep -c '<name>lost: A</name>' back.xml)" = 4 ] || fail 'markers of an export'

    # What the format doesn't have is where it is; that of other sequences doesn't count.
    grep -o '"kind":"element.unknown"[^}]*' one.json >unknown
    expect_text unknown '"start":"00:00:04:00"'
    {
        printf '<xmeml version="4"><project><name>P</name><children>'
        two_clips '<fold>1</fold>' | sed 's|</*xmeml[^>]*>||g'
        two_clips '' | sed 's|</*xmeml[^>]*>||g; s|id="s"|id="t"|; s|>Cut<|>Other<|'
        printf '</children></project></xmeml>\n'
    } >show.xml
    expect_status 0 --quiet --report r.json --sequence Cut show.xml part.vlproj
    expect_text r.json '"kind":"element.unknown"'
    expect_status 0 --quiet --report r.json --sequence Other show.xml part.vlproj
    expect_no_text r.json '"kind":"element.unknown"'
    expect_status 0 --quiet show.xml show.vlproj
    sed '/<Name>Other</s|^|<Fold>1</Fold>|' show.vlproj >folded.vlproj
    expect_status 0 --quiet --report r.json --sequence Other folded.vlproj part.xml
    expect_text r.json '"kind":"element.unknown"'
    expect_status 0 --quiet --report r.json --sequence Cut folded.vlproj part.xml
    expect_no_text r.json '"kind":"element.unknown"'

    # What projects alone have is lost where it is not neutral.
    local change
    for change in 's|<Solo>0<|<Solo>1<|' 's|<FieldProcessing>0<|<FieldProcessing>2<|'; do
        sed "$change" show.vlproj >changed.vlproj
        expect_status 0 --quiet --report r.json --fail-on skipped changed.vlproj part.xml
        expect_text r.json "/$(sed 's/.*<\(.*\)>0.*/\1/' <<<"$change")\""
    done
    expect_status 0 --quiet --fail-on any show.vlproj part.xml

    # A file that states nothing of its media is an offline clip.
    two_clips '' | sed 's|<media><video><sample.*</media></file>|</file>|' >offline.xml
    expect_status 0 --quiet --report offline.json offline.xml
    expect_text offline.json '"kind":"dialect.assumed"'

    # Of two sequences of one name each has its own markers.
    {
        printf '<xmeml version="4"><project><name>P</name><children>'
        two_clips "$filter" | sed 's|</*xmeml[^>]*>||g'
        two_clips '' | sed 's|</*xmeml[^>]*>||g; s|id="|id="second-|g'
        printf '</children></project></xmeml>\n'
    } >two.xml
    expect_status 0 --quiet --mark-losses two.xml
    expect_status 0 --inspect two.vlproj
    [ "$(grep -c 'marker 00:00:04:00 "lost: A"' out)" = 1 ] || fail 'markers of two sequences'
}

# Runs at once into one folder: each has a report of its own, and names it in its project.
parallel_reports() {
    local i version named
    mkdir reports
    for i in {1..64}; do
        version=$((i + 100))
        mkdir "$i"
        minimal | sed "s/version=\"5\"/version=\"$version\"/" >"$i/cut.xml"
    done
    for i in {1..64}; do
        (cd "$i" && "$tool" --quiet --report-dir ../reports cut.xml >/dev/null 2>&1) &
    done
    wait
    ls reports/*.txt >list
    expect_lines list 64
    for i in {1..64}; do
        named=$(sed -n 's|.*<FullPath>\(.*\)</FullPath>.*|\1|p' "$i/cut.vlproj")
        grep -qF "Version $((i + 100))" "$named" || fail "$i/cut.vlproj names '$named'"
    done
}

# Names in the tool's messages and in its report are as people write them.
plain_names() {
    one_clip 0 | sed -e 's/version="5"/version="4"/' -e 's|<name>Cut</name>|<name>Q\&amp;A</name>|' \
        -e 's|</clipitem>|<filter><effect><name>Tom \&amp; Co</name><effectid>Tom</effectid><effecttype>filter</effecttype><mediatype>video</mediatype></effect></filter>&|' >names.xml
    expect_status 0 names.xml
    expect_text out 'Q&A'
    expect_no_text out '&amp;'
    expect_no_text names.report.txt '&amp;'
}

# Names in any encoding arrive; invalid bytes are reported, with line and column.
encodings() {
    local text='<?xml version="1.0" encoding="ENC"?><xmeml version="5"><project><name>Caf\303\251 \342\202\254</name><children/></project></xmeml>'
    local encoding
    for encoding in UTF-8 windows-1252 ISO-8859-15 UTF-16 UTF-16LE UTF-16BE UTF-32; do
        # shellcheck disable=SC2059
        printf "${text/ENC/$encoding}" | iconv -f UTF-8 -t "$encoding" >enc.xml
        expect_status 0 --quiet enc.xml
        expect_text out 'nothing was lost'
        expect_status 0 --inspect enc.xml
        expect_text out 'Café €'
        expect_status 0 --compare enc.xml enc.xml
    done
    # Errors have their locations in the text.
    printf '<?xml version="1.0" encoding="UTF-16"?>\n<xmeml>\n<bin>< <' |
        iconv -f UTF-8 -t UTF-16LE >broken.xml
    expect_status 6 broken.xml
    expect_text err 'broken.xml:3:8:'
    # shellcheck disable=SC2059
    printf "${text/ENC/UTF-8}" | iconv -f UTF-8 -t windows-1252 >undeclared.xml
    expect_status 0 --report undeclared.json undeclared.xml
    expect_text undeclared.json '"kind":"document.invalid-bytes"'
    expect_text out 'Bytes that mean nothing in the encoding UTF-8 were replaced, at line 1, column 76'
    expect_status 0 --inspect undeclared.xml
    expect_text err 'undeclared.xml:1:76:'
    # shellcheck disable=SC2059
    printf "${text/ENC/Klingon}" >klingon.xml
    expect_status 0 --report klingon.json klingon.xml
    expect_text klingon.json '"kind":"document.unknown-encoding"'
    expect_text out 'The encoding Klingon is unknown'
    expect_text out '1 assumed,'
    # A project, too.
    printf '<?xml version="1.0" encoding="windows-1252"?><VelaData Version="4\351"><Project ObjectID="1"></Project></VelaData>' >four.vlproj
    expect_status 0 four.vlproj
    expect_text out 'Version 4é'
}

# Documents of the audio editor count in ticks.
handoff_documents() {
    one_clip 100 | sed -e 's/<xmeml version="5">/&<importoptions><sn2vl>TRUE<\/sn2vl><\/importoptions>/' \
        -e 's/<timebase>25/<timebase>254016000000/' \
        -e 's|<media>|<timecode><rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><frame>0</frame></timecode>&|' \
        -e 's/<start>100/<start>1016064000000/; s/<end>150/<end>1524096000000/; s/<out>50/<out>508032000000/' >ticks.xml
    one_clip 100 >frames.xml
    expect_status 0 --quiet ticks.xml
    head -1 ticks.vlproj >first
    expect_text first __Sn2Vl__
    expect_status 0 --inspect ticks.xml
    expect_text out '25 fps'
    expect_text out '00:00:04:00 - 00:00:06:00  "A"'
    expect_status 0 --compare ticks.xml frames.xml
    # The format that the tool itself writes for the audio editor.
    sed 's/sn2vl/vl2sn/g' ticks.xml >back.xml
    expect_status 0 --inspect back.xml
    expect_text out '25 fps'
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
    # The family is recognised by the content; nothing else is mixed into the output.
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
    expect_text out 'it blurs all channels'
    local arguments
    for arguments in '--inspect' '--inspect one.xml two.xml' '--inspect --compare one.xml one.xml' \
        '--compare one.xml' '--json one.xml' '--list-effects one.xml' \
        '--inspect --sequence Cut one.xml' '--inspect=summary --json one.xml' \
        '--list-media --from xmeml one.xml' '--list-sequences --relink . one.xml' \
        '--compare --fail-on any one.xml one.xml' '--list-effects -q'; do
        # shellcheck disable=SC2086
        expect_status 64 $arguments
        [ -s err ] || fail "nothing is said about '$arguments'"
    done
    expect_status 64 --inspect --strict --map-path a=b one.xml
    expect_text err '--inspect excludes --map-path'
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
    expect_status 0 --compare --ignore 'label, start' --ignore end one.xml two.xml
    expect_status 10 --compare --ignore label one.xml two.xml
    expect_status 64 --compare --ignore label,colour one.xml two.xml
    expect_text err 'frame length'
    expect_status 64 --inspect --ignore label one.xml
    expect_status 6 --compare --report absent/r.html one.xml two.xml
    expect_text err 'absent/r.html'
    expect_status 64 --compare --report r.csv one.xml two.xml
    expect_text err 'r.csv: differences are no table'
    expect_status 64 --compare --report one.html one.html two.xml
    expect_text err 'would replace an input'
    cp two.xml kept.xml
    expect_same two.xml kept.xml
    expect_status 5 --compare one.xml absent.xml
    expect_text err absent.xml
}

# Sequences in themselves: each mode ends, and the items that close the circles are named.
circles() {
    local mode document
    {
        printf '<xmeml version="5"><project><name>Circles</name><children>'
        one_clip 100 | sed 's|</*xmeml[^>]*>||g; s|id="s"|id="egg"|; s|>Cut<|>Egg<|; s|</clipitem>|<sequence id="hen"/>&|'
        one_clip 50 | sed 's|</*xmeml[^>]*>||g; s|id="s"|id="hen"|; s|>Cut<|>Hen<|; s|</clipitem>|<sequence id="egg"/>&|'
        one_clip 25 | sed 's|</*xmeml[^>]*>||g; s|id="s"|id="own"|; s|>Cut<|>Own<|; s|</clipitem>|<sequence id="own"/>&|'
        printf '</children></project></xmeml>\n'
    } | sed 's|<media><video>|&<format><samplecharacteristics><width>720</width><height>576</height></samplecharacteristics></format>|g' >circles.xml
    for mode in --verify --strict; do
        expect_status 0 --quiet $mode --report r.json circles.xml circles.vlproj
        expect_text out '2 skipped'
        grep -o '"kind":"sequence.in-itself"[^}]*' r.json >found
        expect_text found '"sequence":"Own","track":"V1","start":"00:00:01:00"'
        expect_no_text r.json unexplained
    done
    # To the letter the project has the circles; other programs get clips without source.
    expect_status 0 --quiet --verify --report r.json circles.vlproj back.xml
    expect_text out '2 skipped'
    expect_no_text r.json unexplained
    expect_no_text back.xml '<sequenceid>'
    for document in circles.xml circles.vlproj; do
        for mode in --inspect '--inspect --json' --inspect=summary --list-sequences --list-media \
            '--quiet --to otio -o circles.otio'; do
            # shellcheck disable=SC2086
            expect_status 0 $mode $document
        done
        expect_status 0 --compare $document circles.xml
        expect_status 0 --quiet --sequence Egg --report r.json $document -o one
        expect_text out '1 skipped'
    done
}

# Of a project that counts in ticks: markers go to the nearest frame, what fills none is named.
between_frames() {
    one_clip 100 | sed 's|<media>|<marker><name>M</name><in>10</in><out>-1</out></marker>&|' >one.xml
    expect_status 0 --quiet one.xml
    sed 's|{"ticks":101606400000}|{"ticks":108606400000}|' one.vlproj >ticks.vlproj
    expect_status 0 --quiet --verify --fail-on changed,lost ticks.vlproj back.xml
    expect_text back.xml '<in>11</in>'
    expect_status 0 --quiet --strict ticks.vlproj back.xml
    expect_text back.xml '<in>10</in>'

    sed 's|<Start>1016064000000<|<Start>1016065000000<|; s|<End>1524096000000<|<End>1020000000000<|' \
        one.vlproj >ticks.vlproj
    expect_status 0 --quiet --verify --report r.json ticks.vlproj back.xml
    grep -o '"kind":"clip.too-short"[^}]*' r.json >found
    expect_text found '"start":"00:00:04:00"'
    expect_no_text r.json unexplained

    # Edges and points that no program can use are named in either manner.
    local manner
    for manner in --verify --strict; do
        sed 's|<End>1524096000000<|<End>1000000000000<|' one.vlproj >ticks.vlproj
        expect_status 0 --quiet $manner --report r.json ticks.vlproj back.xml
        expect_text r.json '"kind":"clip.edges-invalid"'
        sed 's|<OutPoint>508032000000<|<OutPoint>0<|' one.vlproj >ticks.vlproj
        expect_status 0 --quiet $manner --report r.json ticks.vlproj back.xml
        expect_text r.json '"kind":"clip.times-assumed"'
    done
}

# One sequence of a project; one that isn't there is an error.
otio() {
    one_clip 100 >one.xml
    expect_status 0 one.xml --to otio
    expect_text out 'Wrote one.otio: 1 sequence, 1 clip'
    expect_lines out 1
    expect_text one.otio 'Timeline.1'
    expect_no_file one.otio.part
    # From either format, from and to a pipe.
    expect_status 0 --quiet --seed 1 one.xml
    expect_status 0 --to otio one.vlproj -o from_project.otio
    expect_text from_project.otio '"name":"A"'
    "$tool" --to otio - -o - <one.xml >piped.otio 2>err || fail "no conversion between pipes"
    expect_same one.otio piped.otio
    expect_text err 'Wrote standard output: 1 sequence, 1 clip'
    expect_status 0 --to otio --dry-run one.xml -o dry.otio
    expect_text out 'Would write dry.otio'
    expect_no_file dry.otio
    expect_status 0 --to otio --sequence Cut one.xml -o named.otio
    expect_text named.otio 'Timeline.1'
    expect_status 2 --to otio --sequence Other one.xml -o none.otio
    expect_text err 'it holds no sequence Other'
    expect_no_file none.otio

    expect_status 6 --to otio one.xml -o /dev/full
    expect_text err '/dev/full: the output could not be written: No space left on device'
    expect_status 5 --to otio missing.xml
    expect_text err 'missing.xml'
    head -c -30 one.xml >cut.xml
    expect_status 0 --to otio cut.xml
    expect_text err 'only what came before was converted'
    local option
    for option in --verify '--report a.txt' '--report-dir a' '--fail-on any' --mark-losses --handoff --no-additions; do
        # shellcheck disable=SC2086
        expect_status 64 --to otio one.xml $option
    done
}

sequence() {
    one_clip 100 >one.xml
    expect_status 0 --quiet --seed 1 one.xml
    local guid
    guid=$(sed -n 's/.*<Sequence ObjectUID="\([^"]*\)".*/\1/p' one.vlproj | head -1)
    expect_status 0 --quiet --sequence "$guid" one.vlproj chosen.xml
    expect_text chosen.xml '<sequence'
    expect_status 0 --quiet --verify --report named.json --sequence Cut one.vlproj named.xml
    expect_no_text named.json unexplained
    expect_same chosen.xml named.xml
    expect_status 2 --sequence 12345678-1234-1234-1234-123456789abc one.vlproj none.xml
    expect_text err 'holds no sequence 12345678-1234-1234-1234-123456789abc'
    expect_no_file none.xml
    expect_no_file none.xml.part

    # Of several: by name, number and id, in both directions, with what they hold.
    local cut
    cut=$(one_clip 100 | sed 's|^<xmeml version="5">||; s|</xmeml>$||')
    printf '<xmeml version="5"><project><name>Show</name><children>%s<bin><name>B</name><children>%s%s</children></bin></children></project></xmeml>\n' \
        "${cut//Cut/Reel 1}" "$(sed 's/id="s"/id="s2"/; s/Cut/Reel 2/' <<<"$cut")" \
        "$(sed 's/id="s"/id="s3"/; s/Cut/Reel 2/; s/"A"/"Z"/' <<<"$cut")" >show.xml
    expect_status 0 --list-sequences show.xml
    expect_lines out 4
    expect_text out 'Reel 1'
    expect_text out 's3'
    expect_status 0 --list-sequences --json show.xml
    expect_text out '"number": 3'
    expect_status 0 --inspect=summary show.xml
    expect_text out 'Reel 2'
    expect_text out '1 media file, 0 offline'
    expect_status 0 --quiet show.xml
    expect_status 2 --sequence 'Reel 2' show.xml none.vlproj
    expect_text err 'it holds 2 sequences Reel 2, of the numbers 2, 3.'
    local choice
    for choice in 1 'Reel 1' s; do
        expect_status 0 --quiet --verify --report r.json --sequence "$choice" show.xml one.vlproj
        expect_no_text r.json unexplained
        expect_status 0 --list-sequences one.vlproj
        expect_lines out 2
        expect_text out 'Reel 1'
    done
    expect_status 0 --quiet --sequence 3 show.vlproj three.xml
    expect_status 0 --list-sequences three.xml
    expect_lines out 2
    expect_status 2 --sequence 4 show.vlproj none.xml
    expect_status 2 --sequence 0 show.xml none.vlproj
}

# What waits for the other end of a pipe dies of the first signal, and a loop around it with it.
waiting() {
    minimal >small.xml
    "$tool" --quiet small.xml >/dev/null
    mkfifo pipe.xml pipe.vlproj
    local arguments signal pid status
    for arguments in 'pipe.xml new.vlproj' 'pipe.vlproj new.xml' 'small.xml pipe.vlproj' \
        'small.vlproj pipe.xml'; do
        for signal in INT TERM; do
            # shellcheck disable=SC2086
            "$tool" $arguments >out 2>err </dev/null &
            pid=$!
            sleep 0.4
            kill "-$signal" "$pid"
            wait "$pid"
            status=$?
            [ "$status" -eq $((128 + $(kill -l "$signal"))) ] ||
                fail "$arguments: status $status after SIG$signal"
            expect_text err 'The operation was aborted.'
            [ -z "$(ls new.* ./*.part 2>/dev/null)" ] || fail "$arguments leaves $(ls new.* ./*.part)"
        done
    done
    # With both ends there, pipes are as good as files.
    cat small.xml >pipe.xml &
    expect_status 0 pipe.xml new.vlproj
    expect_file new.vlproj
    (cat pipe.vlproj >copy.vlproj) &
    expect_status 0 small.xml pipe.vlproj
    wait
    expect_text copy.vlproj '</VelaData>'

    # bash ends a script whose command died of SIGINT; job control lets the signal through.
    cat >loop.sh <<'SCRIPT'
trap - INT
for i in 1 2 3; do
    echo "round $i" >>rounds
    "$1" pipe.xml looped.vlproj
done
SCRIPT
    set -m
    bash loop.sh "$tool" >/dev/null 2>&1 </dev/null &
    pid=$!
    sleep 0.6
    kill -INT -- "-$pid"
    wait "$pid"
    set +m
    expect_lines rounds 1
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
    for tries in {1..600}; do # it writes: it is at work
        [ -s long.vlproj.part ] && break
        sleep 0.05
    done
    kill -INT "$pid"
    wait "$pid"
    status=$?
    [ "$status" -eq 130 ] || fail "status $status instead of 130"
    cat out err >both
    expect_text both 'The operation was aborted.'
    expect_same long.vlproj earlier
    expect_no_file long.vlproj.part
}

"$theme"
[ "$failures" -eq 0 ]
