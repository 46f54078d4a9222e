# SPDX-License-Identifier: BSL-1.0
"""Free stations, and which fix points were measured."""

from dataclasses import dataclass
from typing import Any, Dict, Iterable, List, Mapping, Optional, Tuple, Union

from . import _native
from ._arrays import HadrelError, one_of, vector

Polar = Union[Mapping[str, Any], Iterable[Tuple[str, Any]]]


@dataclass(frozen=True)
class Resection:
    """A free station.

    :param station: east, north and height of the instrument
    :param orientation: what has to be added to a horizontal direction to get the azimuth
    :param scale: multiplies measured lengths
    :param station_std: standard deviations of the station; in plan mode its height is the mean
        absolute height residual
    """

    station: Tuple[float, float, float]
    orientation: float
    scale: float
    station_std: Tuple[float, float, float]
    orientation_std: float
    scale_std: float


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
    """
    in_space = one_of(method, ("space", "plan"), "method") == "space"
    found = _native.resected(_named(fix_points, "fix_points"),
                             _named(measurements, "measurements"), in_space)
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
