# SPDX-License-Identifier: BSL-1.0
"""Axes in plan and profile, and shafts."""

from dataclasses import astuple, dataclass
from os import PathLike
from pathlib import Path
from typing import Any, List, NamedTuple, Optional, Sequence, Tuple, Union

import numpy as np

from . import _native
from ._arrays import Floats, HadrelError, check, is_perpendicular, numbers, per_value, rows
from ._native import Axis as NativeAxis


@dataclass(frozen=True)
class Straight:
    """A straight in plan, from a stationing and point in the direction of an azimuth."""

    stationing: float
    east: float
    north: float
    azimuth: float
    length: float


@dataclass(frozen=True)
class Arc:
    """A circular arc in plan; a positive radius curves to the right."""

    stationing: float
    east: float
    north: float
    azimuth: float
    length: float
    radius: float


@dataclass(frozen=True)
class Clothoid:
    """A curve whose curvature changes linearly; a radius of 0 is infinite."""

    stationing: float
    east: float
    north: float
    azimuth: float
    length: float
    radius_start: float
    radius_end: float


@dataclass(frozen=True)
class Kink:
    """A point of intersection of two grades, not rounded."""

    stationing: float
    height: float


@dataclass(frozen=True)
class ArcRounding:
    """A point of intersection of two grades, rounded by a circle."""

    stationing: float
    height: float
    radius: float


@dataclass(frozen=True)
class ParabolaRounding:
    """A point of intersection of two grades, rounded by a parabola of curvature 1 / value."""

    stationing: float
    height: float
    value: float


@dataclass(frozen=True)
class Cant:
    """A transverse slope (percent, the right side lower where positive) that changes linearly."""

    stationing_from: float
    stationing_to: float
    slope_from: float
    slope_to: float


Horizontal = Union[Straight, Arc, Clothoid]
Vertical = Union[Kink, ArcRounding, ParabolaRounding]


class AxisProperties(NamedTuple):
    """Direction and slopes of an axis; arrays of the shape of the stationings."""

    azimuth: Any
    radius: Any
    slope: Any
    slope_percent: Any
    cant: Any
    cant_percent: Any


class BlockExtent(NamedTuple):
    """A block of an axis: the chord between two of its stationings.

    :param start: its stationing, which the block keeps
    :param end: stationing of its end on the block's own axis
    :param start_tunnelmeter: which the block keeps as well
    :param end_tunnelmeter: at the end of the chord in space
    :param length: of the chord in plan
    :param length_in_space: of the chord
    """

    start: float
    end: float
    start_tunnelmeter: float
    end_tunnelmeter: float
    length: float
    length_in_space: float


def _taken(values: Sequence[Any], kinds: Tuple[type, ...], name: str) -> Tuple[Any, ...]:
    for index, value in enumerate(values):
        if not isinstance(value, kinds):
            expected = ", ".join(kind.__name__ for kind in kinds)
            raise TypeError(f"{name}[{index}]: expected {expected}, got {type(value).__name__}")
    return tuple(values)


def _entries(elements: Sequence[Any]) -> List[Tuple[str, List[float]]]:
    return [(type(e).__name__, [float(value) for value in astuple(e)]) for e in elements]


_KINDS = {kind.__name__: kind for kind in (Straight, Arc, Clothoid, Kink, ArcRounding,
                                           ParabolaRounding, Cant)}


def _elements(entries: Sequence[Tuple[str, List[float]]]) -> List[Any]:
    """The inverse of `_entries`."""
    return [_KINDS[kind](*values) for kind, values in entries]


class Axis:
    """A tunnel axis.

    :param horizontal: `Straight`, `Arc` and `Clothoid`, in order
    :param vertical: `Kink`, `ArcRounding` and `ParabolaRounding`; two at least
    :param cant: transverse slopes
    :param tunnelmeter: a stationing and the tunnel meter there

    >>> axis = Axis(horizontal=[Straight(100, 5000, 2000, azimuth=0, length=50)],
    ...             vertical=[Kink(100, 400), Kink(150, 401)])
    >>> axis.to_axis([5002, 2010, 403])
    array([110. ,   2. ,   2.8])
    >>> axis.to_grid([110, 2, 2.8])
    array([5002., 2010.,  403.])
    """

    __slots__ = ("_definition", "_native", "_notes")
    _definition: Tuple[Any, ...]
    _native: NativeAxis
    _notes: Tuple[str, ...]

    def __init__(self, *, horizontal: Sequence[Horizontal], vertical: Sequence[Vertical],
                 cant: Sequence[Cant] = (), tunnelmeter: Tuple[float, float] = (0.0, 0.0)) -> None:
        plan = _taken(horizontal, (Straight, Arc, Clothoid), "horizontal")
        profile = _taken(vertical, (Kink, ArcRounding, ParabolaRounding), "vertical")
        slopes = _taken(cant, (Cant,), "cant")
        origin, value = (float(number) for number in tunnelmeter)
        native = _native.Axis(_entries(plan + profile + slopes), origin, value)
        self._become(("alignment", plan, profile, slopes, (origin, value)), native)
        first, last = self.range
        if not first < last:
            raise HadrelError("horizontal and vertical alignment: no stationing in common")

    @classmethod
    def shaft(cls, *, east: float, north: float, height_start: float, height_end: float,
              stationing: float = 0.0) -> "Axis":
        """A vertical shaft; its stationing runs from `stationing` at `height_start`.

        >>> Axis.shaft(east=1000, north=2000, height_start=500, height_end=460).to_grid([10, 1, 2])
        array([1001., 2002.,  490.])
        """
        values = tuple(float(v) for v in (east, north, height_start, height_end, stationing))
        return cls._made(("shaft",) + values, _native.Axis.shaft(*values))

    @classmethod
    def from_landxml(cls, path: "Union[str, PathLike[str]]", alignment: Optional[str] = None,
                     profile: Optional[str] = None, *,
                     cant_base: Optional[float] = None) -> "Axis":
        """Reads an alignment from LandXML 1.x, as the programs read it.

        Directions come from the coordinates of the elements. The tunnel meter is 0 where the axis
        begins, and heights are 0 where the file has none. What had to be assumed is in `notes`.

        :param alignment: its name; by default the first one
        :param profile: its name; by default the only one, or the proposed one
        :param cant_base: distance of the rails (m), which makes transverse slopes of the cant
        :raises HadrelError: when the file contradicts itself or cannot be read, with its line
        """
        xml = Path(path).read_bytes()
        if cant_base is not None and not 0.1 <= cant_base <= 10.0:
            raise ValueError(f"cant_base: expected a length from 0.1 to 10 m, got {cant_base!r}")
        try:
            plan, heights, slopes, origin, notes = _native.read_landxml(
                xml, alignment or "", profile or "", cant_base)
        except ValueError as reason:
            raise HadrelError(f"{path}: {reason}") from None
        axis = cls(horizontal=_elements(plan), vertical=_elements(heights),
                   cant=_elements(slopes), tunnelmeter=(origin, 0.0))
        object.__setattr__(axis, "_notes", tuple(notes))
        return axis

    @classmethod
    def _made(cls, definition: Tuple[Any, ...], native: NativeAxis) -> "Axis":
        axis = object.__new__(cls)
        axis._become(definition, native)
        return axis

    def _become(self, definition: Tuple[Any, ...], native: NativeAxis) -> None:
        object.__setattr__(self, "_definition", definition)
        object.__setattr__(self, "_native", native)
        object.__setattr__(self, "_notes", ())

    def __setattr__(self, name: str, value: Any) -> None:
        raise AttributeError("an axis never changes")

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Axis) and self._definition == other._definition

    def __hash__(self) -> int:
        return hash(self._definition)

    def __reduce__(self) -> Tuple[Any, ...]:
        return _restored, (self._notes,) + self._definition

    def __repr__(self) -> str:
        first, last = self.range
        return f"<hadrel.Axis ({self._definition[0]}) from {first:g} to {last:g}>"

    @property
    def horizontal(self) -> Tuple[Horizontal, ...]:
        """The elements of the plan; none of a shaft and of a block."""
        return self._part(1)

    @property
    def vertical(self) -> Tuple[Vertical, ...]:
        """The points of intersection of grades; none of a shaft and of a block."""
        return self._part(2)

    @property
    def cant(self) -> Tuple[Cant, ...]:
        """The transverse slopes."""
        return self._part(3)

    def _part(self, index: int) -> Tuple[Any, ...]:
        return tuple(self._definition[index]) if self._definition[0] == "alignment" else ()

    @property
    def notes(self) -> Tuple[str, ...]:
        """What had to be assumed when it was read from a file; it does not count in comparisons."""
        return self._notes

    @property
    def range(self) -> Tuple[float, float]:
        """The first and the last stationing."""
        first, last = self._native.range()
        return first, last

    def to_axis(self, points: Any, plane: str = "vertical", cant: bool = True,
                errcheck: bool = False) -> Floats:
        """Stationing, offset and height of grid points.

        Scans in the order of their sections are the fastest.

        :param points: east, north, height; shape (..., 3)
        :param plane: "vertical", square to the axis in plan, or "perpendicular", in space
        :param cant: whether the transverse slope turns offset and height
        :param errcheck: raise `HadrelError` for the first point without a foot on the axis
        :return: the same shape; not a number for points without a foot
        """
        array, shape = rows(points, 3, "points")
        result = self._native.to_axis(array, is_perpendicular(plane), cant)
        if errcheck:
            check(result, "points", "no foot on the axis")
        return result.reshape(shape + (3,))

    def to_grid(self, points: Any, plane: str = "vertical", cant: bool = True,
                errcheck: bool = False) -> Floats:
        """East, north and height of axis points: the inverse of `to_axis`.

        :param points: stationing, offset, height; shape (..., 3)
        :return: the same shape; not a number where the axis does not reach
        """
        array, shape = rows(points, 3, "points")
        result = self._native.to_grid(array, is_perpendicular(plane), cant)
        if errcheck:
            check(result, "points", "stationing outside the axis")
        return result.reshape(shape + (3,))

    def properties(self, stationing: Any, errcheck: bool = False) -> AxisProperties:
        """Azimuth, signed radius (0 on a straight), slopes along and across, at stationings."""
        array = numbers(stationing, "stationing")
        result = self._native.properties(array.reshape(-1))
        if errcheck:
            check(result, "stationing", "outside the axis")
        shape = np.shape(stationing)
        columns = (result[:, i].reshape(shape) if shape else float(result[0, i]) for i in range(6))
        return AxisProperties(*columns)

    def tunnelmeter(self, stationing: Any, errcheck: bool = False) -> Any:
        """The tunnel meter, the length in space along the axis, at stationings."""
        return per_value(self._native.tunnelmeter, stationing, "stationing", "outside the axis",
                         errcheck)

    def stationing(self, tunnelmeter: Any, errcheck: bool = False) -> Any:
        """The stationing at tunnel meters: the inverse of `tunnelmeter`."""
        return per_value(self._native.stationing, tunnelmeter, "tunnelmeter", "outside the axis",
                         errcheck)

    def tangent(self, stationing: Any, plane: str = "vertical", errcheck: bool = False) -> Floats:
        """Unit vectors (east, north, height) along the axis at stationings; shape (..., 3).

        :param plane: "vertical" for level ones, or "perpendicular" for those in space
        """
        array = numbers(stationing, "stationing")
        result = self._native.tangents(array.reshape(-1), is_perpendicular(plane))
        if errcheck:
            check(result, "stationing", "outside the axis")
        return result.reshape(np.shape(stationing) + (3,))

    def polyline(self, step: float) -> List[Floats]:
        """East and north along each segment of the plan, one array for each."""
        return self._native.plan_polylines(float(step))

    def profile_polyline(self, step: float) -> Floats:
        """Stationing and height along the vertical alignment; shape (n, 2)."""
        return self._native.profile_polyline(float(step))

    def vertical_polylines(self, step: float) -> List[Floats]:
        """Stationing and height of each point of the vertical alignment: the point itself, or its
        rounding. One array of shape (n, 2) for each."""
        return self._native.vertical_polylines(float(step))

    @property
    def is_shaft(self) -> bool:
        """Whether it is a shaft, or a block of one."""
        return self._native.is_shaft()

    @property
    def tunnelmeter_origin(self) -> Tuple[float, float]:
        """A stationing, and the tunnel meter there."""
        stationing, value = self._native.tunnelmeter_origin()
        return stationing, value

    @property
    def extent(self) -> Optional[BlockExtent]:
        """Where a block begins and ends; its axis reaches 2 m farther. None for other axes."""
        if self._definition[0] != "block":
            return None
        _, whole, start, limit = self._definition
        end, meter, length, in_space = whole._native.block_extent(start, limit)
        return BlockExtent(start, end, meter, meter + in_space, length, in_space)

    @property
    def misclosures(self) -> Floats:
        """How far each segment begins from the end before it (m), and turned by how much."""
        return self._native.misclosures()

    def block(self, start: float, end: float) -> "Axis":
        """The axis of a block: the chord between two stationings, and 2 m beyond either end."""
        first, last = self.range
        if not first <= start < end <= last:
            raise ValueError(f"block: expected {first:g} <= start < end <= {last:g}, "
                             f"got {start:g} and {end:g}")
        return self._made(("block", self, float(start), float(end)),
                          self._native.block(float(start), float(end)))


def _restored(notes: Tuple[str, ...], kind: str, *values: Any) -> Axis:
    if kind == "shaft":
        axis = Axis.shaft(east=values[0], north=values[1], height_start=values[2],
                          height_end=values[3], stationing=values[4])
    elif kind == "block":
        axis = values[0].block(values[1], values[2])
    else:
        axis = Axis(horizontal=values[0], vertical=values[1], cant=values[2], tunnelmeter=values[3])
    object.__setattr__(axis, "_notes", notes)
    return axis


def map_between(source: Axis, target: Axis, values: Any, *, tunnelmeter: bool = False,
                result_tunnelmeter: bool = False, errcheck: bool = False) -> Any:
    """Carries stationings of one axis to another; `map_points` does it with axis points.

    A stationing goes along the vertical plane of the source, from the point on the axis itself.

    :param values: stationings; any shape, where (3,) is three of them
    :param tunnelmeter: whether they are tunnel meters of the source
    :param result_tunnelmeter: whether tunnel meters of the target are asked for
    :return: the same shape, a float for a float; not a number without a counterpart

    >>> road, rail = (Axis(horizontal=[Straight(start, 0, 0, azimuth=0, length=50)],
    ...                    vertical=[Kink(start, height), Kink(start + 50, height)])
    ...               for start, height in ((0, 10), (700, 12)))
    >>> map_between(road, rail, [10, 20, 60])
    array([710., 720.,  nan])
    >>> map_points(road, rail, [10, 3, 4])
    array([710.,   3.,   2.])
    """
    return per_value(
        lambda array: _native.mapped(source._native, target._native, array, tunnelmeter,
                                     result_tunnelmeter),
        values, "values", "no counterpart on the target", errcheck)


def map_points(source: Axis, target: Axis, points: Any, plane: str = "vertical",
               cant: bool = True, errcheck: bool = False) -> Floats:
    """Carries axis points of one axis to another, by their grid coordinates.

    :param points: stationing, offset, height on the source; shape (..., 3)
    :param plane: as in `Axis.to_axis`, of both axes
    :param cant: as in `Axis.to_axis`, of both axes
    :param errcheck: raise `HadrelError` for the first point that has no counterpart
    :return: stationing, offset, height on the target; the same shape
    """
    grid = source.to_grid(points, plane, cant, errcheck)
    return target.to_axis(grid, plane, cant, errcheck)
