"""auto-editor's reader of XML documents, without the libraries and media that it would need."""
import contextlib
import io
import os
import sys
from unittest.mock import MagicMock

from clips import Clip, Refused

PACKAGE = "auto-editor/usr/lib/python3/dist-packages"


def load(packages):
    """Imports the reader from unpacked packages, with what it only uses elsewhere replaced."""
    for module in ("numpy", "numpy.typing", "av", "PIL"):
        sys.modules.setdefault(module, MagicMock())
    sys.path.insert(0, os.path.join(packages, PACKAGE))
    from auto_editor.formats import premiere
    from auto_editor.utils.log import Log

    premiere.FileInfo = lambda path, *_: path  # would run ffprobe on the media file
    return lambda path, _: read(premiere, Log, path)


def read(premiere, log, path):
    """The clips of the document's one sequence; its own message if it ends with one."""
    messages = io.StringIO()
    try:
        with contextlib.redirect_stderr(messages), contextlib.redirect_stdout(messages):
            timeline = premiere.premiere_read_xml(path, None, log())
    except SystemExit as end:
        raise Refused(messages.getvalue().rpartition("Error! ")[2].strip()) from end

    def time(frame):
        return None if frame < 0 else float(frame / timeline.timebase)

    return [Clip(kind, time(clip.start), time(clip.start + clip.dur))
            for kind, tracks in (("video", timeline.v), ("audio", timeline.a))
            for track in tracks for clip in track]
