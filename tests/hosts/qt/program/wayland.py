"""A compositor's windows; its pointer and keys are those of the X server that it is shown on (see x11.py, its twin)."""

import json
import subprocess

import x11


def sway(*words):
    return json.loads(subprocess.run(["swaymsg", "--raw", *map(str, words)], check=True, capture_output=True,
                                     text=True).stdout)


class Screen(x11.Screen):
    """What is common to all windows. The output's units are points, whatever its scale."""

    @staticmethod
    def windows():
        """Those in sight, as the compositor describes them."""
        found, left = [], [sway("-t", "get_tree")]
        while left:
            node = left.pop()
            left += node["nodes"] + node["floating_nodes"]
            if node.get("pid") and node["visible"]:
                found.append(node)
        return found

    def window_of(self, process):
        return next((window["id"] for window in self.windows() if window["pid"] == process), None)

    def is_in_front(self, window):
        return any(found["focused"] for found in self.windows() if found["id"] == window)

    @staticmethod
    def resize(window, width, height):
        # About its middle, so that it must be brought into sight again.
        sway(f"[con_id={window}] resize set {width} px {height} px, move absolute position 0 0")

    def move(self, window, x, y):
        scale = sway("-t", "get_outputs")[0]["scale"]
        corner = next(found["rect"] for found in self.windows() if found["id"] == window)
        x11.xdotool("getactivewindow", "mousemove", "--window", "%1", int((corner["x"] + x) * scale),
                    int((corner["y"] + y) * scale))

    @staticmethod
    def close(window):
        sway(f"[con_id={window}]", "kill")

    @staticmethod
    def replace_output():
        """A screen goes away, and another one comes."""
        x11.Screen.close(None)
        while sway("-t", "get_outputs"):
            pass
        sway("create_output")

    @staticmethod
    def take_away(window):
        """Ends the compositor, and with it everything."""
        subprocess.run(["swaymsg", "exit"], capture_output=True)
