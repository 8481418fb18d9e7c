#!/usr/bin/env python3
"""Checks that what the documents tell people to type does what they say.

  check_documents.py SOURCE_TREE BUILD_TREE

Runs the commands of each document's blocks one after the other, as a reader would type them, in a
folder that has what `make dist` makes. Dialogs are answered with Enter. A block of output behind
the commands, or "prints `...`", is compared with what they print; "status N" with how they end.
Commands of make are only looked up: they must have a target. Besides, the lists of subcommands,
options and targets are compared with those that there are.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

RUN_DOCUMENTS = ("README.md", "README.ja.md", "docs/command-line.md", "docs/host-guide.md",
                 "docs/c-guide.md")
COMMANDS = ("sh", "bat")
OUTPUT = ("json", "text")
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$\n?", re.MULTILINE | re.DOTALL)
MAKE = re.compile(r"\bmake ((?:-\w+ )*)([a-z][a-z-]*)((?: [A-Z]+=\S+)*)")
CODE = re.compile(r"`([^`\n]+)`")
OPTION = re.compile(r"--[a-z][a-z-]*")
MARK = "\x1e"
TIMEOUT = 300  # seconds, for one document


class Block:
    """Commands, with what is said of them up to the next commands or the next heading."""

    def __init__(self, document, line, language, commands):
        self.document, self.line, self.language, self.commands = document, line, language, commands
        self.output, self.last_line, self.status = None, None, 0

    def told(self, words, fence):
        status = re.search(r"(?:status|ステータス) `?(\d+)", words)
        if status:
            self.status = int(status[1])
        inline = re.search(r"prints\s+`([^`]+)`|`([^`]+)` と(?:表示|出力)", words)
        if fence is not None:
            self.output = fence
        elif inline:
            self.last_line = inline[1] or inline[2]

    def is_as_told(self, printed):
        if self.output is not None:
            return printed == self.output
        return self.last_line is None or printed.splitlines()[-1:] == [self.last_line]


def blocks(document, text, problems):
    """The blocks of commands; output that follows none of them is a problem."""
    found, end, last = [], 0, None
    for fence in [*FENCE.finditer(text), None]:
        between = text[end:fence.start() if fence else len(text)]
        section = re.split(r"^#+ ", between, maxsplit=1, flags=re.MULTILINE)
        words = section[0]
        if fence and fence[1] in OUTPUT:
            if last is None or len(section) > 1:
                line = text.count("\n", 0, fence.start()) + 1
                problems.append(f"{document}:{line}: output that no command is said to print")
            else:
                last.told(words, fence[2])
            last = None
        elif last is not None:
            last.told(words, None)
            last = None
        if fence is None:
            break
        if fence[1] in COMMANDS:
            last = Block(document, text.count("\n", 0, fence.start()) + 1, fence[1], fence[2])
            found.append(last)
        end = fence.end()
    return found


class Tree:
    """The folder that commands run in, and how they run there."""

    def __init__(self, source, build, folder):
        self.source, self.folder = source, folder
        for name in ("tools", "cmake"):
            (folder / name).symlink_to(source / name)
        self.install = ["cmake", "--install", build, "--prefix", folder / "dist"]
        shim = folder / "shim"
        shim.mkdir()
        (shim / "wine").write_text(
            f'#!/bin/sh\nexec {shutil.which("wine")} {build}/bin/answering.exe "$@"\n')
        # One server for all commands: it takes much longer to start than they take.
        (shim / "wineserver").write_text("#!/bin/sh\n")
        for program in shim.iterdir():
            program.chmod(0o755)
        self.environment = dict(os.environ, QUORVEL_WINEPREFIX=str(folder / "prefix"))
        subprocess.run(["tools/wine-session", "true"], cwd=folder, env=self.environment, check=True)
        self.environment["PATH"] = f"{shim}:{os.environ['PATH']}"

    def end(self):
        subprocess.run(["wineserver", "-k"], check=False,
                       env=dict(os.environ, WINEPREFIX=str(self.folder / "prefix")))

    def renew(self):
        """As after `make dist`, and nothing else."""
        for name in ("dist", "my-host", "work"):
            shutil.rmtree(self.folder / name, ignore_errors=True)
        subprocess.run(self.install, check=True, stdout=subprocess.DEVNULL)

    def write_host(self, text):
        """What the document has of the host's two files."""
        fences = {language: body for language, body in reversed(FENCE.findall(text))}
        if "cmake" in fences and "cpp" in fences:
            (self.folder / "my-host").mkdir()
            (self.folder / "my-host/CMakeLists.txt").write_text(fences["cmake"], encoding="utf-8")
            (self.folder / "my-host/main.cpp").write_text(fences["cpp"], encoding="utf-8")

    def run(self, found):
        """What each block printed, and the status of its first command that failed, or 0."""
        script = [f'make() {{ command make -n -C {self.source} "$@" >/dev/null; }}',
                  "trap 'failed=${failed:-$?}' ERR"]
        for number, block in enumerate(found):
            if block.language == "bat":
                name = f"example{number}.bat"
                (self.folder / "dist/bin" / name).write_bytes(
                    block.commands.replace("\n", "\r\n").encode())
                script.append(f"(cd dist/bin && ../../tools/wine-session wine cmd /c {name})")
            else:
                script.append(block.commands)
            script.append(f"printf '{MARK}%d{MARK}' ${{failed:-0}}; failed=")
        run = subprocess.run(["bash", "-c", "\n".join(script)], cwd=self.folder, timeout=TIMEOUT,
                             env=self.environment, stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        parts = run.stdout.decode("utf-8", "replace").replace("\r", "").split(MARK)
        return list(zip(parts[0::2], [int(status) for status in parts[1::2]]))

    def help_texts(self, subcommands):
        """That of each; of the program itself for the empty name."""
        commands = [f"wine dist/bin/quorvel.exe {name} --help; echo '{MARK}'"
                    for name in subcommands]
        run = subprocess.run(["tools/wine-session", "bash", "-c", "\n".join(commands)],
                             cwd=self.folder, env=self.environment, check=True,
                             stdout=subprocess.PIPE, encoding="utf-8")
        return dict(zip(subcommands, run.stdout.split(MARK)))


def check_commands(tree, document, text, problems):
    found = blocks(document, text, problems)
    if not found:
        return 0
    tree.renew()
    tree.write_host(text)
    results = tree.run(found)
    if len(results) != len(found):
        problems.append(f"{document}: the commands end before the last block")
    for block, (printed, status) in zip(found, results):
        where = f"{document}:{block.line}"
        if status != block.status:
            problems.append(f"{where}: status {status} instead of {block.status}, and\n{printed}")
        elif not block.is_as_told(printed):
            problems.append(f"{where}: prints\n{printed}instead of\n"
                            f"{block.output or block.last_line}")
    return len(found)


def check_targets(source, document, text, problems):
    """Every command of make in blocks and in code has a target."""
    code = [body for language, body in FENCE.findall(text) if language == "sh"]
    code += CODE.findall(FENCE.sub("", text))
    named = set()
    for match in (match for part in code for match in MAKE.finditer(part)):
        named.add(match[2])
        command = ["make", "-n", "-C", str(source), match[2], *match[3].split()]
        if subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          check=False).returncode != 0:
            problems.append(f"{document}: make {match[2]}: there is no such target")
    for part in code:
        for tool in re.findall(r"\btools/[\w-]+", part):
            if not os.access(source / tool, os.X_OK):
                problems.append(f"{document}: {tool}: there is no such program")
    return named


def subcommands_of(help_text):
    listing = help_text.partition("Subcommands:\n")[2].partition("\n\n")[0]
    return [line.split()[0] for line in listing.splitlines() if not line.startswith("  help ")]


def options_of(help_text):
    return set(re.findall(r"^  (--[a-z-]+)", help_text, re.MULTILINE))


def difference(where, told, there, problems):
    for name in sorted(told - there):
        problems.append(f"{where}: {name} is told, and there is none")
    for name in sorted(there - told):
        problems.append(f"{where}: {name} is missing")


def check_subcommands(tree, texts, problems):
    tree.renew()
    general = tree.help_texts([""])[""]
    names = subcommands_of(general)
    if not names:
        problems.append("quorvel.exe --help lists no subcommand")
    options = {name: options_of(text) for name, text in tree.help_texts(names).items()}
    every = set().union(*options.values()) | options_of(general)
    for document in ("README.md", "README.ja.md"):
        rows = re.findall(r"^\| `([a-z-]+)(?: FILE)?` \|(.*)$", texts[document], re.MULTILINE)
        difference(f"{document}, subcommands", {name for name, _ in rows}, set(names), problems)
        section = re.split(r"^## ", texts[document], flags=re.MULTILINE)
        told = {option for part in section if "`quorvel.exe` " in part.partition("\n")[2]
                for code in CODE.findall(FENCE.sub("", part)) for option in OPTION.findall(code)}
        for option in sorted(told - every):
            problems.append(f"{document}: quorvel.exe has no option {option}")

    document = "docs/command-line.md"
    sections = {part.partition("\n")[0]: part
                for part in re.split(r"^###? ", texts[document], flags=re.MULTILINE)}

    def rows(title):
        return set(re.findall(r"^\| `(--[a-z-]+)", sections.get(title, ""), re.MULTILINE))
    common = rows("Asking")
    told = {name: rows(name) | common for name in sections if name in options}
    difference(f"{document}, subcommands", set(told), set(names), problems)
    if "select-font-ex" in told:  # told as the difference
        told["select-font-ex"] |= told["select-font"] - {"--show-strike-out-type"}
    for name in told:
        difference(f"{document}, {name}", told[name], options[name], problems)


def main():
    source, build = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    # Within a run of make, whose settings are not for those that are started here.
    for name in ("MAKEFLAGS", "MAKELEVEL", "MFLAGS"):
        os.environ.pop(name, None)
    problems, count = [], 0
    texts = {document: (source / document).read_text(encoding="utf-8")
             for document in RUN_DOCUMENTS}
    named = {document: check_targets(source, document, texts[document], problems)
             for document in texts}
    public = set(re.findall(r"^\.PHONY: (demo .*)$", (source / "Makefile").read_text(),
                            re.MULTILINE)[0].split())
    for document in ("README.md", "README.ja.md"):
        difference(f"{document}, targets", public & named[document], public, problems)
    with tempfile.TemporaryDirectory() as folder:
        tree = Tree(source, build, pathlib.Path(folder))
        try:
            check_subcommands(tree, texts, problems)
            for document, text in texts.items():
                count += check_commands(tree, document, text, problems)
        finally:
            tree.end()
    print("\n".join(problems) or f"{count} blocks of commands do what the documents say")
    sys.exit(1 if problems or count == 0 else 0)


if __name__ == "__main__":
    main()
