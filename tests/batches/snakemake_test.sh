#!/bin/bash
# A batch under Snakemake:  snakemake_test.sh TOOL
set -uo pipefail
tool=$(readlink -f "$1")
workflow=$(dirname "$(readlink -f "$0")")/../../contrib/snakemake/Snakefile
# shellcheck source=SCRIPTDIR/documents.sh
. "$(dirname "$0")/documents.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 2
export HOME=$work # for caches

run() {
    snakemake -s "$workflow" -j 2 --keep-going --nocolor \
        --config input=archive output=projects tool="$tool" "$@" >log 2>&1
}

make_archive archive
run
expect $? 1 'status of the first run'
expect "$(count_files projects '*.vlproj')" 198 outputs
expect "$(count_files projects '*.report.json')" 200 reports

# A second run does what is missing or whose document has changed.
rm projects/reel5/*.vlproj
echo >>'archive/reel6/cut 6.xml'
missing=$((199 - $(count_files projects '*.vlproj')))
rm "archive/reel3/cut 3.xml" archive/reel4/*"'y'.xml"
touch before
run
expect $? 0 'status of the second run'
expect "$(count_files projects '*.vlproj')" 198 'outputs of both runs'
expect "$(find projects -name '*.vlproj' -newer before | wc -l)" "$missing" 'outputs of the second run'

# The way back, with options.
rm -rf archive
mv projects/reel1 archive
printf '<xmeml version="9"><project><name>N</name></project></xmeml>\n' >archive/nine.XML
run options="--fail-on assumed"
expect $? 1 'status with a loss'
expect "$(count_files projects '*.xml')" "$(count_files archive '*.vlproj')" documents

mkdir 'archive/{odd}'
cp archive/nine.XML 'archive/{odd}'
run
expect $? 1 'status with a name that no workflow can have'
grep -q '{odd}/nine.vlproj: Snakemake takes braces' log || fail 'the name is not reported'

[ "$failures" -eq 0 ] || tail -n 20 log
[ "$failures" -eq 0 ]
