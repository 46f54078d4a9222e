# SPDX-License-Identifier: BSL-1.0
"""Free stations, and which fix points were measured."""

from dataclasses import dataclass, field
from typing import Any, Dict, Iterable, List, Mapping, Optional, Tuple, Union

import numpy as np

from . import _native
from ._arrays import Floats, HadrelError, one_of, rows, vector

Polar = Union[Mapping[str, Any], Iterable[Tuple[str, Any]]]


@dataclass(frozen=True)
class Resection:
    """A free station, and what else is measured from there.

    Local points have their origin in the instrument, the circle's zero as north and its standing
    axis as up. Measured in plan, the instrument counts as level.

    :param station: east, north and height of the instrument
    :param orientation: what has to be added to a horizontal direction to get the azimuth; of a
        tilted instrument the last of three turns, which alone places nothing
    :param scale: multiplies measured lengths
    :param station_std: standard deviations of the station; in plan mode its height is the mean
        absolute height residual
    :param tilt_about_east: in [-pi, pi), positive when the zero direction points downwards; None
        in plan mode
    :param tilt_about_north: in [-pi/2, pi/2], positive when the direction to the right of it
        points upwards; None in plan mode
    """

    station: Tuple[float, float, float]
    orientation: float
    scale: float
    station_std: Tuple[float, float, float]
    orientation_std: float
    scale_std: float
    tilt_about_east: Optional[float] = None
    tilt_about_north: Optional[float] = None
    _placement: Optional[_native.Placement] = field(default=None, repr=False, compare=False)

    @property
    def residuals(self) -> Optional[Dict[str, Floats]]:
        """Where the sightings of each fix point lie less where it lies: arrays of shape (n, 3), by
        id; None in plan mode."""
        return self._placement.residuals() if self._placement else None

    def to_grid(self, points: Any, kind: str = "polar") -> Floats:
        """East, north and height of what the instrument measured.

        :param points: shape (..., 3)
        :param kind: "polar" for horizontal direction, zenith angle and slope distance, or "local"
            for east, north and height in the instrument's own system
        :return: the same shape; numbers that are not finite stay so
        """
        polar = one_of(kind, ("polar", "local"), "kind") == "polar"
        array, shape = rows(points, 3, "points")
        if self._placement:
            result = self._placement.to_grid(array, polar)
        else:
            local = _native.polar_to_local(array) if polar else array
            result = _native.local_to_grid(local, self.station, self.orientation, self.scale)
        return result.reshape(shape + (3,))

    def to_polar(self, points: Any) -> Floats:
        """What the instrument reads at grid points: the inverse of `to_grid`.

        :param points: east, north, height; shape (..., 3)
        :return: horizontal direction in [0, 2 pi), zenith angle and slope distance; the same shape
        """
        array, shape = rows(points, 3, "points")
        if self._placement:
            result = self._placement.to_polar(array)
        else:
            result = _native.local_to_polar(
                _native.grid_to_local(array, self.station, self.orientation, self.scale))
        return result.reshape(shape + (3,))


@dataclass(frozen=True)
class Identification:
    """Which fix point each measurement belongs to.

    :param matches: fix point of each measurement that has one
    :param significant: whether no other assignment of the same measurements is nearly as good
    :param expected_by_chance: how many such assignments strays alone would have; from 0.01 on
        measure more points
    """

    matches: Mapping[str, str]
    significant: bool
    expected_by_chance: float


def _named(values: Polar, name: str) -> List[Tuple[str, Tuple[float, ...]]]:
    pairs = values.items() if isinstance(values, Mapping) else values
    named = [(str(key), vector(value, 3, f"{name}[{key!r}]")) for key, value in pairs]
    if any(not key for key, _ in named):
        raise ValueError(f"{name}: an id is empty")
    return named


def resect(fix_points: Mapping[str, Any], measurements: Polar, *,
           method: str = "space") -> Resection:
    """Position and orientation of an instrument from sights to known points.

    :param fix_points: east, north and height by id
    :param measurements: horizontal direction, zenith angle and slope distance by id, or pairs of
        these where an id was measured more than once
    :param method: "space", which finds the tilt as well, or "plan", which trusts the level
    :raises HadrelError: with fewer than three usable sights, or where they leave the station open

    >>> targets = {"a": (10, 20, 5), "b": (40, -10, 8), "c": (-20, 30, 1)}
    >>> sights = {"a": (0.5, 1.4, 22.0), "b": (1.8, 1.4, 42.0), "c": (5.7, 1.6, 36.0)}
    >>> found = resect(targets, sights)
    >>> found.tilt_about_east is not None and resect(targets, sights, method="plan").residuals is None
    True
    >>> bool(np.allclose(found.to_grid(sights["a"]) - targets["a"], found.residuals["a"]))
    True
    """
    in_space = one_of(method, ("space", "plan"), "method") == "space"
    targets, sights = _named(fix_points, "fix_points"), _named(measurements, "measurements")
    placement = _native.placed(targets, sights) if in_space else None
    found = None if in_space else _native.resected_in_plan(targets, sights)
    if placement is not None:
        return Resection(*placement.numbers(), placement)
    if found is None:
        raise HadrelError("measurements: three sights to known points that do not lie on one "
                          "line are needed")
    return Resection(*found)


def identify(fix_points: Mapping[str, Any], measurements: Mapping[str, Any], *,
             robust: bool = True, distance_tolerance: float = 0.05,
             height_tolerance: float = 0.02, tilt_tolerance_degrees: float = 80.0,
             required: int = 3) -> Optional[Identification]:
    """Which fix points were measured, whatever the measurements are called.

    :param robust: leave out as few measurements as an assignment takes
    :return: None when there is no assignment
    """
    sights = _named(measurements, "measurements")
    found = _native.identified(_named(fix_points, "fix_points"), sights, robust,
                               distance_tolerance, height_tolerance, tilt_tolerance_degrees,
                               required)
    if found is None:
        return None
    matches: Dict[str, str] = found[0]
    return Identification(matches, found[1], found[2])
