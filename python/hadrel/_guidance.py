# SPDX-License-Identifier: BSL-1.0
"""Vectors along which machines are steered."""

from dataclasses import dataclass
from math import cos, isfinite, sin
from typing import Any, NamedTuple, Optional, Tuple

import numpy as np

from . import _native
from ._arrays import Floats, HadrelError, check, is_perpendicular, numbers, rows, vector
from ._axis import Axis
from ._profile import Profile

Three = Tuple[float, float, float]


class ViewAngles(NamedTuple):
    """Projections of a direction.

    :param front: seen along the axis, from straight up towards the right, in [0, 2 pi)
    :param top: seen from above, from straight ahead towards the right, in [0, 2 pi)
    :param side: seen from the side, from straight ahead upwards, in [-pi, pi)
    """

    front: float
    top: float
    side: float


@dataclass(frozen=True)
class GuidanceVector:
    """A line from an axis point, straight or along the axis.

    :param origin: stationing, offset, height
    :param direction: forward, to the right and upwards; of length 1, or zero for a vector that
        follows the axis through its curves

    >>> from hadrel import Axis, Kink, Straight
    >>> axis = Axis(horizontal=[Straight(0, 0, 0, azimuth=0, length=50)],
    ...             vertical=[Kink(0, 10), Kink(50, 10)])
    >>> GuidanceVector.parallel([5, 1, 2]).offsets(axis, [3, 9, 12.5])
    array([4. , 2. , 0.5])
    >>> GuidanceVector.straight([5, 1, 2], [1, 0, 0]).points(axis, 4)
    array([ 1.,  9., 12.])
    """

    origin: Three
    direction: Three = (0.0, 0.0, 0.0)

    @classmethod
    def parallel(cls, origin: Any) -> "GuidanceVector":
        """Through all curves of the axis."""
        return cls._made(origin, (0.0, 0.0, 0.0))

    @classmethod
    def straight(cls, origin: Any, direction: Any) -> "GuidanceVector":
        """In a direction of any length but zero."""
        components = np.array(vector(direction, 3, "direction"))
        length = float(np.sqrt(np.sum(components * components)))
        if not (isfinite(length) and length > 0.0):
            raise ValueError(f"direction: expected a length, got {direction!r}")
        return cls._made(origin, tuple(float(c) for c in components / length))

    @classmethod
    def in_section(cls, origin: Any, angle: float) -> "GuidanceVector":
        """In the plane of the section, at an angle from straight up towards the right."""
        return cls._made(origin, (0.0, sin(angle), cos(angle)))

    @classmethod
    def radial(cls, profile: Profile, origin: Any) -> "GuidanceVector":
        """In the plane of the section, outwards along the normal of a profile."""
        place = vector(origin, 3, "origin")
        return cls._made(place, _native.radial_direction(profile._native, place))

    @classmethod
    def between(cls, axis: Axis, first: Any, second: Any, plane: str = "vertical",
                cant: bool = True) -> "GuidanceVector":
        """From one axis point towards another."""
        start, end = vector(first, 3, "first"), vector(second, 3, "second")
        return cls._made(start, _native.direction_between(axis._native, start, end,
                                                          is_perpendicular(plane), cant))

    @classmethod
    def from_angles(cls, origin: Any, *, front: Optional[float] = None,
                    top: Optional[float] = None, side: Optional[float] = None) -> "GuidanceVector":
        """From the angles of its pictures in two of three views, see `angles`.

        :raises HadrelError: for angles that belong to no direction
        """
        if sum(angle is None for angle in (front, top, side)) != 1:
            raise ValueError("expected the angles of two of the views front, top and side")
        return cls._made(origin, _native.direction_of(front, top, side),
                         "the angles belong to no direction")

    @classmethod
    def _made(cls, origin: Any, direction: Any,
              reason: str = "a point cannot be converted, or both coincide") -> "GuidanceVector":
        if not all(map(isfinite, direction)):
            raise HadrelError(f"no direction: {reason}")
        place = vector(origin, 3, "origin")
        return cls((place[0], place[1], place[2]), (direction[0], direction[1], direction[2]))

    @property
    def angles(self) -> ViewAngles:
        """The angles of the direction in three views."""
        return ViewAngles(*_native.view_angles(self.direction))

    def points(self, axis: Axis, forward: Any, plane: str = "vertical",
               errcheck: bool = False) -> Floats:
        """The grid points that lie so far forward along the vector from its origin.

        :param forward: lengths; any shape
        :return: east, north, height; shape (..., 3); not a number beyond the axis
        """
        array = numbers(forward, "forward")
        result = _native.points_ahead(axis._native, self.origin, self.direction,
                                      array.reshape(-1), is_perpendicular(plane))
        if errcheck:
            check(result, "forward", "beyond the axis")
        return result.reshape(np.shape(forward) + (3,))

    def offsets(self, axis: Axis, points: Any, plane: str = "vertical",
                errcheck: bool = False) -> Floats:
        """How far grid points lie forward along the vector, to its right and above it.

        :param points: east, north, height; shape (..., 3)
        :return: the same shape; not a number where there is no result
        """
        array, shape = rows(points, 3, "points")
        result = _native.offsets(axis._native, self.origin, self.direction, array,
                                 is_perpendicular(plane))
        if errcheck:
            check(result, "points", "no foot on the axis, or an origin beyond it")
        return result.reshape(shape + (3,))
