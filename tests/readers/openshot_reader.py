"""OpenShot's importer of XML documents, without its window, its player and the media."""
import json
import os
import sys
import types
import xml.etree.ElementTree as ElementTree
from unittest.mock import MagicMock

from clips import Clip

IMPORTER = "openshot-qt/usr/lib/python3/dist-packages/openshot_qt/classes/importers"


class Project:
    """What the importer looks up in the project, and what it adds to it."""

    def __init__(self):
        self.settings = {}
        self.path = ""
        self.current_filepath = ""
        self.tracks = []
        self.clips = []

    def get(self, key):
        return self.settings[key] if key != "layers" else [{"number": 0}] + [
            track.data for track in self.tracks]


def record_of(saved):
    """A class of project data whose objects go into a list when they are saved."""
    class Record:
        id = "1"

        def __init__(self):
            self.data = {}

        def save(self):
            saved.append(self)

        @classmethod
        def get(cls, **_):
            return None
    return Record


def module(name, **contents):
    """Puts a module of these contents in the way of an import."""
    made = types.ModuleType(name)
    made.__dict__.update(contents)
    sys.modules[name] = made
    return made


def media_clip(_):
    """A clip of media that has video and audio."""
    clip = MagicMock()
    clip.Json.return_value = json.dumps({})
    clip.Reader().Json.return_value = json.dumps({"has_video": True, "has_audio": True, "id": "1"})
    return clip


def load(packages):
    """Imports the importer from unpacked packages, among modules that it needs to run headless."""
    project = Project()
    app = MagicMock(project=project)
    dialog = MagicMock()
    dialog.getOpenFileName = lambda *_: (project.path, "")
    module("PyQt5")
    module("PyQt5.QtWidgets", QFileDialog=dialog)
    module("openshot", Clip=media_clip)
    classes = module("classes", info=MagicMock(HOME_PATH="/", THUMBNAIL_PATH="/", PATH="/"))
    classes.__path__ = []
    module("classes.app", get_app=lambda: app)
    module("classes.logger", log=MagicMock())
    module("classes.image_types", is_image=lambda _: False)
    module("classes.query", Clip=record_of(project.clips), Track=record_of(project.tracks),
           File=record_of([]))
    module("windows").__path__ = []
    module("windows.views").__path__ = []
    module("windows.views.find_file", find_missing_file=lambda path: (path, False, False))
    sys.path.insert(0, os.path.join(packages, IMPORTER))
    import final_cut_pro
    return lambda path, rate: read(final_cut_pro.import_xml, project, path, rate)


def read(import_xml, project, path, rate):
    """The clips that the import adds to a project of that frame rate."""
    project.path = path
    project.settings["fps"] = {"num": rate.numerator, "den": rate.denominator}
    project.tracks.clear()
    project.clips.clear()
    import_xml()

    # Tracks of audio are added first.
    audio = [track for track in ElementTree.parse(path).iterfind(".//audio/track")
             if track.find("clipitem") is not None]
    audio_layers = [track.data["number"] for track in project.tracks[:len(audio)]]

    def clip_of(data):
        begin = data["position"]
        is_defined = begin >= 0
        return Clip("audio" if data["layer"] in audio_layers else "video",
                    begin if is_defined else None,
                    begin + data["end"] - data["start"] if is_defined else None)

    return [clip_of(clip.data) for clip in project.clips]
