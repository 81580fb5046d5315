"""Others' readers and writers of what the page keeps and shows: Python's property lists, and GNOME's pictures. Bytes are
told in base64."""

import base64
import os
import plistlib
import sys
import tempfile

from gi.repository import GdkPixbuf

sys.path.append(os.path.join(os.path.dirname(__file__), "../../../tools"))
import archive_exchange  # noqa: E402
from helper import serve  # noqa: E402


def read_notes(archive):
    with tempfile.NamedTemporaryFile() as file:
        file.write(base64.b64decode(archive))
        file.flush()
        return archive_exchange.read(file.name)


def write_notes(notes):
    with tempfile.NamedTemporaryFile() as file:
        archive_exchange.write(file.name, notes, as_others=False)
        return base64.b64encode(file.read()).decode()


def read_settings(file):
    return plistlib.loads(base64.b64decode(file))


def usual_settings():
    """Of somebody who has had the program for some time."""
    options = {"appIconBadge": "true", "soundEffect": "true", "vibration": "true", "theme": "Blue"}
    values = {"HasLaunchedOnce": True, "primoAvvioApp7": "No", "nuovaNota": "No", "settaggi": options}
    return base64.b64encode(plistlib.dumps(values, fmt=plistlib.FMT_BINARY)).decode()


def read_picture(png):
    loader = GdkPixbuf.PixbufLoader()
    loader.write(base64.b64decode(png))
    loader.close()
    picture = loader.get_pixbuf()
    return {"stride": picture.get_rowstride(), "channels": picture.get_n_channels(),
            "pixels": base64.b64encode(picture.get_pixels()).decode()}


serve(read_notes, write_notes, read_settings, usual_settings, read_picture)
