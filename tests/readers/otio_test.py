#!/usr/bin/python3
"""Checks the OpenTimelineIO files of documents by the published schema and against their timelines.

    otio_test.py path/to/xpjconvert [CORPUS]

Of each document and of the project that it becomes. Every object has the fields of its schema, every
track is a valid row of gaps, items and transitions, and every clip, transition and marker is where an
inspection has it: positions are summed up from the lengths of what is before, as any reader does it.
"""
import collections
import json
import sys
import tempfile
import urllib.parse

import documents

NAMESPACE = "vela_fcpxml"
TICKS = documents.TICKS_PER_SECOND

# Fields of the schemas beside "OTIO_SCHEMA", with the types of those that aren't checked elsewhere.
OBJECT = {"name": str, "metadata": dict}
COMPONENT = {**OBJECT, "source_range": ("TimeRange", None), "effects": list, "markers": list,
             "enabled": bool}
REFERENCE = {**OBJECT, "available_range": ("TimeRange", None), "available_image_bounds": (None,)}
EFFECT = {**OBJECT, "effect_name": str, "enabled": bool}
SCHEMAS = {
    "SerializableCollection.1": {**OBJECT, "children": list},
    "Timeline.1": {**OBJECT, "global_start_time": ("RationalTime", None), "tracks": ("Stack",)},
    "Stack.1": {**COMPONENT, "children": list},
    "Track.1": {**COMPONENT, "kind": str, "children": list},
    "Clip.2": {**COMPONENT, "media_references": dict, "active_media_reference_key": str},
    "Gap.1": COMPONENT,
    "Transition.1": {**OBJECT, "transition_type": str, "in_offset": ("RationalTime",),
                     "out_offset": ("RationalTime",)},
    "Marker.2": {**OBJECT, "color": str, "comment": str, "marked_range": ("TimeRange",)},
    "ExternalReference.1": {**REFERENCE, "target_url": str},
    "MissingReference.1": REFERENCE,
    "GeneratorReference.1": {**REFERENCE, "generator_kind": str, "parameters": dict},
    "Effect.1": EFFECT,
    "TimeEffect.1": EFFECT,
    "LinearTimeWarp.1": {**EFFECT, "time_scalar": float},
    "FreezeFrame.1": {**EFFECT, "time_scalar": float},
    "TimeRange.1": {"start_time": ("RationalTime",), "duration": ("RationalTime",)},
    "RationalTime.1": {"rate": float, "value": float},
}
# Schemas without versions of what lists hold.
ENTRIES = {"effects": {"Effect", "TimeEffect", "LinearTimeWarp", "FreezeFrame"},
           "markers": {"Marker"}}
CHILDREN = {"SerializableCollection": {"Timeline", "Clip"}, "Stack": {"Track"},
            "Track": {"Clip", "Gap", "Stack", "Transition"}}
REFERENCES = {"ExternalReference", "MissingReference", "GeneratorReference"}


def schema(value):
    """"Clip" of a "Clip.2", None of what is no object of a schema."""
    if not isinstance(value, dict):
        return None
    return value.get("OTIO_SCHEMA", "").partition(".")[0] or None


def is_of(value, kind):
    if isinstance(kind, tuple):
        return value is None and None in kind or schema(value) in kind
    return type(value) is kind


def schema_faults(value):
    """Of an object and all in it, also in its metadata."""
    if isinstance(value, list):
        return sum(map(schema_faults, value), [])
    if not isinstance(value, dict):
        return []
    faults = sum(map(schema_faults, value.values()), [])
    if "OTIO_SCHEMA" not in value:
        return faults
    name = value["OTIO_SCHEMA"]
    fields = SCHEMAS.get(name)
    if fields is None:
        return faults + ["unknown schema %s" % name]
    if set(value) - {"OTIO_SCHEMA"} != set(fields):
        return faults + ["%s has the fields %s" % (name, sorted(value))]
    faults += ["%s.%s is %r" % (name, field, value[field])
               for field, kind in fields.items() if not is_of(value[field], kind)]
    entries = {**ENTRIES, "children": CHILDREN.get(schema(value))}
    faults += ["%s in %s.%s" % (schema(entry), name, field) for field, allowed in entries.items()
               for entry in value.get(field, []) if schema(entry) not in allowed]
    if schema(value) == "Clip":
        references = value["media_references"]
        if value["active_media_reference_key"] not in references or any(
                schema(reference) not in REFERENCES for reference in references.values()):
            faults.append("Clip.2 with the media references %s" % list(references))
    return faults


def ticks(time):
    return round(time["value"] / time["rate"] * TICKS)


def length(child):
    return ticks(child["source_range"]["duration"])


# A clip or a transition with its position in ticks.
Position = collections.namedtuple("Position", "track name start end source")


def is_near(a, b):
    """Less than a thousandth of a frame apart: rates and values are floating point numbers."""
    return (a.track, a.name) == (b.track, b.name) and all(
        abs(x - y) < TICKS / 1e5 for x, y in zip(a[2:], b[2:]))


def row_faults(track):
    """Of the rules for transitions and their neighbors."""
    row = track["children"]
    taken = [0.0] * len(row)
    for i, child in enumerate(row):
        if schema(child) != "Transition":
            if length(child) < 0:
                yield "%s lasts %d ticks" % (child["name"], length(child))
            continue
        if not 0 < i < len(row) - 1:
            yield "transition %s at an end of a track" % child["name"]
            continue
        if "Transition" in (schema(row[i - 1]), schema(row[i + 1])):
            yield "transition %s beside another" % child["name"]
            continue
        taken[i - 1] += ticks(child["in_offset"])
        taken[i + 1] += ticks(child["out_offset"])
        if min(ticks(child["in_offset"]), ticks(child["out_offset"])) < 0:
            yield "transition %s with a negative offset" % child["name"]
    for child, ticks_taken in zip(row, taken):
        if schema(child) != "Transition" and ticks_taken > length(child) + 1:
            yield "transitions on more than all of %s" % child["name"]


class Found:
    """What the tracks of one stack hold."""

    def __init__(self, stack):
        self.items = []
        self.transitions = []
        self.unplaced = 0
        self.nested = []
        self.faults = []
        for track in stack["children"]:
            self.faults += row_faults(track)
            self.add(track)

    def add(self, track):
        metadata = track["metadata"][NAMESPACE]
        name = metadata["track"]
        if track["kind"] != {"V": "Video", "A": "Audio"}[name[0]]:
            self.faults.append("track %s of the kind %s" % (name, track["kind"]))
        self.unplaced += len(metadata.get("unplaced_clips", []))
        now = 0
        for child in track["children"]:
            if schema(child) == "Transition":
                start, end = now - ticks(child["in_offset"]), now + ticks(child["out_offset"])
                stated = child["metadata"][NAMESPACE].get("stated_range")
                if stated:
                    begin = ticks(stated["start_time"])
                    if start < begin - 1 or end > begin + ticks(stated["duration"]) + 1:
                        self.faults.append("%s covers more than was stated" % child["name"])
                    start, end = begin, begin + ticks(stated["duration"])
                self.transitions.append(Position(name, child["name"], start, end, 0))
                continue
            end = now + length(child)
            if schema(child) != "Gap":
                source = ticks(child["source_range"]["start_time"])
                self.items.append(Position(name, child["name"], now, end, source))
            if schema(child) == "Stack":
                self.nested.append((name[0], child))
            now = end
        for transition in metadata.get("unplaced_transitions", []):
            start = ticks(transition["range"]["start_time"])
            end = start + ticks(transition["range"]["duration"])
            self.transitions.append(Position(name, transition["name"], start, end, 0))


def is_placed(item):
    return 0 <= item["start"]["ticks"] <= item["end"]["ticks"]


def items_of(inspected, sequence, kinds):
    for track in sequence["tracks"]:
        if track["track"][0] not in kinds:
            continue
        for item in track["items"]:
            media = item["source"]["medium"]
            first = 0 if media is None else inspected["media"][media]["start"]["ticks"]
            yield item, Position(track["track"], item["name"], item["start"]["ticks"],
                                 item["end"]["ticks"], first + item["in"]["ticks"])


def transitions_of(sequence, kinds):
    return [Position(track["track"], transition["name"], transition["start"]["ticks"],
                     transition["end"]["ticks"], 0)
            for track in sequence["tracks"] if track["track"][0] in kinds
            for transition in track["transitions"]]


def differences(what, expected, found):
    expected, found = sorted(expected), sorted(found)
    if len(expected) != len(found):
        yield "%d %s, expected %d" % (len(found), what, len(expected))
    for one, other in zip(expected, found):
        if not is_near(one, other):
            yield "%s: expected %s, found %s" % (what, one, other)
            return


def stack_faults(inspected, sequence, stack, kinds="VA"):
    found = Found(stack)
    faults = found.faults
    items = list(items_of(inspected, sequence, kinds))
    placed = [position for item, position in items if is_placed(item)]
    faults += differences("clips", placed, found.items)
    faults += differences("transitions", transitions_of(sequence, kinds), found.transitions)
    if found.unplaced != sum(not is_placed(item) for item, _ in items):
        faults.append("%d clips without a position" % found.unplaced)
    for kind, nested in found.nested:
        name = nested["metadata"][NAMESPACE]["sequence"]["name"]
        named = [other for other in inspected["sequences"] if other["name"] == name]
        if not named:
            faults.append("a nested sequence %s" % name)
        elif len(named) == 1:
            faults += stack_faults(inspected, named[0], nested, kind)
    return faults


def media_faults(inspected, root):
    """Every file of the browser and the timelines is one that the document has."""
    paths = {media["path"] for media in inspected["media"]}
    waiting = [root]
    while waiting:
        value = waiting.pop()
        if schema(value) == "ExternalReference":
            url = urllib.parse.urlsplit(value["target_url"])
            path = urllib.parse.unquote(url.path)
            if url.netloc not in ("", "localhost"):
                path = "//" + url.netloc + path
            if not paths & {path, path[1:], path.replace("/", "\\"), value["target_url"],
                            path[1:].replace("/", "\\")}:
                yield "media %s" % value["target_url"]
        waiting += value.values() if isinstance(value, dict) else value if isinstance(
            value, list) else ()


def browser_sequences(entries):
    """Indices of the sequences that a browser shows."""
    found = {entry["sequence"] for entry in entries if "sequence" in entry}
    return found.union(*(browser_sequences(entry.get("entries", [])) for entry in entries))


def faults_of_file(inspected, root):
    faults = schema_faults(root)
    if faults:
        return faults  # nothing else can be read
    wanted = sorted(browser_sequences(inspected["bins"]))
    timelines = [root] if schema(root) == "Timeline" else root["children"]
    if wanted and [inspected["sequences"][i]["name"] for i in wanted] != [
            timeline["name"] for timeline in timelines]:
        return ["timelines %s" % [timeline["name"] for timeline in timelines]]
    for number, timeline in zip(wanted, timelines):
        sequence = inspected["sequences"][number]
        if abs(ticks(timeline["global_start_time"]) - sequence["start"]["ticks"]) > TICKS / 1e5:
            faults.append("starts at %s" % timeline["global_start_time"])
        if len(timeline["tracks"]["markers"]) != len(sequence["markers"]):
            faults.append("%d markers" % len(timeline["tracks"]["markers"]))
        faults += stack_faults(inspected, sequence, timeline["tracks"])
    return faults + list(media_faults(inspected, root))


def faults_of(tool, document):
    project = tool.project(document)
    fault = tool.convert(document, project)
    if fault:
        return ["%s: %s" % (documents.stem(document), fault)]
    found = []
    for path in (document, project):
        done = tool.run(path, "--to", "otio", "-o", "-")
        faults = ["exit status %d: %s" % (done.returncode, done.stderr)] if done.returncode else \
            faults_of_file(tool.inspect(path), json.loads(done.stdout))
        found += ["%s: %s" % (path, fault) for fault in faults]
    return found


def main(program, corpus=documents.CORPUS):
    paths = documents.documents(corpus)
    with tempfile.TemporaryDirectory() as folder:
        tool = documents.Tool(program, folder)
        faults = sum(documents.for_each(lambda path: faults_of(tool, path), paths), [])
    documents.finish(len(paths), "documents", faults)


if __name__ == "__main__":
    main(*sys.argv[1:])
