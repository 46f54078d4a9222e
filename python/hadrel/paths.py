# SPDX-License-Identifier: BSL-1.0
"""Outlines and lines in a plane: clipping, offsets, lengths and areas on a grid of 0.1 mm.

An outline or a line is an array of shape (n, 2), or of shape (n, 3) whose last column is the radius
of the segment that ends there, signed as in `Profile`; arcs become points 1 cm apart, but at most 100
pieces. A `Profile` is an outline. Where outlines are asked for, one alone or a sequence of them will
do: points inside an odd number of them are inside. Results are tuples of arrays of shape (n, 2).

Corners of shape (n, 2) that lie on the grid stay there, so results go into further calls unchanged.
What comes from the grid differs from exact geometry: a coordinate by 0.1 mm, the area of a circle of
5 m by 150 cm2 when it has two arcs and by 55 cm2 when it has four; cleaning removes points within
0.14 mm of the line of their neighbours. `Profile.area` and `compare` know true arcs. A `Profile` that
goes clockwise has a negative area here; `closed` turns it.

There is no union: its area is that of `a` and of `difference(b, a)`.

>>> square = [(0, 0), (4, 0), (4, 4), (0, 4)]
>>> right = [(3, 0), (9, 0), (9, 4), (3, 4)]
>>> area(intersection(square, right)), area(difference(square, right))
(4.0, 12.0)
>>> clip_lines([(-1, 2), (9, 2)], square)[0].tolist()
[[0.0, 2.0], [4.0, 2.0]]
"""

import math
from typing import Any, List, Optional, Tuple

import numpy as np
import numpy.typing as npt

from . import _native
from ._arrays import Floats, HadrelError, check, numbers, rows
from ._profile import Profile

Outlines = Tuple[Floats, ...]


def _path(line: Any, name: str) -> Floats:
    """Rows of x, y and radius."""
    array = numbers(line.nodes if isinstance(line, Profile) else line, name)
    if array.size == 0:
        return np.empty((0, 3))
    if array.ndim != 2 or array.shape[1] not in (2, 3):
        raise ValueError(f"{name}: expected shape (n, 2) or (n, 3), got {array.shape}")
    known = np.isfinite(array).all(axis=1)
    if not known.all():
        index = int(known.argmin())
        raise ValueError(f"{name}[{index}]: expected numbers, got {array[index].tolist()}")
    if array.shape[1] == 2:
        array = np.column_stack([_kept(array), np.zeros(len(array))])
    return np.ascontiguousarray(array)


_PER_METRE = 1e4


def _kept(points: Floats) -> Floats:
    """Numbers that come out on the grid where they lie: below zero the library cuts off towards zero
    after adding half a unit, so what is on the grid already would move by a unit each time."""
    units = np.rint(points * _PER_METRE)
    moves = (units < 0) & (units / _PER_METRE == points)
    return np.where(moves, (units - 0.75) / _PER_METRE, points)


def _paths(lines: Any, name: str) -> List[Floats]:
    """Of one line or of several: the points of one are numbers, not rows of numbers."""
    if isinstance(lines, Profile) or isinstance(lines, np.ndarray) and lines.ndim < 3:
        return [_path(lines, name)]
    several = list(lines)
    if several and np.ndim(several[0]) == 1 and np.size(several[0]) > 0:
        return [_path(several, name)]
    return [_path(line, f"{name}[{index}]") for index, line in enumerate(several)]


def _result(found: Optional[List[Floats]]) -> Outlines:
    if found is None:
        raise HadrelError("the outlines cannot be clipped")
    return tuple(found)


def _length(value: float, name: str) -> float:
    number = float(value)
    if not math.isfinite(number):
        raise ValueError(f"{name}: expected a length, got {value!r}")
    return number


def closed(outline: Any, *, clean: bool = False) -> Floats:
    """The ring of an outline: anticlockwise, with the first point again at the end.

    :param clean: remove points within 0.14 mm of the line of their neighbours; on smooth outlines
        with points nearer than 1 cm to each other that adds up to millimetres
    :return: shape (n, 2); fewer than two points stay as they are
    """
    return _native.closed(_path(outline, "outline"), clean)


def area(outlines: Any) -> float:
    """The sum of the areas (m2): positive for anticlockwise outlines, negative for clockwise ones,
    which holes are."""
    return _native.area(_paths(outlines, "outlines"))


def length(lines: Any) -> float:
    """The sum of the lengths; nothing leads back from the last point to the first."""
    return _native.length(_paths(lines, "lines"))


def length_within(outline: Any, outlines: Any) -> float:
    """The length of an outline, closed, inside others."""
    found = _native.border_within(_path(outline, "outline"), _paths(outlines, "outlines"))
    if math.isnan(found):
        raise HadrelError("the outlines cannot be clipped")
    return found


def contains(outlines: Any, points: Any) -> npt.NDArray[np.bool_]:
    """Whether points (..., 2) lie inside; those on an outline do not, nor does what is no number."""
    array, shape = rows(points, 2, "points")
    return _native.contains(_paths(outlines, "outlines"), array).reshape(shape)


def intersection(a: Any, b: Any) -> Outlines:
    """The area common to outlines; one with holes in pieces without, cleaned."""
    return _result(_native.within(_paths(a, "a"), _paths(b, "b")))


def difference(a: Any, b: Any) -> Outlines:
    """The area of `a` less that of `b`; one with holes in pieces without, cleaned."""
    return _result(_native.without(_paths(a, "a"), _paths(b, "b")))


def buffer(outlines: Any, distance: float) -> Outlines:
    """Outlines that lie outside by a distance, or inside by a negative one; corners are round.

    Not cleaned. Holes, as where the arms of a C meet, are outlines of their own, clockwise.
    """
    return _result(_native.expanded(_paths(outlines, "outlines"), _length(distance, "distance")))


def buffer_lines(lines: Any, distance: float) -> Outlines:
    """Bands along open lines, of `distance` to either side, with flat ends.

    Lines are simplified first, which takes spurs away. None for a distance that is not positive.
    """
    return _result(_native.lines_expanded(_paths(lines, "lines"), _length(distance, "distance")))


def clip_lines(lines: Any, outlines: Any, *, clean: bool = True) -> Outlines:
    """The parts of open lines inside outlines; those along an outline may count as either.

    A closed outline counts as a line from its first point round to it.

    :param clean: remove points within 0.14 mm of the line of their neighbours, and spurs with them
    """
    return _result(_native.lines_within(_paths(lines, "lines"), _paths(outlines, "outlines"), clean))


def simplify(line: Any, tolerance: float) -> Floats:
    """Leaves out points within a tolerance (m) of the line through the last kept point and the next;
    what is left out lies within twice of it from the result. Both ends stay; spurs go."""
    if not tolerance >= 0.0:
        raise ValueError(f"tolerance: expected a length, got {tolerance!r}")
    return _native.simplified(_path(line, "line"), float(tolerance))


def without_holes(outlines: Any) -> Outlines:
    """Outlines with holes, as `buffer` gives them, cut into pieces without."""
    return _result(_native.without_holes(_paths(outlines, "outlines")))


def first_crossing(outlines: Any, start: Any, end: Any, *, errcheck: bool = False) -> Floats:
    """Where the line through two points, which goes on beyond both, meets the first edge that it
    meets in the order of the edges.

    :param start: shape (..., 2)
    :param end: another point of each line; of a shape that goes with it
    :return: shape (..., 2); not a number for lines that meet none

    >>> first_crossing([(0, 0), (4, 0), (4, 4), (0, 4)], (2, 1), (2, 2))
    array([2., 0.])
    """
    first, last = np.broadcast_arrays(numbers(start, "start"), numbers(end, "end"))
    ends, shape = rows(np.concatenate([first, last], axis=-1) if first.ndim else first, 4,
                       "start and end")
    result = _native.first_crossings(_paths(outlines, "outlines"), ends)
    if errcheck:
        check(result, "start", "the line meets no outline")
    return result.reshape(shape + (2,))
