#!/usr/bin/env python3
"""Runs all benchmarks and prints one table.

  run_benchmarks.py WINDOWS_BUILD TOOLKIT_PROGRAM OUTPUT.json [RUNS]

Called where Windows programs start with `wine` on a display (tools/wine-session). First
quorvel_bench.exe measures ours against the platform's own work. Then our dialogs and the toolkit's
are opened in turn, each kind in one process, and the peak memory of fresh processes and the bytes of
both products are taken. The rows go to OUTPUT.json, the table also to OUTPUT.md. Exit status 1 when
a row does not hold its limit, 2 on an error.
"""

import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

WARM_UPS = 20
MEMORY_RUNS = 5
USUAL_RUNS = 200
KIB_IN_MIB = 1024
BYTES_IN_MB = 1e6

OUR_DLLS = ("Frame64.dll", "KivComm64.dll", "KivData64.dll", "KivFcl64.dll", "Quorvel.dll")
RUN_TIME_DLLS = ("libstdc++-6.dll", "libgcc_s_seh-1.dll", "libwinpthread-1.dll")

# Ours by its name in bench/served_openings, the toolkit's by its name in bench/toolkit.
PAIRS = (
    ("__SelColorDlg", "sel-color", "QColorDialog", "colour"),
    ("__SelRGBDlg", "sel-rgb", "QColorDialog", "colour"),
    ("__SelFontDlg", "sel-font", "QFontDialog", "font"),
    ("__InputTextDlg", "input-text", "QInputDialog, text", "text"),
    ("__InputScaleDlg", "input-scale", "QInputDialog, number", "number"),
)
TOOLKIT_PLUGIN = "/usr/lib/x86_64-linux-gnu/qt5/plugins/platforms/libqxcb.so"
# Of the libraries that the toolkit's program and its plug-in load, those that it brings along: its own,
# and those of its dependencies that no plain X11 program has. The C++ run-time counts as the system's.
TOOLKIT_LIBRARIES = re.compile(r"^lib(Qt5|icu|double-conversion|pcre2-16|md4c)")


class Served:
    """A program that opens dialogs on command."""

    def __init__(self, command):
        # The toolkit warns of a folder that a session of a desktop would have.
        self.folder = tempfile.TemporaryDirectory()
        environment = {"XDG_RUNTIME_DIR": self.folder.name, **os.environ}
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True, env=environment)
        self.expect("ready")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=60)
        self.folder.cleanup()

    def answer(self):
        line = self.process.stdout.readline()
        if not line:
            raise RuntimeError("a served program ended")
        return line.strip()

    def expect(self, text):
        if self.answer() != text:
            raise RuntimeError("a served program does not begin")

    def milliseconds(self, name):
        """From the call to the first full paint."""
        self.process.stdin.write(name + "\n")
        self.process.stdin.flush()
        return float(self.answer().split()[0])

    def peak_memory(self):
        """MiB; the most that was resident."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmHWM:\s+(\d+) kB", status).group(1)) / KIB_IN_MIB

    def has_loaded(self, file_name):
        return file_name in pathlib.Path(f"/proc/{self.process.pid}/maps").read_text()


def row(name, against, unit, ours, theirs, runs):
    return {"name": name, "against": against, "unit": unit, "ours": ours, "theirs": theirs,
            "figure": ours / theirs, "figureUnit": "times", "limit": 1.0, "runs": runs,
            "holds": ours <= theirs}


def openings(our_command, their_command, runs):
    with Served([*their_command, "--look"]) as theirs:
        for name in sorted({pair[3] for pair in PAIRS}):
            theirs.milliseconds(name)
    rows = []
    # A dialog of each is open at no time: the one waits for its input while the other is timed.
    with Served(our_command) as ours, Served(their_command) as theirs:
        for our_name, our_dialog, their_name, their_dialog in PAIRS:
            times = [(ours.milliseconds(our_dialog), theirs.milliseconds(their_dialog))
                     for _ in range(WARM_UPS + runs)][WARM_UPS:]
            our_time, their_time = (statistics.median(column) for column in zip(*times))
            rows.append(row(f"{our_name}, open to first full paint", their_name, "ms", our_time,
                            their_time, runs))
    return rows


def first_dialog_memory(command, dialog, library):
    """Peak before and after the first dialog of a fresh process, MiB."""
    with Served(command) as served:
        if not served.has_loaded(library):
            raise RuntimeError(f"the process that is measured has no {library}")
        before = served.peak_memory()
        served.milliseconds(dialog)
        return before, served.peak_memory()


def memory(our_command, their_command):
    rows = []
    for our_name, our_dialog, their_name, their_dialog in PAIRS:
        peaks = []
        growths = []
        for command, dialog, library in ((our_command, our_dialog, "Quorvel.dll"),
                                         (their_command, their_dialog, "libQt5Widgets")):
            both = [first_dialog_memory(command, dialog, library) for _ in range(MEMORY_RUNS)]
            peaks.append(statistics.median(after for _, after in both))
            growths.append(statistics.median(after - before for before, after in both))
        rows.append(row(f"{our_name}, growth of peak memory by the first", their_name, "MiB",
                        *growths, MEMORY_RUNS))
        rows.append(row(f"{our_name}, peak memory of the process", their_name, "MiB", *peaks,
                        MEMORY_RUNS))
    return rows


def toolkit_files(program):
    files = {pathlib.Path(TOOLKIT_PLUGIN).resolve()}
    for loader in (program, TOOLKIT_PLUGIN):
        listing = subprocess.run(["ldd", loader], capture_output=True, text=True, check=True).stdout
        for name, path in re.findall(r"^\s*(\S+) => (/\S+)", listing, re.MULTILINE):
            if TOOLKIT_LIBRARIES.match(name):
                files.add(pathlib.Path(path).resolve())
    return sorted(files)


def shipped(windows, toolkit_program):
    programs = windows / "bin"
    ours = sum((programs / name).stat().st_size for name in OUR_DLLS)
    ours += sum((programs / name).stat().st_size for name in RUN_TIME_DLLS)
    theirs = sum(path.stat().st_size for path in toolkit_files(toolkit_program))
    return row("all DLLs that are shipped, with the run-time",
               "Qt 5: libraries, plug-in and what only they need", "MB", ours / BYTES_IN_MB,
               theirs / BYTES_IN_MB, 1)


def lines_of(rows):
    """The table's cells, as texts."""
    def number(value):
        return "-" if value is None else f"{value:.3g}" if abs(value) < 1 else f"{value:.2f}"

    for each in rows:
        yield (each["name"], each["against"] or "-",
               f"{number(each['ours'])} {each['unit']}",
               number(each["theirs"]) + (f" {each['unit']}" if each["theirs"] is not None else ""),
               f"{each['figure']:.2f} {each['figureUnit']}", f"{each['limit']:g}",
               str(each["runs"]), "yes" if each["holds"] else "NO")


HEADINGS = ("what is measured", "against", "ours", "theirs", "ratio", "limit", "runs", "holds")


def print_table(machine, rows):
    cells = [HEADINGS, *lines_of(rows)]
    widths = [max(len(line[column]) for line in cells) for column in range(len(HEADINGS))]
    print(machine + "\n")
    for line in cells:
        print("  ".join(text.ljust(width) for text, width in zip(line, widths)).rstrip())


def write_markdown(machine, rows, path):
    lines = [machine, "", "| " + " | ".join(HEADINGS) + " |", "|" + "---|" * len(HEADINGS)]
    lines += ["| " + " | ".join(line) + " |" for line in lines_of(rows)]
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    windows, toolkit_program, output = map(pathlib.Path, sys.argv[1:4])
    runs = int(sys.argv[4]) if len(sys.argv) > 4 else USUAL_RUNS
    wine = shutil.which("wine")
    program = str(windows / "bin" / "quorvel_bench.exe")
    subprocess.run([wine, program, str(output), str(runs)], check=True)
    result = json.loads(output.read_text(encoding="utf-8"))

    our_command = [wine, program, "--serve"]
    their_command = [str(toolkit_program)]
    result["rows"] += openings(our_command, their_command, runs)
    result["rows"] += memory(our_command, their_command)
    result["rows"].append(shipped(windows, their_command[0]))
    output.write_text(json.dumps(result, indent=1) + "\n", encoding="utf-8")
    write_markdown(result["machine"], result["rows"], output.with_suffix(".md"))
    print_table(result["machine"], result["rows"])
    return 0 if all(each["holds"] for each in result["rows"]) else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (RuntimeError, subprocess.SubprocessError, OSError) as error:
        print(f"run_benchmarks: {error}", file=sys.stderr)
        sys.exit(2)
