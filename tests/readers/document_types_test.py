#!/usr/bin/python3
"""Validates XML documents without our additions by the published document type of their version.

    document_types_test.py path/to/xpjconvert [CORPUS]

Exports of all documents, whole and of each sequence by itself. The document type is a file of the
corpus; without it nothing is checked, and that is printed.
"""
import os
import re
import subprocess
import sys
import tempfile

import documents

TYPE = "xmeml-v4.dtd"


def short(message):
    """A message about content with a long list of names, as the names that aren't in the list."""
    content = re.match(r"Element (\S+) content .*expecting (.*), got \((.*)\)", message)
    if content:
        element, expected, got = content.groups()
        unknown = sorted(set(got.split()) - set(re.findall(r"[\w.]+", expected)))
        if unknown:
            return "no %s in element %s" % (", ".join(unknown), element)
    return message


def errors_of(path, document_type):
    """The validator's messages, each once."""
    done = subprocess.run(["xmllint", "--noout", "--nowarning", "--dtdvalid", document_type, path],
                          capture_output=True, text=True)
    if done.returncode == 0:
        return []
    messages = re.findall(r"error : (.*)", done.stderr) or [done.stderr]
    return sorted({short(message.strip()) for message in messages})


def faults_of(tool, document, document_type):
    faults = []
    for name, path, fault in tool.exports(document, "--no-additions"):
        errors = [fault] if fault else errors_of(path, document_type)
        faults += ["%s, %s: %s" % (documents.stem(document), "whole" if name is None else name, error)
                   for error in errors]
    return faults


def main(program, corpus=documents.CORPUS):
    document_type = os.path.join(corpus, TYPE)
    if not os.path.isfile(document_type):
        print("no document type %s: nothing validated" % document_type)
        return
    paths = documents.documents(corpus)
    with tempfile.TemporaryDirectory() as folder:
        tool = documents.Tool(program, folder)
        faults = sum(documents.for_each(lambda path: faults_of(tool, path, document_type), paths),
                     [])
    documents.finish(len(paths), "documents", faults)


if __name__ == "__main__":
    main(*sys.argv[1:])
