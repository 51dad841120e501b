#!/usr/bin/python3
"""Fails when the samples are not what their tables make.

    check_generated.py REPOSITORY

Ends with 77, which skips the test, where the library that writes workbooks lacks.
"""

import filecmp
import os
import subprocess
import sys
import tempfile

try:
    import xlwt  # noqa: F401: asked for only
except ImportError:
    sys.exit(77)

SOURCES = (".py",)


def files_below(folder):
    return {os.path.relpath(os.path.join(path, name), folder)
            for path, _, names in os.walk(folder) for name in names if not name.endswith(SOURCES)}


def main():
    samples = os.path.join(sys.argv[1], "samples")
    with tempfile.TemporaryDirectory() as made:
        subprocess.run([sys.executable, os.path.join(samples, "make_samples.py"), made], check=True)
        names = files_below(samples) | files_below(made)
        _, differing, missing = filecmp.cmpfiles(samples, made, sorted(names), shallow=False)
    for name in differing:
        print(f"samples/{name} is not what its table makes: run samples/make_samples.py")
    for name in missing:
        print(f"samples/{name} is made by no table, or was never made")
    sys.exit(1 if differing or missing else 0)


main()
