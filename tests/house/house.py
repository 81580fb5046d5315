"""The rules of the house that no compiler knows. Prints each place that breaks one, fails if any does.

Usage: house.py <the project's folder>
"""

import pathlib
import re
import sys

STANDARD_HEADERS = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono
    cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp
    csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception
    execution filesystem format forward_list fstream functional future initializer_list iomanip ios iosfwd
    iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric
    optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex
    source_location span sstream stack stdexcept stop_token streambuf string string_view strstream
    syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version""".split()
)

INCLUDE = re.compile(r"^\s*#\s*include\s*(.*)")
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")
HOST_MACRO = re.compile(r"\b(__EMSCRIPTEN__|Q_OS_\w+|QT_\w+|__linux__|__unix__|__APPLE__|__ANDROID__|_WIN32)\b")


def lines_of(path):
    try:
        return list(enumerate(path.read_text(encoding="utf-8").splitlines(), start=1))
    except UnicodeDecodeError:
        return []


def files_below(folder):
    return sorted(path for path in folder.rglob("*") if path.is_file())


def is_code(path):
    return path.suffix in (".h", ".cpp")


def check_include(target, own_headers):
    """What is wrong with an #include of the host-free code; nothing when it is in order."""
    if match := re.match(r"<([^>]*)>", target):
        return None if match[1] in STANDARD_HEADERS else f"<{match[1]}> is no header of C++"
    if match := re.match(r'"([^"]*)"', target):
        return None if match[1] in own_headers else f'"{match[1]}" is no header of the host-free code'
    return f"cannot tell what {target} includes"


def faults(root):
    hosts = root / "src/hosts"
    own = [path for path in files_below(root / "src") if hosts not in path.parents]
    own_headers = {path.name for path in own if path.suffix == ".h"}
    for path in filter(is_code, own):
        for number, line in lines_of(path):
            if match := INCLUDE.match(line):
                if fault := check_include(match[1], own_headers):
                    yield path, number, fault
            elif (match := CONDITION.match(line)) and (macro := HOST_MACRO.search(match[2])):
                yield path, number, f"{macro[0]} is for src/hosts alone"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    found = [f"{path.relative_to(root)}:{number}: {fault}" for path, number, fault in faults(root)]
    print("\n".join(found) or "In order.")
    sys.exit(1 if found else 0)


main()
