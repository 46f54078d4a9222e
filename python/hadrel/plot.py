# SPDX-License-Identifier: BSL-1.0
"""Pictures on matplotlib axes, in the colours of the programs.

Every function draws on `ax`, by default the current axes, and returns them.
"""

from typing import Any, Optional, Sequence, Tuple

import numpy as np

from ._arrays import numbers, rows
from ._axis import Arc, Axis, Clothoid, Straight
from ._profile import Comparison, Morph, Profile

INK = (0.13, 0.14, 0.16)
GREY = (0.45, 0.48, 0.51)
UNMEASURED = (0.90, 0.91, 0.92)
SURVEYED = (0.16, 0.49, 0.27)
MEASURED = (0.70, 0.10, 0.12)
OVER, OVER_DARK = (0.98, 0.80, 0.55), (0.72, 0.36, 0.02)
UNDER, UNDER_DARK = (0.60, 0.78, 0.95), (0.05, 0.32, 0.66)
ELEMENTS = {Straight: (0.20, 0.24, 0.29), Arc: (0.70, 0.27, 0.16), Clothoid: (0.10, 0.45, 0.62)}
START, MIDDLE, END = (0.08, 0.30, 0.58), (0.45, 0.24, 0.60), (0.82, 0.24, 0.12)
# Blue under the design, yellow to red over it, pale near zero.
UNDER_RAMP = ((0.05, 0.16, 0.42), (0.13, 0.37, 0.68), (0.33, 0.59, 0.83), (0.60, 0.79, 0.92),
              (0.85, 0.93, 0.98))
OVER_RAMP = ((1.00, 0.96, 0.80), (0.99, 0.82, 0.49), (0.96, 0.55, 0.27), (0.82, 0.20, 0.15),
             (0.45, 0.02, 0.15))


def plan(axis: Axis, points: Any = None, *, step: float = 1.0, ax: Any = None) -> Any:
    """The axis from above, each kind of element in its colour, with surveyed points.

    :param points: east, north and height; shape (..., 3)
    :param step: distance of the vertices that stand for a curve (m)
    """
    ax = _axes(ax)
    lines = axis.polyline(step)
    kinds = [type(e) for e in axis.horizontal] if len(axis.horizontal) == len(lines) else []
    named = set()
    for index, line in enumerate(lines):
        kind = kinds[index] if kinds else Straight
        label = kind.__name__.lower() if kinds and kind not in named else None
        named.add(kind)
        ax.plot(line[:, 0], line[:, 1], color=ELEMENTS[kind], linewidth=1.5, label=label)
    if points is not None:
        array, _ = rows(points, 3, "points")
        ax.plot(array[:, 0], array[:, 1], "o", markersize=3, color=SURVEYED, fillstyle="none",
                label="surveyed")
    ax.set_aspect("equal", adjustable="datalim")
    ax.ticklabel_format(useOffset=False, style="plain")
    return _finished(ax, "East (m)", "North (m)")


def longitudinal(axis: Axis, points: Any = None, *, step: float = 1.0, ax: Any = None) -> Any:
    """Heights along the axis, its points of intersection, and surveyed points at their feet.

    :param points: east, north and height; shape (..., 3); those without a foot are left out
    """
    ax = _axes(ax)
    line = axis.profile_polyline(step)
    ax.plot(line[:, 0], line[:, 1], color=INK, linewidth=1.5, label="axis")
    if axis.vertical:
        grades = np.array([(p.stationing, p.height) for p in axis.vertical])
        ax.plot(grades[:, 0], grades[:, 1], color=GREY, linewidth=0.6, marker="^", markersize=4,
                label="intersections of grades")
    if points is not None:
        array, _ = rows(points, 3, "points")
        ax.plot(axis.to_axis(array)[:, 0], array[:, 2], "o", markersize=3, color=SURVEYED,
                fillstyle="none", label="surveyed")
    return _finished(ax, "Stationing (m)", "Height (m)")


def section(design: Profile, measured: Any = None, comparison: Optional[Comparison] = None, *,
            step: float = 0.05, ax: Any = None) -> Any:
    """A section: the design, the measured points, over and under profile.

    :param measured: the points of the section in order round it; shape (n, 2)
    :param comparison: what `compare` found
    """
    ax = _axes(ax)
    if comparison is not None:
        areas: Sequence[Tuple[Any, ...]] = (
            (comparison.over, OVER, OVER_DARK, f"over {comparison.over_area:.2f} m²"),
            (comparison.under, UNDER, UNDER_DARK, f"under {comparison.under_area:.2f} m²"))
        for outlines, fill, edge, label in areas:
            for index, outline in enumerate(outlines):
                ax.fill(outline[:, 0], outline[:, 1], facecolor=fill, edgecolor=edge,
                        linewidth=0.4, label=label if index == 0 else None)
    line = _closed(design, step)
    ax.plot(line[:, 0], line[:, 1], color=INK, linewidth=1.2, label="design")
    if measured is not None:
        array, _ = rows(measured, 2, "measured")
        ax.plot(array[:, 0], array[:, 1], ".", markersize=2, color=MEASURED, label="measured")
    ax.plot(0, 0, "+", color=GREY, markersize=8)
    ax.set_aspect("equal", adjustable="datalim")
    return _finished(ax, "Right of the axis (m)", "Above the axis (m)")


def developed_map(design: Profile, stationing: Any, derolment: Any, distance: Any, *,
                  cells: Tuple[float, float] = (0.5, 0.25), ax: Any = None) -> Any:
    """The wall rolled out at the crown: the mean distance from the design in each cell.

    :param stationing: of each point, with its `derolment` and `distance` from `Profile.position`;
        those that are not numbers are left out
    :param cells: their length and their width along the wall (m)
    """
    from matplotlib.colors import LinearSegmentedColormap, TwoSlopeNorm

    ax = _axes(ax)
    along, round_, over = (numbers(values, name).reshape(-1) for values, name in (
        (stationing, "stationing"), (derolment, "derolment"), (distance, "distance")))
    known = np.isfinite(along) & np.isfinite(round_) & np.isfinite(over)
    if not known.any():
        raise ValueError("developed_map: no point has a stationing, a derolment and a distance")
    along, round_, over = along[known], round_[known], over[known]
    half = design.circumference / 2
    columns = _edges(float(along.min()), float(along.max()), cells[0])
    bands = _edges(-half, half, cells[1])
    sums, _, _ = np.histogram2d(along, round_, (columns, bands), weights=over)
    counts, _, _ = np.histogram2d(along, round_, (columns, bands))
    means = np.divide(sums, counts, out=np.full_like(sums, np.nan), where=counts > 0)
    limit = max(float(np.nanmax(np.abs(means))), 1e-3)
    colours = LinearSegmentedColormap.from_list("over_and_under", UNDER_RAMP + OVER_RAMP)
    ax.set_facecolor(UNMEASURED)
    mesh = ax.pcolormesh(columns, bands, means.T, cmap=colours,
                         norm=TwoSlopeNorm(0.0, -limit, limit))
    ax.figure.colorbar(mesh, ax=ax, label="Over (+) and under (−) the design (m)")
    ax.axhline(0, color=INK, linewidth=0.5, linestyle="--")
    ax.invert_yaxis()  # the left side is on top, as seen by who looks forward
    ax.set_xlabel("Stationing (m)")
    ax.set_ylabel("Derolment (m)")
    return ax


def transition(morph: Morph, *, count: int = 9, step: float = 0.05, ax: Any = None) -> Any:
    """The profiles at `count` even stationings from one design to the other."""
    if count < 2:
        raise ValueError(f"count: expected two or more, got {count!r}")
    ax = _axes(ax)
    stationings = np.linspace(morph.start_stationing, morph.end_stationing, count)
    ramp = np.array([START, MIDDLE, END])
    for index, stationing in enumerate(stationings):
        share = index / (count - 1)
        colour = [np.interp(share, (0.0, 0.5, 1.0), ramp[:, band]) for band in range(3)]
        line = _closed(morph(float(stationing)), step)
        is_end = index in (0, count - 1)
        ax.plot(line[:, 0], line[:, 1], color=colour, linewidth=1.5 if is_end else 0.6,
                label=f"at {stationing:g}" if is_end else None)
    ax.set_aspect("equal", adjustable="datalim")
    return _finished(ax, "Right of the axis (m)", "Above the axis (m)")


def _axes(ax: Any) -> Any:
    if ax is not None:
        return ax
    from matplotlib import pyplot

    return pyplot.gca()


def _edges(first: float, last: float, width: float) -> Any:
    count = max(1, int(np.ceil((last - first) / width)))
    return first + width * np.arange(count + 1) if last > first else np.array([first, first + width])


def _closed(profile: Profile, step: float) -> Any:
    line = profile.outline(step)
    return np.vstack([line, line[:1]])


def _finished(ax: Any, x: str, y: str) -> Any:
    ax.set_xlabel(x)
    ax.set_ylabel(y)
    ax.grid(True, color=UNMEASURED, linewidth=0.5)
    ax.set_axisbelow(True)
    ax.legend(loc="best", fontsize="small")
    return ax
