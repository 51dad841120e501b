"""How a sample's table is written down.

A table is written as it reads: the first line names the columns, "|" parts the
cells, an empty line is an empty row of the sheet.
"""


def rows_of(table):
    for line in table.strip("\n").split("\n"):
        yield [cell.strip() for cell in line.split("|")]


def text_of(rows):
    return "\n".join(" | ".join(cells) for cells in rows)


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
    return text_of(table)


def without(table, column, *values):
    """The table less the rows that have one of the values in the column, and less the
    rows below each that leave the column empty."""
    header, *rows = rows_of(table)
    place = header.index(column)
    kept, leaving, left = [header], False, set()
    for cells in rows:
        value = cells[place] if place < len(cells) else ""
        if value:
            leaving = value in values
            left.add(value)
        if not leaving:
            kept.append(cells)
    assert left.issuperset(values), values
    return text_of(kept)


def widened(table, *blocks):
    """The table with further columns, and with empty cells of its own filled. The
    first column of each block is one of the table, by which its lines find their
    rows."""
    header, *rows = rows_of(table)
    rows = [dict(zip(header, cells)) for cells in rows]
    for block in blocks:
        (key, *names), *lines = rows_of(block)
        header += [name for name in names if name not in header]
        for value, *cells in lines:
            found = [row for row in rows if row[key] == value]
            assert len(found) == 1, (key, value)
            for name, cell in zip(names, cells):
                assert not (cell and found[0].get(name)), (value, name)
                found[0][name] = cell or found[0].get(name, "")
    return text_of([header] + [[row.get(name, "") for name in header] for row in rows])


def stacked(*tables):
    """One table below the other; a column that one lacks has empty cells there."""
    parts = [list(rows_of(table)) for table in tables]
    header = list(dict.fromkeys(name for part in parts for name in part[0]))
    rows = [header]
    for names, *lines in parts:
        for line in lines:
            cells = dict(zip(names, line))
            rows.append([cells.get(name, "") for name in header])
    return text_of(rows)
