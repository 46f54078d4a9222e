# SPDX-License-Identifier: BSL-1.0
"""Geometry for surveying in tunnels: axes, profiles, fits, stations and guidance.

Lengths are metres, angles radians, slopes percent where the name says so. Azimuths count clockwise
from north. Points are arrays of shape (..., 2) or (..., 3); one point alone is an array as well.
What is not found is not a number, unless ``errcheck`` asks for an exception. Objects never change;
they compare, and they pickle.
"""

from . import coordinates, paths
from ._arrays import HadrelError
from ._axis import (
    Arc,
    ArcRounding,
    Axis,
    AxisProperties,
    BlockExtent,
    Cant,
    Clothoid,
    Kink,
    ParabolaRounding,
    Straight,
    map_between,
    map_points,
)
from ._fits import Circle, Ellipse, fit_circle, fit_ellipse
from ._guidance import GuidanceVector, ViewAngles
from ._profile import (
    Comparison,
    Filters,
    Geology,
    Morph,
    Profile,
    ProfilePosition,
    Wedge,
    compare,
    cut_section,
    morph,
    nearest_on_section,
)
from ._stations import Identification, Resection, identify, resect

__all__ = [
    "Arc",
    "ArcRounding",
    "Axis",
    "AxisProperties",
    "BlockExtent",
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
    "ViewAngles",
    "Wedge",
    "compare",
    "coordinates",
    "cut_section",
    "fit_circle",
    "fit_ellipse",
    "identify",
    "map_between",
    "map_points",
    "morph",
    "nearest_on_section",
    "paths",
    "resect",
]
