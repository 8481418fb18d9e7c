#!/usr/bin/env python3
"""Writes a compile database that clang-tidy understands from that of the Windows build.

  tidy_database.py BUILD_TREE OUTPUT_FOLDER

Keeps the build's own C++ sources, each once, in OUTPUT_FOLDER/compile_commands.json, and prints
their paths. The commands are those of mingw-w64's GCC: what clang does not know goes, and clang is
told the target and where that compiler keeps its standard library.
"""

import functools
import json
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OWN_FOLDERS = ("common", "dialogs", "app", "host", "tests", "bench")
# Known to GCC alone: a warning that clang lacks, a tuning parameter, the code page of literals.
GCC_ONLY = ("-Wno-restrict", "--param=", "-fexec-charset=")


def is_own_source(path):
    return path.suffix == ".cpp" and any(path.is_relative_to(ROOT / name) for name in OWN_FOLDERS)


@functools.cache
def cxx_include_folders(compiler):
    """The folders of the compiler's C++ library, as it lists them itself."""
    listing = subprocess.run([compiler, "-E", "-x", "c++", "-v", "-"], input="", check=True,
                             capture_output=True, text=True).stderr
    lines = (line.strip() for line in listing.splitlines())
    return [line for line in lines if line.startswith("/") and "/c++" in line]


def tidy_command(command):
    compiler, *arguments = shlex.split(command)
    kept = [argument for argument in arguments if not argument.startswith(GCC_ONLY)]
    folders = [word for folder in cxx_include_folders(compiler) for word in ("-isystem", folder)]
    return ["clang++", "--target=x86_64-w64-mingw32", "-nostdinc++", *folders, *kept]


def main():
    build_tree, output_folder = map(pathlib.Path, sys.argv[1:])
    entries = {}
    for entry in json.loads((build_tree / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["file"])
        if is_own_source(path) and path not in entries:
            entries[path] = {"directory": entry["directory"], "file": entry["file"],
                             "arguments": tidy_command(entry["command"])}
    if not entries:
        sys.exit(f"{build_tree} compiles none of the sources of {ROOT}")
    (output_folder / "compile_commands.json").write_text(json.dumps(list(entries.values())))
    for path in entries:
        print(path)


if __name__ == "__main__":
    main()
