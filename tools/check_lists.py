#!/usr/bin/env python3
"""Checks that no list of names has drifted from what it lists.

  check_lists.py

Each identifier of res/ids.h stands in a resource script, and each C++ source in the CMakeLists.txt
of its folder or of the nearest folder above that has one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTPUT_FOLDERS = ("build", "dist")
IDENTIFIER = re.compile(r"^#define\s+(ID[CD]_\w+)", re.MULTILINE)


def unused_identifiers():
    scripts = "\n".join(path.read_text(encoding="utf-8")
                        for path in sorted((ROOT / "res").glob("*.rc")))
    used = set(re.findall(r"\w+", re.sub(r"//.*", "", scripts)))
    identifiers = IDENTIFIER.findall((ROOT / "res/ids.h").read_text(encoding="utf-8"))
    if not identifiers:
        yield "res/ids.h: no identifier found"
    for identifier in identifiers:
        if identifier not in used:
            yield f"res/ids.h: {identifier} stands in no resource script"


def sources():
    for top in sorted(ROOT.iterdir()):
        if top.is_dir() and top.name not in OUTPUT_FOLDERS and not top.name.startswith("."):
            yield from sorted(top.rglob("*.cpp"))


def unlisted_sources():
    count = 0
    for source in sources():
        count += 1
        folder = source.parent
        while not (folder / "CMakeLists.txt").is_file() and folder != ROOT:
            folder = folder.parent
        listing = folder / "CMakeLists.txt"
        text = re.sub(r"#.*", "", listing.read_text(encoding="utf-8"))
        if source.relative_to(folder).as_posix() not in re.split(r'[\s()"]+', text):
            yield f"{source.relative_to(ROOT)}: not named in {listing.relative_to(ROOT)}"
    if count == 0:
        yield "no source found"


def main():
    findings = [*unused_identifiers(), *unlisted_sources()]
    print("\n".join(findings), end="\n" if findings else "")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
