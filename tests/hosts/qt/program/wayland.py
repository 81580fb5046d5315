"""A compositor's pointer, keys and windows: what a hand does under Wayland (see x11.py for its twin).

Speaks Wayland's own protocol over its socket, for what has no tool: a pointer and a keyboard that are not
there (wlr-virtual-pointer, virtual-keyboard).
"""

import array
import json
import os
import socket
import string
import struct
import subprocess
import time

MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8}
NAMED = ("Return", "Escape", "Insert", "Delete", "F2", "Tab", "Home", "End", "Up", "Down", "space")
# The first that X's own numbers of keys know; Wayland counts from there.
FIRST_KEY = 8


def keymap(symbols):
    """One key for each symbol, whatever modifiers are held."""
    codes = "".join(f"<K{i}> = {FIRST_KEY + i};" for i in range(1, len(symbols) + 1))
    keys = "".join(f"key <K{i}> {{[{symbol}]}};" for i, symbol in enumerate(symbols, 1))
    return (f'xkb_keymap {{ xkb_keycodes "all" {{ minimum = 8; maximum = 255; {codes} }};'
            'xkb_types "all" { include "complete" }; xkb_compatibility "all" { include "complete" };'
            f'xkb_symbols "all" {{ {keys} }}; }};').encode() + b"\0"


def fixed(number):
    return int(number * 256)


class Connection:
    """A client of the compositor. Requests are numbered as their protocols' files have them."""

    DISPLAY, REGISTRY = 1, 2

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(os.environ["WAYLAND_DISPLAY"])
        self.last = self.REGISTRY
        self.unread = self.body = b""
        self.globals = {}
        self.request(self.DISPLAY, 1, self.REGISTRY)
        self.settle()

    @staticmethod
    def packed(word):
        if isinstance(word, int):
            return struct.pack("=i" if word < 0 else "=I", word)
        text = word.encode() + b"\0"
        return struct.pack("=I", len(text)) + text + b"\0" * (-len(text) % 4)

    def request(self, target, number, *words, descriptor=None):
        body = b"".join(map(self.packed, words))
        message = struct.pack("=IHH", target, number, 8 + len(body)) + body
        rights = [] if descriptor is None else [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [descriptor]))]
        self.socket.sendmsg([message], rights)

    def new(self):
        self.last += 1
        return self.last

    def bind(self, interface, version=1):
        found = self.new()
        self.request(self.REGISTRY, 0, self.globals[interface], interface, version, found)
        return found

    def make(self, manager, *words):
        """What a manager's first request makes."""
        made = self.new()
        self.request(manager, 0, *words, made)
        return made

    def settle(self):
        """Until the compositor has done all that it was asked for."""
        done = self.make(self.DISPLAY)
        while self.event() != done:
            pass

    def event(self):
        """Reads one event and says whose it was."""
        while len(self.unread) < 8 or len(self.unread) < struct.unpack_from("=IHH", self.unread)[2]:
            received = self.socket.recv(65536)
            assert received, "the compositor is gone"
            self.unread += received
        sender, number, size = struct.unpack_from("=IHH", self.unread)
        self.body, self.unread = self.unread[8:size], self.unread[size:]
        assert (sender, number) != (self.DISPLAY, 0), f"the compositor refuses: {self.body}"
        if (sender, number) == (self.REGISTRY, 0):
            self.globals[self.text(4)] = struct.unpack_from("=I", self.body)[0]
        return sender

    def text(self, place):
        """What is written at this place of the last event."""
        length, = struct.unpack_from("=I", self.body, place)
        return self.body[place + 4:place + 4 + length - 1].decode()


class Screen:
    """What is common to all windows. The output's units are points, whatever its scale."""

    SYMBOLS = [f"U{ord(character):04X}" for character in string.printable if character.isprintable()] + list(NAMED)
    LEFT_BUTTON = 0x110

    def __init__(self):
        self.connection = connection = Connection()
        seat = connection.bind("wl_seat")
        self.pointer = connection.make(connection.bind("zwlr_virtual_pointer_manager_v1"), seat)
        self.keyboard = connection.make(connection.bind("zwp_virtual_keyboard_manager_v1"), seat)
        text = keymap(self.SYMBOLS)
        descriptor = os.memfd_create("keymap")
        os.write(descriptor, text)
        connection.request(self.keyboard, 0, 1, len(text), descriptor=descriptor)
        connection.settle()
        os.close(descriptor)

    @staticmethod
    def sway(*words):
        return json.loads(subprocess.run(["swaymsg", "--raw", *map(str, words)], check=True, capture_output=True,
                                         text=True).stdout)

    def _point(self, number, *words):
        moment = time.monotonic_ns() // 1000000 & 0xffffffff
        self.connection.request(self.pointer, number, moment, *words)
        self.connection.request(self.pointer, 4)
        self.connection.settle()

    def windows(self):
        """Those in sight, as the compositor describes them."""
        found, left = [], [self.sway("-t", "get_tree")]
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

    def permission(self):
        """To bring a window to the front, as a desktop gives it to what it starts."""
        connection = self.connection
        manager, token = connection.bind("xdg_activation_v1"), connection.new()
        connection.request(manager, 1, token)
        connection.request(token, 3)
        while connection.event() != token:
            pass
        return connection.text(0)

    def resize(self, window, width, height):
        # About its middle, so that it must be brought into sight again.
        self.sway(f"[con_id={window}] resize set {width} px {height} px, move absolute position 0 0")

    def move(self, window, x, y):
        output = self.sway("-t", "get_outputs")[0]["rect"]
        corner = next(found["rect"] for found in self.windows() if found["id"] == window)
        self._point(1, corner["x"] + int(x), corner["y"] + int(y), output["width"], output["height"])

    def press(self):
        self._point(2, self.LEFT_BUTTON, 1)

    def release(self):
        self._point(2, self.LEFT_BUTTON, 0)

    def scroll(self, notches):
        for _ in range(abs(notches)):
            # A wheel turns 15 degrees at a time.
            step = -1 if notches > 0 else 1
            self.connection.request(self.pointer, 5, 0)
            self._point(7, 0, fixed(15 * step), step)

    def _strike(self, symbol, modifiers=0):
        self.connection.request(self.keyboard, 2, modifiers, 0, 0, 0)
        for state in (1, 0):
            moment = time.monotonic_ns() // 1000000 & 0xffffffff
            self.connection.request(self.keyboard, 1, moment, self.SYMBOLS.index(symbol) + 1, state)
        self.connection.request(self.keyboard, 2, 0, 0, 0, 0)
        self.connection.settle()

    def type(self, text):
        for character in text:
            self._strike(f"U{ord(character):04X}")
            time.sleep(0.015)

    def key(self, name):
        *held, symbol = name.split("+")
        self._strike(symbol if symbol in NAMED else f"U{ord(symbol):04X}", sum(MODIFIERS[key] for key in held))

    def close(self, window):
        self.sway(f"[con_id={window}]", "kill")

    def take_away(self, window):
        """Ends the compositor, and with it everything."""
        subprocess.run(["swaymsg", "exit"], capture_output=True)

    def screenshot(self, window, path):
        subprocess.run(["grim", path], check=True)
