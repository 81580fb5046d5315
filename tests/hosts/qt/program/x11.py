"""An X server's pointer, keys and windows (see wayland.py for its twin)."""

import subprocess


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout


class Screen:
    """What is common to all windows. Without scaling a pixel is a point."""

    @staticmethod
    def window_of(process):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process)],
                               capture_output=True, text=True).stdout.split()
        return found[-1] if found else None

    @staticmethod
    def resize(window, width, height):
        xdotool("windowsize", "--sync", window, width, height)

    @staticmethod
    def move(window, x, y):
        xdotool("mousemove", "--window", window, int(x), int(y))

    @staticmethod
    def press():
        xdotool("mousedown", 1)

    @staticmethod
    def release():
        xdotool("mouseup", 1)

    @staticmethod
    def type(text):
        xdotool("type", "--delay", 15, text)

    @staticmethod
    def key(name):
        xdotool("key", name)

    @staticmethod
    def close(window):
        xdotool("key", "alt+F4")

    @staticmethod
    def take_away(window):
        """Without a word to the window's program, as when the server ends."""
        xdotool("windowkill", window)
