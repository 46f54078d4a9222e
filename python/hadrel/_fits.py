# SPDX-License-Identifier: BSL-1.0
"""Circles and ellipses through measured points."""

import math
from dataclasses import dataclass
from typing import Any, Tuple

import numpy as np
import numpy.typing as npt

from . import _native
from ._arrays import HadrelError, one_of, rows

_CIRCLES = ("legacy", "kasa", "landau")


@dataclass(frozen=True)
class Circle:
    """A fitted circle."""

    centre: Tuple[float, float]
    radius: float


@dataclass(frozen=True, eq=False)
class Ellipse:
    """A fitted ellipse.

    :param rotation: of the first semi-axis, anticlockwise from +x
    :param used: for each point whether it took part
    """

    centre: Tuple[float, float]
    semi_axes: Tuple[float, float]
    rotation: float
    used: npt.NDArray[np.bool_]


def fit_circle(points: Any, *, method: str = "landau") -> Circle:
    """The circle of least squares through points of shape (n, 2).

    :param method: "landau", the fastest; "kasa", the same circle to the last digit on short arcs
        too; "legacy", kept because older results were computed with it
    :raises HadrelError: when the points determine no circle

    >>> fit_circle([(1, 0), (0, 1), (-1, 0), (0, -1)])
    Circle(centre=(0.0, 0.0), radius=1.0)
    """
    array, _ = rows(points, 2, "points")
    kind = _CIRCLES.index(one_of(method, _CIRCLES, "method"))
    x, y, radius, _, _, _ = _native.circle(array, kind)
    if not (math.isfinite(x) and math.isfinite(y) and math.isfinite(radius) and radius != 0.0):
        raise HadrelError("points: they determine no circle")
    return Circle((x, y), abs(radius))


def fit_ellipse(points: Any, *, rounds: int = 10) -> Ellipse:
    """The ellipse through points of shape (n, 2); each round leaves outliers out.

    :raises HadrelError: when the points determine no ellipse
    """
    array, _ = rows(points, 2, "points")
    (x, y, _, a, b, rotation), used = _native.ellipse(array, int(rounds))
    if not a > 0.0:
        raise HadrelError("points: they determine no ellipse")
    return Ellipse((x, y), (a, b), rotation, np.array(used))
