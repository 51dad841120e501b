"""How a sample's table is written down.

A table is written as it reads: the first line names the columns, "|" parts the
cells, an empty line is an empty row of the sheet.
"""


def rows_of(table):
    for line in table.strip("\n").split("\n"):
        yield [cell.strip() for cell in line.split("|")]


def joined(*blocks):
    """One table of several that stand side by side in the sheet. The column "#" of
    each gives the row of the sheet that a line belongs to; a row that a block does
    not name has empty cells there."""
    parts = []
    for block in blocks:
        header, *lines = rows_of(block)
        assert header[0] == "#", header
        parts.append((header[1:], {int(line[0]): line[1:] for line in lines}))
    last = max(row for _, lines in parts for row in lines)
    header = [name for names, _ in parts for name in names]
    assert len(header) == len(set(header)), header
    table = [header]
    for row in range(1, last + 1):
        cells = [lines.get(row, [""] * len(names)) for names, lines in parts]
        table.append([cell for part in cells for cell in part])
    return "\n".join(" | ".join(cells) for cells in table)
