#!/bin/bash
# The module exports its three functions and nothing else.
#   exports_test.sh MODULE
set -euo pipefail

expected='importFCPXML
xProjectConverterEntry
xProjectConverterEntryWithAAFSupport'
found=$(nm --dynamic --defined-only "$1" | awk '{ print $NF }' | LC_ALL=C sort)
if [ "$found" != "$expected" ]; then
    echo "exported:"
    echo "$found"
    exit 1
fi
