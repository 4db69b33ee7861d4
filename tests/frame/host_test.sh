#!/bin/bash
# The module as a host in C sees it: both directions, the smallest buffer, failing streams.
#   host_test.sh HOST MODULE SAMPLES
set -euo pipefail

host=$1 module=$2 samples=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_DOCUMENTS_DIR=$folder/reports
mkdir "$XDG_DOCUMENTS_DIR"

# expect STATUS LINE ARGUMENTS...: runs the host and looks at its exit status and last line.
expect() {
    local status=$1 line=$2 output found=0
    shift 2
    output=$("$host" --library "$module" "$@") || found=$?
    if [ "$found" != "$status" ] || [ "$(tail -n 1 <<<"$output")" != "$line" ]; then
        echo "expected status $status and '$line' of: $*"
        echo "status $found: $output"
        exit 1
    fi
}

absent() {
    if [ -n "$(compgen -G "$1*")" ]; then
        echo "left behind: $1"
        exit 1
    fi
}

expect 0 'code 0' types
for sample in "$samples"/*.xml; do
    expect 0 'code 0' import "$sample" "$folder/a.vlproj"
    grep -q '</VelaData>' "$folder/a.vlproj"
    for options in '--buffer-size 1' '--buffer-size 1000000 --aaf' '--show-ui'; do
        expect 0 'code 0' $options export "$folder/a.vlproj" "$folder/b.xml"
        grep -q '</xmeml>' "$folder/b.xml"
        rm "$folder/b.xml"
    done
done

expect 2 'code -1' --fail-after 100 import "$sample" "$folder/c.vlproj"
expect 2 'code -1' --buffer-size 0 import "$sample" "$folder/c.vlproj"
absent "$folder/c.vlproj"
expect 2 'code -1' --buffer-size 64 --fail-after 100 export "$folder/a.vlproj" "$folder/c.xml"
expect 2 'code -1' --buffer-size 0 export "$folder/a.vlproj" "$folder/c.xml"
absent "$folder/c.xml"

expect 17 'code -7000' import "$folder/a.vlproj" "$folder/c.vlproj"
expect 17 'code -7000' import "$folder/none.xml" "$folder/c.vlproj"
expect 17 'code -7000' export "$sample" "$folder/c.xml"
expect 16 'code -6000' export "$folder/a.vlproj" "$folder/none/c.xml"
absent "$folder/c"

# The hand-off mark comes out of the name; a name needn't be ASCII.
expect 0 'code 0' export "$folder/a.vlproj" "$folder/clip__Vl2Sn__été 𝄞.xml"
grep -q '<name>été 𝄞</name>' "$folder/été 𝄞.xml"
cp "$sample" "$folder/été 𝄞.xml"
expect 0 'code 0' import "$folder/été 𝄞.xml" "$folder/d.vlproj"
