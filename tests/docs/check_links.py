#!/usr/bin/env python3
"""Fails when a document names a file or a heading that is not there.

    check_links.py REPOSITORY

Looks at links, at pictures, and at paths that docs/architecture.md puts in
backticks, which are those of source files.
"""

import os
import re
import sys

LINK = re.compile(r"\]\(([^)\s]+)\)")
PATH = re.compile(r"`((?:src|practice|tests|samples|scripts|bench|cmake|docs)/[\w./-]+)`")


def anchors_of(path):
    with open(path, encoding="utf-8") as file:
        headings = re.findall(r"^#+ (.*)$", file.read(), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def faults_of(path, root):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    for target in LINK.findall(text):
        if "://" in target:
            continue
        name, _, anchor = target.partition("#")
        linked = os.path.join(os.path.dirname(path), name) if name else path
        if not os.path.exists(linked):
            yield f"{path}: {target} is not there"
        elif anchor and anchor not in anchors_of(linked):
            yield f"{path}: {target} names no heading"
    for name in PATH.findall(text):
        if not os.path.exists(os.path.join(root, name)):
            yield f"{path}: {name} is not there"


def main():
    root = sys.argv[1]
    documents = [os.path.join(root, name) for name in ("README.md", "CONTRIBUTING.md")]
    for folder, _, names in os.walk(os.path.join(root, "docs")):
        documents += [os.path.join(folder, name) for name in names if name.endswith(".md")]
    faults = [fault for path in sorted(documents) for fault in faults_of(path, root)]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()
