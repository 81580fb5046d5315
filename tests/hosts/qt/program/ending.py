#!/usr/bin/env python3
"""However the program is asked to end, the text that is being typed is kept.

usage: ending.py PROGRAM
"""

import signal

from window import BEGINS, SCREEN, Program, run

ENDS = {
    "terminate": lambda program: program.process.send_signal(signal.SIGTERM),
    "hang up": lambda program: program.process.send_signal(signal.SIGHUP),
    "interrupt": lambda program: program.process.send_signal(signal.SIGINT),
    "close button": lambda program: SCREEN.close(program.window),
    "no display": lambda program: SCREEN.take_away(program.window),
}


def use(home):
    # A program inherits what is ignored, and shells ignore this one for what they run beside them.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    expected = ["Hello!"]
    for name, end in ENDS.items():
        with Program(home) as program:
            if len(expected) == 1:
                program.decline_tutorial()
            program.until_line(BEGINS, lambda: program.key("Insert"))
            program.type(f"Before {name}")
            end(program)
            code = program.process.wait(timeout=10)
            assert code == (1 if name == "no display" else 0), f"{name}: the program ended with {code}"
        expected.insert(0, f"Before {name}")
        assert program.texts() == expected, program.texts()


run(use)
