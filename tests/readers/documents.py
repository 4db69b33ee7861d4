"""The documents that the checks of this folder convert, and the tool that converts them.

The samples are always there; documents of other programs are read from a folder beside the
repository where there is one.
"""
import fnmatch
import json
import os
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from concurrent.futures import ThreadPoolExecutor

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CORPUS = os.path.join(os.path.dirname(ROOT), "shared", "corpus")
TICKS_PER_SECOND = 254016000000
FAULTS_PRINTED = 200

# Exit status of a comparison that found differences.
DIFFERENT = 10


def documents(corpus):
    """Paths of all documents; without a corpus, which is printed, those of the samples."""
    folders = [os.path.join(ROOT, "samples")]
    if os.path.isdir(corpus):
        folders.append(corpus)
    else:
        print("no folder %s: the samples alone" % corpus)
    return [os.path.join(folder, file) for folder in folders
            for file in sorted(os.listdir(folder)) if file.endswith(".xml")]


def stem(path):
    return os.path.splitext(os.path.basename(path))[0]


def sequence_guids(project):
    """GUIDs of a project's sequences by name: no document here has two of a name."""
    return {sequence.findtext("Name") or "": sequence.get("ObjectUID")
            for sequence in ElementTree.parse(project).getroot().findall("Sequence")
            if sequence.get("ObjectUID")}


class Tool:
    """xpjconvert; its reports go into a folder of the caller's."""

    def __init__(self, program, folder):
        self.program = os.path.abspath(program)
        self.folder = folder

    def path(self, *words):
        return os.path.join(self.folder, "-".join(words))

    def project(self, document):
        return self.path(stem(document)) + ".vlproj"

    def run(self, *arguments):
        return subprocess.run([self.program, *arguments], capture_output=True, text=True,
                              timeout=300)

    def convert(self, source, target, is_open=True, *options):
        """What the tool printed if it failed, else nothing."""
        strict = [] if is_open else ["--strict"]
        done = self.run(source, target, "--quiet", "--seed", "1", "--report-dir", self.folder,
                        *strict, *options)
        return "" if done.returncode == 0 else "exit status %d: %s%s" % (
            done.returncode, done.stderr, done.stdout)

    def exports(self, document, *options):
        """Imports a document, and exports the project and each of its sequences by itself: (name of
        the sequence or None, path, what failed)."""
        project = self.project(document)
        fault = self.convert(document, project)
        if fault:
            return [(None, project, fault)]
        exports = []
        for name, guid in [(None, "")] + list(sequence_guids(project).items()):
            path = "%s-%s.xml" % (project, guid)
            sequence = ["--sequence", guid] if guid else []
            exports.append((name, path, self.convert(project, path, True, *sequence, *options)))
        return exports

    def inspect(self, path):
        return json.loads(self.run("--inspect", "--json", path).stdout)

    def compare(self, before, after):
        """The differences between the timelines of two documents."""
        done = self.run("--compare", "--json", before, after)
        if done.returncode not in (0, DIFFERENT):
            raise RuntimeError("%s --compare %s %s: %s" % (self.program, before, after, done.stderr))
        return json.loads(done.stdout)["differences"]


class Known:
    """A file of differences that are known: lines of three fields, the document, where in the check,
    and the difference, with | between them. A field may contain * and ?, as in file names."""

    def __init__(self, name):
        self.entries = []
        self.met = set()
        with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), name),
                  encoding="utf-8") as file:
            for line in file:
                if line.strip() and not line.startswith("#"):
                    self.entries.append([field.strip() for field in line.split("|", 2)])

    def contains(self, difference):
        matching = [number for number, entry in enumerate(self.entries)
                    if all(fnmatch.fnmatchcase(text, pattern.replace("[", "[[]"))
                           for text, pattern in zip(difference, entry))]
        self.met.update(matching)
        return bool(matching)

    def faults(self, found, paths):
        """A line for each difference that isn't known, and for each known one of these documents
        that is gone."""
        stems = [stem(path) for path in paths]
        lines = ["not listed: %s | %s | %s" % difference for difference in found
                 if not self.contains(difference)]
        return lines + ["no longer needed: %s | %s | %s" % tuple(entry)
                        for number, entry in enumerate(self.entries)
                        if number not in self.met and fnmatch.filter(stems, entry[0])]


def for_each(check, paths):
    """The results of a check of each document, in the order of the documents."""
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(check, paths))


def finish(count, what, faults):
    """Prints the faults, the first of them if they are many, and ends the process."""
    for fault in faults[:FAULTS_PRINTED]:
        print(fault)
    if len(faults) > FAULTS_PRINTED:
        print("... and %d more" % (len(faults) - FAULTS_PRINTED))
    print("%d %s, %d faults" % (count, what, len(faults)))
    sys.exit(len(faults) > 0 or count == 0)
