# SPDX-License-Identifier: BSL-1.0
"""Geometry for surveying in tunnels: axes, profiles, fits, stations and guidance.

Lengths are metres, angles radians, slopes percent where the name says so. Azimuths count clockwise
from north. Points are arrays of shape (..., 2) or (..., 3); one point alone is an array as well.
What is not found is not a number, unless ``errcheck`` asks for an exception. Objects never change;
they compare, and they pickle.
"""

from ._arrays import HadrelError
from ._axis import (
    Arc,
    ArcRounding,
    Axis,
    AxisProperties,
    Cant,
    Clothoid,
    Kink,
    ParabolaRounding,
    Straight,
    map_between,
)
from ._fits import Circle, Ellipse, fit_circle, fit_ellipse
from ._guidance import GuidanceVector
from ._profile import (
    Comparison,
    Filters,
    Geology,
    Morph,
    Profile,
    ProfilePosition,
    Wedge,
    compare,
    morph,
)
from ._stations import Identification, Resection, identify, resect

__all__ = [
    "Arc",
    "ArcRounding",
    "Axis",
    "AxisProperties",
    "Cant",
    "Circle",
    "Clothoid",
    "Comparison",
    "Ellipse",
    "Filters",
    "Geology",
    "GuidanceVector",
    "HadrelError",
    "Identification",
    "Kink",
    "Morph",
    "ParabolaRounding",
    "Profile",
    "ProfilePosition",
    "Resection",
    "Straight",
    "Wedge",
    "compare",
    "fit_circle",
    "fit_ellipse",
    "identify",
    "map_between",
    "morph",
    "resect",
]
