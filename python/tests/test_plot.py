# SPDX-License-Identifier: BSL-1.0
"""Pictures show what the objects hold, in world coordinates."""

from pathlib import Path

import matplotlib
import numpy as np
import pytest

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402
from matplotlib.colors import to_rgb  # noqa: E402

from hadrel import Axis, Profile, compare, morph, plot  # noqa: E402

DATA = Path(__file__).parents[2] / "examples" / "data"


@pytest.fixture
def ax():
    figure, axes = pyplot.subplots()
    yield axes
    figure.canvas.draw()  # nothing fails as late as that
    pyplot.close(figure)


@pytest.fixture(scope="module")
def metro():
    return Axis.from_landxml(DATA / "metro_th_3122m.xml")


def labels(ax):
    return [text.get_text() for text in ax.get_legend().get_texts()]


def test_axis_from_above_and_from_the_side(ax, metro):
    points = metro.to_grid([[7300, 3, 1], [8000, -3, 1]])
    assert plot.plan(metro, points, ax=ax) is ax
    assert sorted(labels(ax)) == ["arc", "clothoid", "straight", "surveyed"]
    arc = next(line for line in ax.lines if line.get_label() == "arc")
    assert to_rgb(arc.get_color()) == plot.ELEMENTS[type(metro.horizontal[2])]
    np.testing.assert_array_equal(ax.lines[-1].get_xdata(), points[:, 0])
    ax.clear()
    plot.longitudinal(metro, points, ax=ax)
    np.testing.assert_allclose(ax.lines[-1].get_xdata(), [7300, 8000], atol=1e-6)
    np.testing.assert_array_equal(ax.lines[-1].get_ydata(), points[:, 2])


def test_section_with_over_and_under(ax):
    design = Profile([(-4, 0), (-4, 4), (4, 4, 4), (4, 0), (-4, 0)])
    angle = np.linspace(0, 2 * np.pi, 400, endpoint=False)
    measured = (5 + 0.5 * np.sin(5 * angle))[:, None] * np.column_stack(
        [np.cos(angle), np.sin(angle)]) + [0, 3.5]
    found = compare(design, measured)
    plot.section(design, measured, found, ax=ax)
    assert len(ax.patches) == len(found.over) + len(found.under) > 2
    assert f"over {found.over_area:.2f} m²" in labels(ax)
    assert to_rgb(ax.patches[0].get_facecolor()) == pytest.approx(plot.OVER)


def test_developed_map(ax):
    design = Profile([(-5, 0), (5, 0, 5), (-5, 0, 5)])
    stationing = np.array([0.1, 0.2, 0.3, 0.9, np.nan])
    derolment = np.array([0.1, 0.1, 0.1, -3.0, 0.0])
    plot.developed_map(design, stationing, derolment, [0.1, 0.2, 0.3, -0.4, 9.0], ax=ax)
    mesh, = ax.collections
    means = np.ma.masked_invalid(mesh.get_array()).compressed()
    assert sorted(means) == pytest.approx([-0.4, 0.2])
    assert mesh.norm.vmin == -mesh.norm.vmax == pytest.approx(-0.4)
    assert ax.yaxis_inverted()
    with pytest.raises(ValueError, match="no point"):
        plot.developed_map(design, [np.nan], [0], [0], ax=ax)


def test_transition(ax):
    small, large = (Profile([(-r, 0), (r, 0, r), (-r, 0, r)]) for r in (4, 6))
    plot.transition(morph(small, large, 100, 110), count=5, ax=ax)
    assert len(ax.lines) == 5 and labels(ax) == ["at 100", "at 110"]
    radii = [np.hypot(*line.get_xydata().T).mean() for line in ax.lines]
    np.testing.assert_allclose(radii, [4, 4.5, 5, 5.5, 6], atol=1e-6)
