"""What is packaged beside the program is in order, and tells the same as the program.

usage: packaging.py <the project's folder> PROGRAM VERSION
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

IDENTIFIER = "org.velmorath.velmorath"
LANG = "{http://www.w3.org/XML/1998/namespace}lang"
LANGUAGES = {"it", "fr", "es", "pt", "de", "ja"}


def check_options(program, version):
    bare = {"PATH": os.environ["PATH"]}

    def run(*options):
        done = subprocess.run([program, *options], env=bare, capture_output=True, text=True, timeout=30)
        return done.returncode, done.stdout, bool(done.stderr)

    assert run("--version") == (0, f"velmorath {version}\n", False)
    code, text, has_errors = run("--help")
    assert (code, has_errors) == (0, False)
    assert run("-platform", "offscreen", "--help") == (0, text, False)
    for wrong in ("--helpless", "-x", "-platform"):
        assert run(wrong) == (2, "", True), wrong
    assert run("--", "--help")[0] == 1, "a file, and no display"
    return re.findall(r"^  (-\S+)", text, re.MULTILINE)


def check_manual(path, options):
    done = subprocess.run(["man", "--warnings", "--local-file", path], capture_output=True, text=True, check=True,
                          env=dict(os.environ, LC_ALL="C.UTF-8"))
    assert not done.stderr, done.stderr
    for option in options:
        assert re.search(rf"^ +{option}\b", done.stdout, re.MULTILINE), option


def check_desktop_entry(path):
    done = subprocess.run(["desktop-file-validate", path], capture_output=True, text=True)
    assert (done.returncode, done.stdout) == (0, ""), done.stdout
    text = path.read_text(encoding="utf-8")
    for key in ("GenericName", "Comment", "Keywords"):
        assert set(re.findall(rf"^{key}\[(.*)\]=", text, re.MULTILINE)) == LANGUAGES, key


def check_file_types(folder):
    """The desktop knows a copy of a list, and which program opens it."""
    with tempfile.TemporaryDirectory() as data:
        packages = pathlib.Path(data, "mime/packages")
        packages.mkdir(parents=True)
        shutil.copy(folder / f"{IDENTIFIER}.mime.xml", packages / f"{IDENTIFIER}.xml")
        subprocess.run(["update-mime-database", packages.parent], check=True, env=dict(os.environ, LC_ALL="C.UTF-8"))
        types = (packages.parent / "globs2").read_text(encoding="utf-8")
        known, = re.findall(r"^\d+:(\S+):\*\.archive$", types, re.MULTILINE)
        comments = ElementTree.parse(packages.parent / f"{known}.xml").getroot()
        assert {comment.get(LANG) for comment in comments if comment.tag.endswith("comment")} == LANGUAGES | {None}
    entry = (folder / f"{IDENTIFIER}.desktop").read_text(encoding="utf-8")
    opened, = re.findall(r"^MimeType=(.*);$", entry, re.MULTILINE)
    assert known in opened.split(";"), opened


def check_metainfo(path):
    done = subprocess.run(["appstreamcli", "validate", "--strict", "--no-net", path], capture_output=True, text=True)
    assert done.returncode == 0, done.stdout
    component = ElementTree.parse(path).getroot()
    for parent in component.iter():
        for tag in {child.tag for child in parent if child.get(LANG)}:
            texts = [child.get(LANG) for child in parent if child.tag == tag]
            assert texts.count(None) * len(LANGUAGES) == len(texts) - texts.count(None), (tag, texts)
            assert set(texts) == LANGUAGES | {None}, (tag, texts)
    release = component.find("releases/release")
    return release.get("version"), release.get("date")


def main():
    root, program, version = pathlib.Path(sys.argv[1]), *sys.argv[2:]
    folder = root / "packaging"
    check_manual(folder / "velmorath.1", check_options(program, version))
    check_desktop_entry(folder / f"{IDENTIFIER}.desktop")
    check_file_types(folder)
    release = check_metainfo(folder / f"{IDENTIFIER}.metainfo.xml")
    changes = (root / "CHANGELOG.md").read_text(encoding="utf-8")
    newest = re.search(r"^## ([0-9.]+) – (\S+)$", changes, re.MULTILINE)
    assert release == newest.groups() == (version, newest[2]), (release, newest[0], version)


main()
