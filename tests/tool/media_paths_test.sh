#!/bin/bash
# Media files that are elsewhere than documents state:  media_paths_test.sh TOOL
# A failed expectation names its line.
tool=$1
# shellcheck source=SCRIPTDIR/expectations.sh
. "$(dirname "$0")/expectations.sh"

# ---- Small files

# NUMBER in SIZE bytes, the lowest first.
little() {
    local i
    for ((i = 0; i < $2; i++)); do
        printf "\\x$(printf %02x $((($1 >> (8 * i)) & 255)))"
    done
}
# A second of 8 kHz mono, from SECONDS after midnight.
wave() {
    printf 'RIFF\0\0\0\0WAVEbext'
    little 602 4
    head -c 338 /dev/zero
    little $(($1 * 8000)) 8
    head -c 256 /dev/zero
    printf 'fmt '
    little 16 4
    little 1 2
    little 1 2
    little 8000 4
    little 8000 4
    little 1 2
    little 8 2
    printf data
    little 8000 4
    head -c 8000 /dev/zero
}

# A clip of a second from PATHURL, whose timecode starts with FRAME.
clip() {
    cat <<XML
<clipitem id="c$1"><name>$1</name><duration>25</duration>
  <rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>
  <start>$(($1 * 25))</start><end>$(($1 * 25 + 25))</end><in>0</in><out>25</out>
  <file id="f$1"><name>${2##*/}</name><pathurl>$2</pathurl>
    <rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><duration>25</duration>
    <timecode><rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><frame>$3</frame>
      <displayformat>NDF</displayformat></timecode>
    <media><audio><samplecharacteristics><samplerate>8000</samplerate></samplecharacteristics>
      <channelcount>1</channelcount></audio></media></file>
  <sourcetrack><mediatype>audio</mediatype><trackindex>1</trackindex></sourcetrack></clipitem>
XML
}
document() {
    cat <<XML
<?xml version="1.0"?><!DOCTYPE xmeml><xmeml version="5"><project><name>P</name><children>
<sequence id="s"><name>Cut</name><duration>100</duration>
  <rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><media>
  <video><format><samplecharacteristics><width>1920</width><height>1080</height>
    <rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate></samplecharacteristics></format></video>
  <audio><track>
XML
    cat
    echo '</track></audio></media></sequence></children></project></xmeml>'
}

hour=90000 # in frames
{
    clip 0 file://localhost/Volumes/Media%20A/boom%20%26%20lav.wav $hour
    clip 1 file://localhost/Volumes/Media%20A/sub/lone.wav $hour
    clip 2 file://localhost/C%3a/Sound/none.wav 0
    clip 3 file://localhost/Volumes/Media%20A/twice.wav 0
} | document >cut.xml
mkdir -p disk/1 disk/2 disk/3
wave 7200 >'disk/1/boom & lav.wav'
wave 3600 >'disk/2/boom & lav.wav'
echo damaged >'disk/3/boom & lav.wav'
wave 0 >disk/3/LONE.WAV
wave 0 >disk/1/twice.wav
wave 0 >disk/2/twice.wav

# ---- Mapping, in both directions

expect_status 0 --seed 1 --quiet cut.xml plain.vlproj
expect_status 0 --seed 1 --verify --report map.json --map-path '/Volumes/Media A=/mnt/raid' \
    --map-path '/Volumes/Media A/sub=/mnt/sub' --map-path 'c:\Sound=/mnt/c' cut.xml mapped.vlproj
expect_text mapped.vlproj '/mnt/raid/boom &amp; lav.wav'
expect_text mapped.vlproj /mnt/sub/lone.wav
expect_text mapped.vlproj /mnt/c/none.wav
expect_no_text mapped.vlproj /Volumes/
expect_text map.json media.path-mapped
expect_text map.json 'The path C:/Sound/none.wav became /mnt/c/none.wav.'
expect_no_text map.json unexplained
expect_status 10 --compare cut.xml mapped.vlproj
expect_status 0 --compare cut.xml mapped.vlproj --map-path '/Volumes/Media A/sub=/mnt/sub' \
    --map-path '/Volumes/Media A=/mnt/raid' --map-path 'C:=/mnt/c' --map-path /mnt/c/Sound=/x \
    --map-path C:/Sound=/mnt/c

# And back, by a file.
printf 'old,new\n"/mnt/raid","/Volumes/Media A"\n/mnt,/Volumes/Other, too\n' >bad.csv
expect_status 64 --map-file bad.csv mapped.vlproj back.xml
expect_text err 'bad.csv:3: not two columns'
printf 'old,new\r\n"/mnt/raid","/Volumes/Media A"\r\n/mnt,"/Volumes/Other, too"\r\n' >back.csv
expect_status 0 --seed 1 --verify --report back.json --map-file back.csv mapped.vlproj back.xml
expect_text back.xml 'file://localhost/Volumes/Media%20A/boom%20&amp;%20lav.wav'
expect_text back.xml file://localhost/Volumes/Other,%20too/sub/lone.wav
expect_text back.json '/mnt/sub/lone.wav became /Volumes/Other, too/sub/lone.wav'
expect_no_text back.json unexplained

for arguments in --map-path=/a --map-path==/a --map-path=/a= --map-file=none.csv --relink=none; do
    expect_status 64 "$arguments" cut.xml unwritten.vlproj
    [ ! -e unwritten.vlproj ] || fail "written with $arguments"
done

# ---- Relinking: a timecode decides between files of one name, in both directions

expect_relinked() { # DOCUMENT REPORT
    expect_text "$1" 'disk/2/boom'
    expect_no_text "$1" 'disk/1/boom'
    expect_text "$1" disk/3/LONE.WAV
    expect_text "$2" media.relinked
    expect_text "$2" media.relink-ambiguous
    expect_text "$2" media.not-found
    expect_text "$2" 'of 2 files with its name none was taken'
    expect_text "$2" 'none.wav is neither there nor in a folder that was searched'
    expect_no_text "$2" unexplained
}
expect_status 0 --seed 1 --verify --report r.json --relink disk cut.xml found.vlproj
expect_relinked found.vlproj r.json
expect_status 0 --seed 1 --verify --report r.json --relink disk plain.vlproj found.xml
expect_relinked found.xml r.json
# What is there stays.
expect_status 0 --seed 1 --quiet --report r.json --relink disk found.vlproj again.xml
expect_no_text r.json media.relinked
expect_status 11 --quiet --fail-on skipped --relink disk cut.xml failed.vlproj
# Relative paths count from the document.
mkdir show
clip 0 ../disk/1/twice.wav 0 | document >show/relative.xml
expect_status 0 --seed 1 --quiet --report r.json --relink disk/2 show/relative.xml relative.vlproj
expect_no_text r.json media.
expect_status 0 --seed 1 --quiet --map-path "$work/disk=/mnt" show/relative.xml relative.vlproj
expect_text relative.vlproj /mnt/1/twice.wav

# ---- Looks

clip 0 file://localhost/a.wav 0 | document | sed 's|<video>|&|;s|</format></video>|</format><track>\
<generatoritem id="g"><name>G</name><duration>25</duration><start>0</start><end>25</end><in>0</in>\
<out>25</out><effect><name>Color</name><effectid>Color</effectid><effecttype>generator</effecttype>\
<mediatype>video</mediatype></effect><filter><effect><name>Warm</name><effectid>Gradiva</effectid>\
<effecttype>filter</effecttype><mediatype>video</mediatype><parameter><parameterid>x</parameterid>\
<name>path</name><value>/Looks/warm.cube</value></parameter></effect></filter></generatoritem>\
</track></video>|' >look.xml
expect_status 0 --quiet --report r.json --map-path /Looks=/mnt/looks look.xml look.vlproj
expect_text r.json 'The path /Looks/warm.cube became /mnt/looks/warm.cube.'

# ---- The list

expect_status 0 --list-media cut.xml
expect_text out '01:00:00:00  00:00:01:00     1  /Volumes/Media A/sub/lone.wav'
expect_no_text out yes
expect_status 0 --list-media --relink disk --map-path C:=/mnt cut.xml
expect_text out New
expect_text out "$work/disk/2/boom & lav.wav"
expect_text out several
expect_text out /mnt/Sound/none.wav
for format in json csv; do
    expect_status 0 --list-media=$format --relink disk cut.xml
    mv out "xml.$format"
    expect_text "xml.$format" "$work/disk/3/LONE.WAV"
    expect_status 0 --list-media=$format --relink disk plain.vlproj
    mv out "project.$format"
    expect_same "xml.$format" "project.$format"
done
expect_text xml.json '"candidates": 2'
[ "$(head -1 xml.csv)" = $'name,there,start,length,uses,path,new path\r' ] || fail 'CSV heading'
expect_status 0 --list-media --json cut.xml
expect_text out '"there": false'
expect_status 64 --list-media=html cut.xml
expect_status 64 --list-media cut.xml --inspect

exit $((failures > 0))
