#!/bin/bash
# Texts are in the user's language where a catalog is installed, and the default ones elsewhere. What a
# seed gives is the same in all languages.
#   language_test.sh TOOL HOST MODULE SAMPLES
set -uo pipefail
tool=$1 host=$2 module=$3 samples=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 2
export XDG_DOCUMENTS_DIR=$work
unset LC_ALL LC_MESSAGES LANG
failures=0

# expect_text TEXT VARIABLE=LOCALE...: in the report of a conversion.
expect_text() {
    local text=$1
    shift
    env "$@" "$tool" --quiet "$samples/interview.xml" cut.vlproj --report cut.txt >/dev/null
    grep -qF "$text" cut.txt && return
    failures=1
    echo "$*: the report lacks '$text'"
}
german='gibt es keine Entsprechung'
english='has no counterpart'
expect_text "$german" LANG=de_DE.UTF-8
expect_text "$german" LANG=C LC_MESSAGES=de_AT
expect_text "$german" LANG=C LC_MESSAGES=C LC_ALL=de
expect_text "$english" LANG=de_DE.UTF-8 LC_ALL=C.UTF-8
expect_text "$english" LANG=xx_YY.UTF-8
expect_text "$english" LANG=../../de
expect_text "$english" LANG=

for locale in C de_DE.UTF-8; do
    LC_ALL=$locale "$tool" --quiet --seed 1 "$samples/titles.xml" "$locale.vlproj" \
        --report "$locale.json" >/dev/null
done
cmp C.vlproj de_DE.UTF-8.vlproj || failures=1
items() { sed -n '/"items"/,$p' "$1"; } # below the date and the names of files
cmp <(items C.json) <(items de_DE.UTF-8.json) || failures=1

# expect_type TEXT LOCALE: in the file types of the plug-in.
expect_type() {
    LC_ALL=$2 "$host" --library "$module" types >types.txt
    grep -qF "$1" types.txt || { failures=1; echo "the plug-in in $2 lacks '$1'"; }
}
expect_type 'FCP-XML-Austauschformat' de_DE.UTF-8
expect_type 'FCP XML Interchange Format' C
exit $failures
