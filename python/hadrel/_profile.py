# SPDX-License-Identifier: BSL-1.0
"""Design profiles, measured ones before them, and what lies between two of them."""

import math
from dataclasses import dataclass
from os import PathLike
from pathlib import Path
from typing import Any, NamedTuple, Optional, Sequence, Tuple, Union

import numpy as np
import numpy.typing as npt

from . import _native
from ._arrays import Floats, HadrelError, check, numbers, one_of, rows
from ._native import Profile as NativeProfile


class ProfilePosition(NamedTuple):
    """Where points lie relative to a profile.

    :param foot: the nearest point of the profile; shape (..., 2)
    :param distance: from the profile, positive outside
    :param derolment: developed length from the crown, positive clockwise
    """

    foot: Any
    distance: Any
    derolment: Any


_GAP = 0.001  # by which printed profiles do not close


class Profile:
    """A closed design profile, x to the right and y up.

    :param nodes: (x, y) or (x, y, radius) of each corner, from the first and back to it. The
        radius is that of the segment that ends there: 0 for a straight, positive for an arc
        passed clockwise, negative for one passed anticlockwise; arcs are at most half circles.

    >>> circle = Profile([(-5, 0), (5, 0, 5), (-5, 0, 5)])
    >>> round(circle.position([0, 6]).distance, 9)
    1.0
    """

    __slots__ = ("_nodes", "_native")
    _nodes: Tuple[Tuple[float, float, float], ...]
    _native: NativeProfile

    def __init__(self, nodes: Sequence[Sequence[float]]) -> None:
        complete = []
        for index, node in enumerate(nodes):
            values = tuple(float(value) for value in node)
            if len(values) not in (2, 3) or not all(map(math.isfinite, values)):
                raise ValueError(f"nodes[{index}]: expected (x, y) or (x, y, radius), got {node!r}")
            complete.append((values + (0.0,))[:3])
        if len(complete) < 3 or math.dist(complete[0][:2], complete[-1][:2]) > _GAP:
            raise ValueError("nodes: expected two segments or more that lead back to the first node")
        native = _native.Profile(np.array(complete))
        if not native.circumference() > 0.0:
            raise ValueError("nodes: an arc is shorter than its chord, or all nodes coincide")
        object.__setattr__(self, "_nodes", tuple(complete))
        object.__setattr__(self, "_native", native)

    @classmethod
    def from_csv(cls, path: "Union[str, PathLike[str]]") -> "Profile":
        """Reads the elements of a closed profile: start_x, start_y, end_x, end_y and radius.

        Separators, decimal commas, headings and units are recognised, as the programs do it.

        :raises HadrelError: when it does not close within a millimetre or cannot be read, with
            the line
        """
        text = Path(path).read_bytes()
        try:
            nodes = _native.read_profile(text)
        except ValueError as reason:
            raise HadrelError(f"{path}: {reason}") from None
        return cls(nodes.tolist())

    def __setattr__(self, name: str, value: Any) -> None:
        raise AttributeError("a profile never changes")

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Profile) and self._nodes == other._nodes

    def __hash__(self) -> int:
        return hash(self._nodes)

    def __reduce__(self) -> Tuple[Any, ...]:
        return Profile, (self._nodes,)

    def __repr__(self) -> str:
        return f"<hadrel.Profile, {len(self._nodes) - 1} segments, {self.circumference:.3f} m round>"

    @property
    def nodes(self) -> Tuple[Tuple[float, float, float], ...]:
        """x, y and radius of each node."""
        return self._nodes

    @property
    def circumference(self) -> float:
        """The length of all segments."""
        return self._native.circumference()

    @property
    def area(self) -> float:
        """The area inside (m2), with arcs as such, not as chords."""
        return self._native.area()

    @property
    def centroid(self) -> Tuple[float, float]:
        """The centre of the area inside."""
        return self._native.centroid()

    def position(self, points: Any, errcheck: bool = False) -> ProfilePosition:
        """Foot, distance and derolment of points; shape (..., 2)."""
        array, shape = rows(points, 2, "points")
        result = self._native.position(array)
        if errcheck:
            check(result, "points", "no foot on the profile")
        if not shape:
            return ProfilePosition(result[0, :2], float(result[0, 2]), float(result[0, 3]))
        return ProfilePosition(result[:, :2].reshape(shape + (2,)), result[:, 2].reshape(shape),
                               result[:, 3].reshape(shape))

    def at(self, derolment: Any) -> Floats:
        """The points of the profile at derolments; shape (..., 2)."""
        array = numbers(derolment, "derolment")
        return self._native.at(array.reshape(-1)).reshape(np.shape(derolment) + (2,))

    def outline(self, step: float) -> Floats:
        """Points every `step` metres and at all nodes, clockwise; shape (n, 2)."""
        if not step > 0.0:
            raise ValueError(f"step: expected a positive length, got {step!r}")
        return self._native.outline(float(step))

    def samples(self, count: int) -> Floats:
        """So many points at equal distances, clockwise; none for more than 1e7. Shape (n, 2)."""
        if not 0 < count < 1 << 32:
            raise ValueError(f"count: expected one or more, got {count!r}")
        return self._native.samples(int(count))

    @property
    def vertices(self) -> Floats:
        """Where segments meet, clockwise; shape (n, 2)."""
        return self._native.vertices()

    @property
    def is_clockwise(self) -> bool:
        """Whether the nodes were given clockwise."""
        return self._native.is_clockwise()

    def offset(self, points: Any, distance: float, errcheck: bool = False) -> Floats:
        """Points at a distance from the profile on the normals through `points`.

        :param points: shape (..., 2)
        :param distance: positive outside
        :return: the same shape; not a number for points without a foot
        """
        array, shape = rows(points, 2, "points")
        result = self._native.offset_points(array, float(distance))
        if errcheck:
            check(result, "points", "no foot on the profile")
        return result.reshape(shape + (2,))

    def diameter(self, points: Any, errcheck: bool = False) -> Any:
        """Lengths across the profile along its normals at the feet of points; shape (..., 2)."""
        array, shape = rows(points, 2, "points")
        result = self._native.diameters(array)
        if errcheck:
            check(result, "points", "no wall across within 1000 m")
        return result.reshape(shape) if shape else float(result[0])

    def cut(self, *, up: Optional[float] = None, right: Optional[float] = None) -> Floats:
        """Where a horizontal line (`up`) or a vertical one (`right`) meets it; shape (n, 2)."""
        return self._native.cut(*_line(up, right))


def _line(up: Optional[float], right: Optional[float]) -> Tuple[float, bool]:
    """Where a line lies, and whether it is horizontal."""
    if up is not None and right is None:
        return float(up), True
    if right is not None and up is None:
        return float(right), False
    raise ValueError("expected either up or right")


@dataclass(frozen=True)
class Wedge:
    """Leaves out what lies between two bearings (clockwise from up) from a centre."""

    start: float
    end: float
    centre: Tuple[float, float]


@dataclass(frozen=True)
class Filters:
    """What a comparison leaves out."""

    above: Optional[float] = None
    below: Optional[float] = None
    left_of: Optional[float] = None
    right_of: Optional[float] = None
    wedges: Tuple[Wedge, ...] = ()

    def excludes(self, points: Any) -> npt.NDArray[np.bool_]:
        """Whether each of the points (..., 2) is left out; one on a limit is, and so is one that
        is not finite. Without any filter none is.

        >>> Filters(below=0.5).excludes([[0, 1], [0, 0]])
        array([False,  True])
        """
        array, shape = rows(points, 2, "points")
        return _native.excluded(array, *self._options()).reshape(shape)

    def _options(self) -> Any:
        """As the extension takes them."""
        return ((self.above, self.below, self.left_of, self.right_of),
                [(w.start, w.end, w.centre[0], w.centre[1]) for w in self.wedges])


@dataclass(frozen=True)
class Geology:
    """Which part of the over profile counts as geological.

    :param outer: distance from the design beyond which excavation is geological
    :param method: "band": with it the band from the design to `outer` beside those places;
        "between": that from `inner` to `outer`; "beyond": none
    """

    outer: float
    inner: float = 0.0
    method: str = "band"


@dataclass(frozen=True, eq=False)
class Comparison:
    """A measured profile before a design: areas (m2), and outlines as tuples of (n, 2) arrays.

    Lengths and lines are of what the filters leave of either outline.
    """

    design_area: float
    measured_area: float
    over_area: float
    under_area: float
    geological_area: float
    over: Tuple[Floats, ...]
    under: Tuple[Floats, ...]
    geological: Tuple[Floats, ...]
    remaining: Tuple[Floats, ...]
    design_length: float
    measured_length: float
    design_lines: Tuple[Floats, ...]
    measured_lines: Tuple[Floats, ...]


_METHODS = ("band", "between", "beyond")


def _finite(points: Any, name: str) -> Floats:
    array, _ = rows(points, 2, name)
    known = np.isfinite(array).all(axis=1)
    if not known.all():
        index = int(known.argmin())
        raise ValueError(f"{name}[{index}]: expected numbers, got {array[index].tolist()}")
    return array


def compare(design: Union[Profile, Any], measured: Any, *, filters: Optional[Filters] = None,
            geology: Optional[Geology] = None) -> Comparison:
    """Over and under profile of a measured section.

    Areas are those of true arcs to 0.1 cm2 or so, as in the programs; those between two sections are
    the library's own, on a grid of 0.1 mm.

    :param design: a `Profile`, or an earlier section of shape (n, 2)
    :param measured: the points of the section in order round it; shape (n, 2)

    >>> section = [(-2, -2), (-2, 2), (3, 2), (3, -2)]
    >>> square = Profile([(-2, -2), (-2, 2), (2, 2), (2, -2), (-2, -2)])
    >>> round(compare(square, section).over_area, 3)
    4.0
    """
    points = _finite(measured, "measured")
    division = None
    if geology is not None:
        division = (_METHODS.index(one_of(geology.method, _METHODS, "method")),
                    float(geology.outer), float(geology.inner))
    options = (*(filters or Filters())._options(), division)
    if isinstance(design, Profile):
        found = _native.compared(design._native, points, *options)
    else:
        found = _native.compared_scans(_finite(design, "design"), points, *options)
    return Comparison(**{name: tuple(value) if isinstance(value, list) else value
                         for name, value in found.items()})


def nearest_on_section(measured: Any, points: Any, *, direction: str = "radial",
                       design: Optional[Profile] = None, errcheck: bool = False) -> Floats:
    """The nearest points of a measured section on lines through points.

    :param measured: the points of the section in order round it; shape (n, 2)
    :param points: shape (..., 2)
    :param direction: of the lines: "horizontal", "vertical", or "radial", which is along the
        normals of `design`
    :return: the same shape; not a number where a line misses the section

    >>> nearest_on_section([(-2, -2), (-2, 2), (3, 2), (3, -2)], [1, 1], direction="vertical")
    array([1., 2.])
    """
    one_of(direction, ("radial", "horizontal", "vertical"), "direction")
    if direction == "radial" and design is None:
        raise ValueError("design: expected a Profile for radial lines")
    array, shape = rows(points, 2, "points")
    result = _native.nearest_on_section(design._native if design else None,
                                        _finite(measured, "measured"), array, direction)
    if errcheck:
        check(result, "points", "the line misses the section")
    return result.reshape(shape + (2,))


def cut_section(measured: Any, *, up: Optional[float] = None, right: Optional[float] = None,
                filters: Optional[Filters] = None) -> Floats:
    """Where a horizontal line (`up`) or a vertical one (`right`) meets a section; shape (n, 2)."""
    return _native.section_cut(_finite(measured, "measured"), *_line(up, right),
                               *(filters or Filters())._options())


@dataclass(frozen=True)
class Morph:
    """The design at any stationing between two designs; call it with a stationing."""

    start: Profile
    end: Profile
    start_stationing: float
    end_stationing: float

    def __call__(self, stationing: float) -> Profile:
        try:
            nodes = _native.morphed(self.start._native, self.end._native, self.start_stationing,
                                    self.end_stationing, float(stationing))
        except RuntimeError as reason:
            raise ValueError(str(reason)) from None
        if nodes is None:
            raise HadrelError("the profiles cannot be morphed into each other")
        return Profile(nodes.tolist())


def morph(start: Profile, end: Profile, start_stationing: float, end_stationing: float) -> Morph:
    """What lies between two profiles, at a widening or before a lay-by.

    >>> small, large = (Profile([(-r, 0), (r, 0, r), (-r, 0, r)]) for r in (4, 6))
    >>> morph(small, large, 100, 110)(100) == small
    True
    """
    if not start_stationing < end_stationing:
        raise ValueError(f"expected start_stationing < end_stationing, got {start_stationing!r} "
                         f"and {end_stationing!r}")
    return Morph(start, end, float(start_stationing), float(end_stationing))
