#!/usr/bin/env python3
"""Checks that no two controls of one dialog template share an access key.

  check_mnemonics.py

Reads the dialogs of res/*.rc. A static with SS_NOPREFIX has no access key, nor has a hidden control;
&& is a plain &. A text that stands twice is a picture button with its caption: they share the key.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CONTROLS_WITH_TEXT = ("AUTO3STATE", "AUTOCHECKBOX", "AUTORADIOBUTTON", "CHECKBOX", "CONTROL",
                      "CTEXT", "DEFPUSHBUTTON", "GROUPBOX", "LTEXT", "PUSHBOX", "PUSHBUTTON",
                      "RADIOBUTTON", "RTEXT", "STATE3")
DEFINITION = re.compile(r"^#define[ \t]+(\w+)[ \t]+(.+)$", re.MULTILINE)
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:[^"]|"")*")', re.DOTALL)
DIALOG_KEYWORD = re.compile(r"\bDIALOG(?:EX)?\b")
DIALOG = re.compile(r"^(\w+)\s+DIALOG(?:EX)?\b(.*?)^(?:BEGIN|\{)$(.*?)^(?:END|\})$",
                    re.MULTILINE | re.DOTALL)
# A control's statement goes on until the next line that begins with a keyword.
CONTROL = re.compile(r'^\s*(?:%s)\s+L?"((?:[^"]|"")*)"(.*?)(?=^\s*[A-Z0-9]+\s|\Z)'
                     % "|".join(CONTROLS_WITH_TEXT), re.MULTILINE | re.DOTALL)
ACCESS_KEY = re.compile(r"&(.)")


def without_comments(script):
    return COMMENT_OR_TEXT.sub(lambda match: match.group(1) or " ", script)


def access_key(text):
    """The key of a control's text, upper case; None where it has none. The last one counts."""
    keys = ACCESS_KEY.findall(text.replace("&&", ""))
    return keys[-1].upper() if keys else None


def clashes(dialog_body, definitions):
    owners = {}
    for text, rest in CONTROL.findall(dialog_body):
        style = re.sub(r"\w+", lambda word: definitions.get(word.group(), word.group()), rest)
        key = access_key(text)
        if key is None or "SS_NOPREFIX" in style or "NOT WS_VISIBLE" in style:
            continue
        if owners.get(key, text) != text:
            yield f'Alt+{key} is both "{owners[key]}" and "{text}"'
        owners[key] = text


def main():
    findings = []
    for path in sorted((ROOT / "res").glob("*.rc")):
        script = without_comments(path.read_text(encoding="utf-8"))
        definitions = dict(DEFINITION.findall(script))
        dialogs = DIALOG.findall(script)
        if len(dialogs) != len(DIALOG_KEYWORD.findall(script)):
            findings.append(f"{path.relative_to(ROOT)}: not every dialog could be read")
        for name, _, body in dialogs:
            findings += [f"{path.relative_to(ROOT)}: {name}: {clash}"
                         for clash in clashes(body, definitions)]
    print("\n".join(findings), end="\n" if findings else "")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
