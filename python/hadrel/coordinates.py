# SPDX-License-Identifier: BSL-1.0
"""Angles, measurements, rotations, and the clothoid in its own frame.

Azimuths count clockwise from north. A measurement is a horizontal direction, a zenith angle and a
slope distance. Slopes along an axis rise forward where positive; a transverse slope in percent is
positive with the right side lower, its angle positive anticlockwise looking forward. Nothing raises
for numbers that are not finite: they stay so. Degrees are numpy's `deg2rad` and `rad2deg`.

>>> polar_to_local([[0, np.pi / 2, 10], [np.pi / 2, np.pi / 2, 10]]).round(9) + 0.0
array([[ 0., 10.,  0.],
       [10.,  0.,  0.]])
>>> round(gon_to_rad(200.0), 12)
3.14159265359
"""

import math
from typing import Any, NamedTuple, Tuple

import numpy as np

from . import _native
from ._arrays import Floats, numbers, one_of, per_value, rows, vector


def wrap(angle: Any, *, signed: bool = False) -> Any:
    """Angles in [0, 2 pi), or signed ones in [-pi, pi); a float for a float."""
    turn = _native.minus_pi_to_pi if signed else _native.zero_to_two_pi
    return per_value(turn, angle, "angle", "", False)


def gon_to_rad(angle: Any) -> Any:
    """Radians of gons, 400 to the circle."""
    return per_value(_native.gon_to_rad, angle, "angle", "", False)


def rad_to_gon(angle: Any) -> Any:
    """Gons of radians."""
    return per_value(_native.rad_to_gon, angle, "angle", "", False)


def percent_to_slope(percent: Any) -> Any:
    """The angle of a slope along the axis (rad): arctan(percent / 100)."""
    return per_value(_native.percent_to_slope, percent, "percent", "", False)


def slope_to_percent(slope: Any) -> Any:
    """Percent of the angle of a slope along the axis: 100 tan(slope)."""
    return per_value(_native.slope_to_percent, slope, "slope", "", False)


def percent_to_cant(percent: Any) -> Any:
    """The angle of a transverse slope (rad), whose sign is the other one."""
    return per_value(_native.percent_to_cant, percent, "percent", "", False)


def cant_to_percent(cant: Any) -> Any:
    """Percent of the angle of a transverse slope, whose sign is the other one."""
    return per_value(_native.cant_to_percent, cant, "cant", "", False)


def _together(*points: Tuple[Any, str]) -> Tuple[Floats, Tuple[int, ...]]:
    """Points side by side in rows, broadcast, and the shape they have together."""
    arrays = np.broadcast_arrays(*(rows(values, 3, name)[0].reshape(np.shape(values))
                                   for values, name in points))
    shape = arrays[0].shape[:-1]
    return np.ascontiguousarray(np.concatenate(arrays, axis=-1).reshape(-1, 3 * len(points))), shape


def _shaped(result: Floats, shape: Tuple[int, ...]) -> Any:
    return result.reshape(shape) if shape else float(result[0])


def azimuth(start: Any, end: Any) -> Any:
    """From points (..., 3) to others, in [0, 2 pi); 0 for points one above the other.

    >>> azimuth([0, 0, 0], [[5, 0, 1], [0, 5, 2]]) / np.pi
    array([0.5, 0. ])
    """
    pairs, shape = _together((start, "start"), (end, "end"))
    return _shaped(_native.azimuths(pairs), shape)


def angle_at(vertex: Any, first: Any, second: Any) -> Any:
    """Between the rays from points (..., 3) to two others, in [0, pi]; not a number where one of
    them is the vertex."""
    triples, shape = _together((vertex, "vertex"), (first, "first"), (second, "second"))
    return _shaped(_native.angles_at(triples), shape)


def polar_to_local(measurements: Any) -> Floats:
    """East, north and height from the instrument, with the circle's zero as north; (..., 3)."""
    array, shape = rows(measurements, 3, "measurements")
    return _native.polar_to_local(array).reshape(shape + (3,))


def local_to_polar(points: Any) -> Floats:
    """The measurements from the origin to points (..., 3), both angles in [0, 2 pi)."""
    array, shape = rows(points, 3, "points")
    return _native.local_to_polar(array).reshape(shape + (3,))


def local_to_grid(points: Any, *, station: Any, orientation: float, scale: float = 1.0) -> Floats:
    """From the system of a levelled instrument to the grid; (..., 3).

    `Resection.to_grid` does it for one that is tilted.

    :param station: east, north and height of the instrument
    :param orientation: azimuth of the circle's zero
    :param scale: of all three components
    """
    array, shape = rows(points, 3, "points")
    return _native.local_to_grid(array, vector(station, 3, "station"), float(orientation),
                                 float(scale)).reshape(shape + (3,))


def grid_to_local(points: Any, *, station: Any, orientation: float, scale: float = 1.0) -> Floats:
    """The inverse of `local_to_grid`."""
    array, shape = rows(points, 3, "points")
    return _native.grid_to_local(array, vector(station, 3, "station"), float(orientation),
                                 float(scale)).reshape(shape + (3,))


def backsight_orientation(measurement: Any, *, bearing: float, offset: float = 0.0) -> float:
    """The orientation from one backsight, in [0, 2 pi).

    :param measurement: of the target; a zenith angle above pi marks the second face
    :param bearing: azimuth of the target
    :param offset: added to the orientation

    >>> backsight_orientation((0.5, 1.5, 30.0), bearing=1.75)
    1.25
    """
    return _native.backsight(vector(measurement, 3, "measurement"), float(bearing), float(offset))


def _beside(points: Any, name: str, *parameters: Tuple[Any, str]) -> Tuple[Floats, Floats, Any]:
    """Points and their parameters in rows, broadcast, and the shape they have together."""
    array, shape = rows(points, 3, name)
    values = [numbers(value, called).reshape(np.shape(value)) for value, called in parameters]
    whole = np.broadcast_shapes(shape, *(value.shape for value in values))
    array = np.broadcast_to(array.reshape(shape + (3,)), whole + (3,))
    beside = np.stack([np.broadcast_to(value, whole) for value in values], axis=-1)
    return (np.ascontiguousarray(array).reshape(-1, 3),
            np.ascontiguousarray(beside).reshape(-1, len(values)), whole + (3,))


_AXES = ("east", "north", "height")


def rotate(points: Any, angle: Any, *, about: str = "height") -> Floats:
    """Turns points (..., 3) about an axis through the origin.

    :param angle: anticlockwise seen from the tip of the axis; a number, or an array that goes with
        the shape (...)
    :param about: "east", "north" or "height"

    >>> rotate([1, 0, 0], np.pi / 2).round(9)
    array([0., 1., 0.])
    """
    axis = _AXES.index(one_of(about, _AXES, "about"))
    array, angles, shape = _beside(points, "points", (angle, "angle"))
    return _native.rotated(array, angles[:, 0], axis).reshape(shape)


def to_components(vectors: Any, *, azimuth: Any, slope: Any = 0.0,
                  cant_percent: Any = 0.0) -> Floats:
    """Grid vectors (east, north, height) as components forward, to the right and up; (..., 3).

    :param azimuth: of the axis, as `Axis.properties` tells it with `slope` (rad) and `cant_percent`;
        numbers, or arrays that go with the shape (...)

    >>> to_components([3, 0, 0], azimuth=np.pi / 2).round(9) + 0.0
    array([3., 0., 0.])
    """
    array, directions, shape = _beside(vectors, "vectors", (azimuth, "azimuth"), (slope, "slope"),
                                       (cant_percent, "cant_percent"))
    return _native.to_components(array, directions).reshape(shape)


def from_components(components: Any, *, azimuth: Any, slope: Any = 0.0,
                    cant_percent: Any = 0.0) -> Floats:
    """The inverse of `to_components`."""
    array, directions, shape = _beside(components, "components", (azimuth, "azimuth"), (slope, "slope"),
                                       (cant_percent, "cant_percent"))
    return _native.from_components(array, directions).reshape(shape)


class ClothoidPoint(NamedTuple):
    """Places on a clothoid: arrays of the shape of the lengths along it.

    :param x: along the tangent at the origin
    :param y: to the side
    :param angle: change of direction
    :param curvature: reciprocal of the radius
    """

    x: Any
    y: Any
    angle: Any
    curvature: Any


def clothoid(along: Any, *, radius: float, length: float) -> ClothoidPoint:
    """A clothoid from its origin, where it is straight, as magnitudes: signs are the caller's.

    Not a number where the series do not converge, at several turns.

    :param along: lengths from the origin
    :param radius: that is reached after `length`

    >>> place = clothoid(60.0, radius=200, length=60)
    >>> round(place.y, 3), place.angle, place.curvature
    (2.995, 0.15, 0.005)
    """
    if not (math.isfinite(radius) and math.isfinite(length) and radius * length != 0.0):
        raise ValueError(f"expected a radius and a length, got {radius!r} and {length!r}")
    array = numbers(along, "along")
    result = _native.clothoid(array.reshape(-1), float(radius), float(length))
    return ClothoidPoint(*(_shaped(result[:, i], np.shape(along)) for i in range(4)))
