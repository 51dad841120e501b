#!/usr/bin/env python3
"""Fails when the program can show a text that docs/guide/statuses.md does not tell of.

    check_messages.py REPOSITORY

Looks at the texts of boxes, of the status panels and of failures in src/. A text that
the code puts together counts by its pieces of at least two words that begin a
sentence. Left out are
texts that no user of the two faces gets to see, see NOT_SHOWN, and the details that
stand behind a file's name in what the readers of sources say.
"""

import os
import re
import sys

# Faults of the program itself, and texts of the format tool, which formats.md tells.
NOT_SHOWN = ("platform/xml/", "platform/script/", "shell/format_tool/", "form/import_grid.cpp:cell",
             "platform/data/workbook/", "platform/data/text/text_layout.cpp",
             "platform/settings/", "staging/format_text.cpp", "staging/store.cpp",
             "staging/sqlite_connection.cpp", "gateway/document_builder.cpp",
             "gateway/import_envelope.cpp", "platform/data/access/reader_process.cpp",
             "platform/http/http_request.cpp", "platform/data/recordset.cpp:table")

# The names of what fails, which stand in the log.
SOURCES = ("Custom format", "Staging store", "Text driver")

CALL = re.compile(r"\b(?:Failure|\w*Fail\w*|ShowBox|stat)\(")
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
PROGRESS = re.compile(r'"((?:Processed|Reading) [\w ]+(?:: |=> ))"')


def arguments_at(source, start):
    """The text between the parenthesis at `start` and the one that closes it."""
    depth, at = 0, start
    while at < len(source):
        if source[at] == '"':
            at = LITERAL.match(source, at).end()
            continue
        depth += {"(": 1, ")": -1}.get(source[at], 0)
        if depth == 0:
            break
        at += 1
    return source[start + 1:at]


def pieces_of(arguments):
    """The texts of a call, those that stand one behind the other as one."""
    joined = re.sub(r'(?<!\\)"\s+"', "", arguments)
    return [piece.replace('\\"', '"') for literal in LITERAL.findall(joined)
            for piece in literal.split("\\r\\n")]


def is_text(piece):
    return piece not in SOURCES and len(piece.split()) >= 2 and len(piece) >= 12 and re.match(r"[A-Z]", piece.strip())


def texts_in(path, name):
    with open(path, encoding="utf-8") as file:
        source = file.read()
    for call in CALL.finditer(source):
        for piece in filter(is_text, pieces_of(arguments_at(source, call.end() - 1))):
            if not any(name.startswith(start) and (not word or word in piece)
                       for start, _, word in (entry.partition(":") for entry in NOT_SHOWN)):
                yield piece.strip(" \"'")
    yield from (text.strip() for text in PROGRESS.findall(source))


def main():
    root = sys.argv[1]
    with open(os.path.join(root, "docs/guide/statuses.md"), encoding="utf-8") as file:
        told = re.sub(r"\s+", " ", file.read())
    missing = []
    for folder, _, names in sorted(os.walk(os.path.join(root, "src"))):
        for name in sorted(names):
            path = os.path.join(folder, name)
            inner = os.path.relpath(path, os.path.join(root, "src"))
            if name.endswith(".cpp"):
                missing += [f"{inner}: {text}" for text in texts_in(path, inner)
                            if re.sub(r"\s+", " ", text) not in told]
    print("\n".join(dict.fromkeys(missing)))
    sys.exit(1 if missing else 0)


main()
