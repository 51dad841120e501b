#!/usr/bin/env python3
"""Draws what a program printed as a terminal window, in SVG.

    terminal_picture.py TITLE <text >picture.svg

The text is drawn as it comes; the escape sequences of the demo's colours (red,
blue, plain) are the only ones known.
"""

import html
import re
import sys

CHARACTER = 8.4  # width and height of one, in the font size below
LINE = 18
MARGIN = 16
BAR = 30
COLOURS = {"31": "#ff7b72", "34": "#79c0ff"}
TEXT = "#d6dde6"


def words_of(line):
    """Each run of text without two blanks in it: position, text."""
    return [(match.start(), match.group()) for match in re.finditer(r"\S+(?: \S+)*", line)]


def main():
    lines = sys.stdin.read().rstrip("\n").expandtabs(4).split("\n")
    plain = [re.sub(r"\x1b\[\d*m", "", line) for line in lines]
    width = round(max(map(len, plain)) * CHARACTER + 2 * MARGIN)
    height = len(lines) * LINE + BAR + MARGIN
    out = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}" font-family="DejaVu Sans Mono, Menlo, Consolas, '
        f'Noto Sans Devanagari, monospace" font-size="14">',
        f'<rect width="{width}" height="{height}" rx="8" fill="#161b22"/>',
        f'<text x="{width / 2}" y="20" text-anchor="middle" fill="#8b949e">'
        f"{html.escape(sys.argv[1])}</text>",
    ]
    for number, (line, text) in enumerate(zip(lines, plain)):
        colour = re.search(r"\x1b\[(3\d)m", line)
        fill = COLOURS[colour.group(1)] if colour else TEXT
        y = BAR + (number + 1) * LINE - 4
        for position, words in words_of(text):
            x = round(MARGIN + position * CHARACTER, 1)
            out.append(f'<text x="{x}" y="{y}" fill="{fill}" xml:space="preserve">'
                       f"{html.escape(words)}</text>")
    out.append("</svg>")
    print("\n".join(out))


main()
