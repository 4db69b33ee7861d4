#!/bin/bash
# Each C listing of a document is, to the letter, in the example that it is taken from.
#   listings_test.sh DOCUMENT SOURCE
set -euo pipefail

source=$(<"$2")
count=0
listing=
inside=
while IFS= read -r line; do
    case $line in
    '```c') inside=1 listing= ;;
    '```')
        if [ -n "$inside" ] && [[ $source != *"$listing"* ]]; then
            echo "not in $2:"
            echo "$listing"
            exit 1
        fi
        count=$((count + ${inside:-0}))
        inside=
        ;;
    *) listing+=$line$'\n' ;;
    esac
done <"$1"
[ "$count" -gt 0 ]
