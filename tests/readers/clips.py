"""What a reader finds on the tracks of a sequence, and what it should find."""
import collections

from documents import TICKS_PER_SECOND

# Start and end in seconds; None where a transition defines the edge and the reader has to look it up.
Clip = collections.namedtuple("Clip", "kind start end")


class Refused(Exception):
    """A reader ended with a message of its own."""


KINDS = {"V": "video", "A": "audio"}


def clips_of(sequence):
    """Those of an inspected sequence that are written as clip items: not its generators."""
    for track in sequence["tracks"]:
        covered = [(transition["start"]["ticks"], transition["end"]["ticks"])
                   for transition in track["transitions"]]

        def time(edge):
            ticks = edge["ticks"]
            at_transition = any(begin <= ticks <= end for begin, end in covered)
            return None if at_transition else ticks / TICKS_PER_SECOND

        for item in track["items"]:
            if item["source"]["kind"] != "generator" and item["start"] and item["end"]:
                yield Clip(KINDS[track["track"][0]], time(item["start"]), time(item["end"]))
