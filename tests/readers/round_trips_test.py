#!/usr/bin/python3
"""Holds the timelines of projects against what comes back from their XML documents.

    round_trips_test.py path/to/xpjconvert [CORPUS]

A document's passes are written as signs: an import, an export, an import and so on, each with the
dialect rules (+) or to the letter (-). Differences must be those of known_differences.txt, and each
line there must be needed.
"""
import itertools
import sys
import tempfile

import documents

KNOWN = "known_differences.txt"
SIGNS = "+-"

# The passes between which nothing may change: once around in every mixture of signs, and three times
# around against once.
COMPARED = [(passes[0], passes) for passes in map("".join, itertools.product(SIGNS, repeat=3))]
COMPARED += [(sign * 3, sign * 7) for sign in SIGNS]


class Passes:
    """What a document becomes on its ways; each conversion is made once."""

    def __init__(self, tool, document):
        self.tool = tool
        self.name = documents.stem(document)
        self.paths = {"": document}

    def after(self, passes):
        """The path of a project, or of an XML document if the last pass is an export."""
        if passes not in self.paths:
            source = self.after(passes[:-1])
            target = self.tool.path(self.name, passes) + (".vlproj" if len(passes) % 2 else ".xml")
            fault = self.tool.convert(source, target, passes[-1] == "+")
            if fault:
                raise RuntimeError("passes %s failed, %s" % (passes, fault))
            self.paths[passes] = target
        return self.paths[passes]


def text_of(difference):
    """For instance: moved Cut: V2 01:00:08:00 clip "Boat leaves": start 200 (00:00:08:00) -> 201 ..."""
    subject = '%(subject)s "%(name)s"' % difference
    if difference["subject"] != "sequence":
        subject = "%(sequence)s: %(track)s %(timecode)s " % difference + subject
    text = "%s %s" % (difference["change"], subject)
    if difference["property"]:
        text += ": %s %s -> %s" % (difference["property"], difference["before"] or "nothing",
                                   difference["after"] or "nothing")
    return " ".join(text.split())


def differences_of(tool, document):
    """(document, passes, difference)"""
    passes = Passes(tool, document)
    found = []
    for before, after in COMPARED:
        try:
            texts = map(text_of, tool.compare(passes.after(before), passes.after(after)))
        except RuntimeError as failure:
            texts = [" ".join(str(failure).split())]
        found += [(passes.name, after, text) for text in texts]
    return found


def main(program, corpus=documents.CORPUS):
    paths = documents.documents(corpus)
    with tempfile.TemporaryDirectory() as folder:
        tool = documents.Tool(program, folder)
        found = sum(documents.for_each(lambda path: differences_of(tool, path), paths), [])
    documents.finish(len(paths), "documents", documents.Known(KNOWN).faults(found, paths))


if __name__ == "__main__":
    main(*sys.argv[1:])
