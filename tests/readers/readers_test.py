#!/usr/bin/python3
"""Holds what other programs read of our XML documents against the projects that they were made of.

    readers_test.py path/to/xpjconvert PACKAGES [CORPUS]

PACKAGES is a folder with the unpacked packages auto-editor and openshot-qt. Each document is
imported, and each of its sequences exported by itself. Both programs then have to find all clips
where they are in the project. Differences must be those of known_reader_differences.txt, and each
line there must be needed.
"""
import collections
import fractions
import sys
import tempfile
import traceback

import auto_editor_reader
import clips
import documents
import openshot_reader

KNOWN = "known_reader_differences.txt"


def frames(clip, rate):
    return clip.kind, *(None if time is None else round(time * rate)
                        for time in (clip.start, clip.end))


def agrees(expected, found):
    """An end that one of both doesn't know may be anywhere."""
    return expected[:2] == found[:2] and (None in (expected[2], found[2]) or
                                          expected[2] == found[2])


def differences(expected, found, rate):
    """Clips that only one of two lists has, as text; times are compared in whole frames.

    Audio of several channels is one item of a project and a clip for each channel in a document.
    """
    expected = list(expected)
    missing = []
    extra = [frames(clip, rate) for clip in found]
    # Those with an end first: others would take their match.
    for clip in sorted((frames(clip, rate) for clip in expected), key=lambda clip: clip[2] is None):
        match = next((other for other in extra if agrees(clip, other)), None)
        if match:
            extra.remove(match)
        else:
            missing.append(clip)
    channels = [frames(clip, rate) for clip in expected if clip.kind == "audio"]
    extra = [clip for clip in extra if not any(agrees(channel, clip) for channel in channels)]
    for word, rest in (("missing", missing), ("extra", extra)):
        for (kind, start, end), count in collections.Counter(rest).items():
            yield "%s %s clip from %s to %s%s" % (word, kind, start, end,
                                                  ", %d times" % count if count > 1 else "")


def faults_of_reading(read, path, sequence):
    rate = fractions.Fraction(documents.TICKS_PER_SECOND, sequence["frameTicks"])
    try:
        found = read(path, rate)
    except clips.Refused as message:
        return ["refused: %s" % message]
    except Exception as error:  # any fault of that program
        return ["%s: %s at %s" % (type(error).__name__, error,
                                  traceback.extract_tb(error.__traceback__)[-1].line)]
    return list(differences(clips.clips_of(sequence), found, rate))


def main(program, packages, corpus=documents.CORPUS):
    readers = {"auto-editor": auto_editor_reader.load(packages),
               "OpenShot": openshot_reader.load(packages)}
    paths = documents.documents(corpus)
    count = 0
    found = []
    with tempfile.TemporaryDirectory() as folder:
        tool = documents.Tool(program, folder)
        for document, exports in zip(paths, documents.for_each(tool.exports, paths)):
            sequences = {sequence["name"]: sequence
                         for sequence in tool.inspect(tool.project(document))["sequences"]}
            for name, path, fault in exports:
                faults = [("tool", fault)] if fault else [
                    (reader, fault) for reader, read in readers.items() if name is not None
                    for fault in faults_of_reading(read, path, sequences[name])]
                found += [(documents.stem(document), "%s, %s" % (reader, name), fault)
                          for reader, fault in faults]
                count += name is not None
    documents.finish(count, "sequences, each with %d readers" % len(readers),
                     documents.Known(KNOWN).faults(found, paths))


if __name__ == "__main__":
    main(*sys.argv[1:])
