#!/usr/bin/env python3
"""Compares the program with an empty Qt window: time from start to first frame, and memory.

    bench/startup.py build/release/velmorath build/release/bench/qt/velmorath-empty-window [runs]

On any day but the first, with 100 notes. Starts a display of its own with Xvfb, whose background is painted in a
colour that no window has; the first frame is there when the colour has gone from the middle of the window. Prints
medians and ratios.
"""

import ctypes
import os
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/tools"))
import archive_exchange

WIDTH, HEIGHT = 375, 667
MARKER = 0x12AB34
Z_PIXMAP = 2
LONGEST_WAIT = 20


class Display:
    def __init__(self):
        read_end, write_end = os.pipe()
        command = ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten", "tcp"]
        self.server = subprocess.Popen(command, pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            self.name = ":" + answer.readline().strip()
        x = self.x = ctypes.CDLL("libX11.so.6")
        for function in ("XOpenDisplay", "XGetImage"):
            getattr(x, function).restype = ctypes.c_void_p
        x.XDefaultRootWindow.restype = x.XGetPixel.restype = ctypes.c_ulong
        self.connection = ctypes.c_void_p(x.XOpenDisplay(self.name.encode()))
        if not self.connection:
            sys.exit(f"no connection to {self.name}")
        self.root = ctypes.c_ulong(x.XDefaultRootWindow(self.connection))
        x.XSetWindowBackground(self.connection, self.root, ctypes.c_ulong(MARKER))

    def clear(self):
        self.x.XClearWindow(self.connection, self.root)
        self.x.XSync(self.connection, 0)

    def pixel(self):
        """In the middle of the screen."""
        image = ctypes.c_void_p(self.x.XGetImage(self.connection, self.root, WIDTH // 2, HEIGHT // 2, 1, 1,
                                                 ctypes.c_ulong(0xFFFFFF), Z_PIXMAP))
        value = self.x.XGetPixel(image, 0, 0) & 0xFFFFFF
        self.x.XDestroyImage(image)
        return value

    def close(self):
        self.x.XCloseDisplay(self.connection)
        self.server.terminate()
        self.server.wait()


def memory(process):
    """Kilobytes: resident, and the share that is the process's own."""
    with open(f"/proc/{process.pid}/smaps_rollup") as file:
        values = {line.split(":")[0]: line.split()[1] for line in file.readlines()[1:]}
    return int(values["Rss"]), int(values["Pss"])


def run(program, display, home):
    others = ("XDG_", "QT_", "WAYLAND")
    environment = {name: value for name, value in os.environ.items() if not name.startswith(others)}
    environment |= {"HOME": home, "XDG_RUNTIME_DIR": home, "DISPLAY": display.name}
    display.clear()
    start = time.monotonic()
    process = subprocess.Popen([program], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while display.pixel() == MARKER:
            if process.poll() is not None or time.monotonic() - start > LONGEST_WAIT:
                sys.exit(f"{program} shows no window")
            time.sleep(0.0005)
        shown = (time.monotonic() - start) * 1000
        time.sleep(1)
        return shown, *memory(process)
    finally:
        process.terminate()
        process.wait()


def put_notes(home):
    folder = os.path.join(home, ".local/share/velmorath/Documents")
    os.makedirs(folder)
    notes = [(f"Note {number} of a hundred", "Nov 20, 2026", number % 3 == 0) for number in range(100)]
    archive_exchange.write(os.path.join(folder, "noteSalvate.archive"), notes)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    programs, runs = sys.argv[1:3], int(sys.argv[3]) if len(sys.argv) > 3 else 11
    display = Display()
    results = [[], []]
    try:
        with tempfile.TemporaryDirectory() as home:
            put_notes(home)
            for program in programs:
                run(program, display, home)  # Once for the disk, and for what a first start does.
            for _ in range(runs):
                for program, result in zip(programs, results):
                    result.append(run(program, display, home))
    finally:
        display.close()
    names = ("start to first frame, ms", "resident memory, kB", "proportional memory, kB")
    for index, name in enumerate(names):
        ours, empty = (statistics.median(values[index] for values in result) for result in results)
        print(f"{name}: {ours:.0f}, an empty window {empty:.0f}, ratio {ours / empty:.2f}")


main()
