"""The rules of the house that no compiler knows. Prints each place that breaks one, fails if any does.

Usage: house.py <the project's folder>
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r"^\s*#\s*include\s*(.*)")
# C++'s own headers, and no others, have small letters and neither an ending nor a folder.
STANDARD_HEADER = re.compile(r"<[a-z_]+>")
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")
HOST_MACRO = re.compile(r"\b(__EMSCRIPTEN__|Q_OS_\w+|QT_\w+|__linux__|__unix__|__APPLE__|__ANDROID__|_WIN32)\b")


def fault(line, own_headers):
    """What is wrong with a line of the host-free code; nothing when it is in order."""
    if match := INCLUDE.match(line):
        if not STANDARD_HEADER.match(match[1]) and match[1].strip('"') not in own_headers:
            return f"{match[1]} is no header of C++ or of the host-free code"
    elif (match := CONDITION.match(line)) and (macro := HOST_MACRO.search(match[2])):
        return f"{macro[0]} is for src/hosts alone"
    return None


def faults(root):
    own = [path for path in sorted((root / "src").rglob("*"))
           if path.suffix in (".h", ".cpp") and root / "src/hosts" not in path.parents]
    own_headers = {path.name for path in own if path.suffix == ".h"}
    for path in own:
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
            if found := fault(line, own_headers):
                yield f"{path.relative_to(root)}:{number}: {found}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) or "In order.")
    sys.exit(1 if found else 0)


main()
