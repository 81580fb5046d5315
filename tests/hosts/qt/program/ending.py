#!/usr/bin/env python3
"""However the program is asked to end, the text that is being typed is kept.

usage: ending.py PROGRAM
"""

import os
import signal
import sys
import tempfile

from window import SCREEN, Program


def main():
    executable = os.path.abspath(sys.argv[1])
    # A program inherits what is ignored, and shells ignore this one for what they run beside them.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    with tempfile.TemporaryDirectory() as home:
        expected = []
        ends = {name: lambda program, name=name: program.process.send_signal(getattr(signal, name))
                for name in ("SIGTERM", "SIGHUP", "SIGINT")}
        ends["the close button"] = lambda program: SCREEN.close(program.window)
        ends["the display went away"] = lambda program: SCREEN.take_away(program.window)
        for name, end in ends.items():
            with Program(executable, home) as program:
                if not expected:
                    program.decline_tutorial()
                program.until_line("textFieldDidBeginEditing", lambda: program.key("Insert"))
                program.type(f"Typed before {name}")
                end(program)
                code = program.process.wait(timeout=10)
                assert code == (1 if "went away" in name else 0), f"{name}: the program ended with {code}"
            expected.insert(0, f"Typed before {name}")
            assert program.texts()[:len(expected)] == expected, (name, program.texts())


if __name__ == "__main__":
    main()
