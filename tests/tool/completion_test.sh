#!/bin/bash
# What the shells complete, and that man pages and completions are well-formed; a shell that isn't
# installed is passed over.
#   completion_test.sh MANUAL_DIR
set -uo pipefail
manual=$1
bash_file=$manual/bash-completion/completions/xpjconvert
zsh_file=$manual/zsh/site-functions/_xpjconvert
fish_file=$manual/fish/vendor_completions.d/xpjconvert.fish
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
touch cut.xml 'my cut.XML' cut.vlproj notes.txt
mkdir reels
failures=0

# words WORD...: the completions of the last word.
words() {
    # shellcheck disable=SC2034 # read by the completion
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _xpjconvert
    printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | paste -sd '|'
}
# expect RESULT WORD...
expect() {
    local expected=$1 found
    shift
    found=$(words "$@")
    [ "$found" = "$expected" ] && return
    failures=1
    printf 'bash: %s\n  expected %s\n  found    %s\n' "$*" "$expected" "$found"
}
# shellcheck source=/dev/null
. "$bash_file" || failures=1
expect 'cut.vlproj|cut.xml|my cut.XML|reels' xpjconvert ''
expect 'cut.vlproj|cut.xml' xpjconvert --strict cu
expect 'cut.vlproj|cut.xml' xpjconvert --inspect cu
expect 'cut.vlproj|cut.xml|my cut.XML|notes.txt|reels' xpjconvert cut.xml -o ''
expect reels xpjconvert -j reel
expect reels xpjconvert cut.xml --report-dir ''
expect '--report-dir' xpjconvert --report-d
expect xmeml xpjconvert --from x
expect xmeml xpjconvert --from = x
expect 'vlproj|xmeml' xpjconvert --from =
expect summary xpjconvert --inspect = s
expect lost xpjconvert --fail-on lo
expect 'lost,changed|lost,cut-off' xpjconvert --fail-on lost,c
expect 'start,bin clip' xpjconvert --ignore 'start,bin\ '
expect '' xpjconvert --set x

# fish_expect RESULT COMMAND_LINE
fish_expect() {
    local found
    found=$(HOME=$work fish --no-config -c "source $fish_file; complete -C '$2'" | cut -f1 |
        LC_ALL=C sort | paste -sd '|')
    [ "$found" = "$1" ] && return
    failures=1
    printf 'fish: %s\n  expected %s\n  found    %s\n' "$2" "$1" "$found"
}
if command -v fish >/dev/null; then
    fish -n "$fish_file" || failures=1
    fish_expect '--report-dir' 'xpjconvert --report-d'
    fish_expect 'xmeml' 'xpjconvert --from x'
    fish_expect 'lost,changed|lost,cut-off' 'xpjconvert --fail-on lost,c'
fi
if command -v zsh >/dev/null; then
    zsh -n "$zsh_file" || failures=1
fi
if command -v mandoc >/dev/null; then
    mandoc -T lint -W style "$manual/man/man1/xpjconvert.1" || failures=1
fi
exit $failures
