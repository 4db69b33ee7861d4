# shellcheck shell=bash
# The documents of the tests here: sourced, not run.

# 200 documents below a folder, two of which can't be read.
make_archive() {
    local i folder
    for i in {1..200}; do
        folder=$1/reel$((i % 7))
        mkdir -p "$folder"
        printf '<xmeml version="5"><project><name>%s</name><children></children></project></xmeml>\n' \
            "$i" >"$folder/cut $i.xml"
    done
    printf '<xmeml version="5"><bin>< <' | tee "$1/reel3/cut 3.xml" >"$1/reel4/cut (x) & 'y'.xml"
    rm "$1/reel4/cut 4.xml"
}

failures=0
fail() {
    echo "$(basename "$0"):${BASH_LINENO[0]}: $*"
    failures=$((failures + 1))
}
# How many files below a folder have such a name.
count_files() { find "$1" -type f -name "$2" | wc -l; }
expect() { [ "$1" = "$2" ] || fail "$3: $1 instead of $2"; }
