# SPDX-License-Identifier: BSL-1.0
"""Golden tables: some columns are given, the others are worked out from them and written anew."""

import csv
import io
from pathlib import Path

from mpmath import mp, mpf

GOLDEN = Path(__file__).resolve().parent.parent.parent / "tests" / "golden"

mp.dps = 50


def exact(text):
    """The double that a field stands for, as it reaches the library."""
    return mpf(float(text))


def printed(value):
    """The shortest text of the nearest double; empty for None."""
    if value is None or isinstance(value, (str, int)):
        return "" if value is None else str(value)
    return "0" if abs(value) < mpf(10) ** -40 else repr(float(value))


class Table:
    def __init__(self, path):
        self.path = GOLDEN / path
        with self.path.open(newline="") as file:
            reader = csv.DictReader(file)
            self.rows = list(reader)
            self.columns = reader.fieldnames

    def numbers(self, *columns):
        """Each row's numbers; None for an empty field."""
        return [tuple(exact(row[c]) if row[c] else None for c in columns) for row in self.rows]

    def points(self):
        return self.numbers("x", "y")

    def set(self, row, **values):
        for column, value in values.items():
            if column not in self.columns:
                raise KeyError(f"{self.path} has no column {column}")
            row[column] = printed(value)

    def text(self):
        out = io.StringIO()
        writer = csv.DictWriter(out, self.columns, lineterminator="\n")
        writer.writeheader()
        writer.writerows(self.rows)
        return out.getvalue()


def rows_of(path):
    return Table(path).rows if (GOLDEN / path).exists() else []
