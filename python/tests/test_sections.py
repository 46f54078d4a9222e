# SPDX-License-Identifier: BSL-1.0
"""Profiles, comparison, morphing, fits and stations."""

import pickle
from pathlib import Path

import numpy as np
import pytest

from hadrel import (Filters, Geology, HadrelError, Profile, Wedge, compare, coordinates, cut_section,
                    fit_circle, fit_ellipse, identify, morph, nearest_on_section, paths, resect)


DATA = Path(__file__).parents[2] / "examples" / "data"


def circle(radius):
    return Profile([(-radius, 0), (radius, 0, radius), (-radius, 0, radius)])


def ring(radius, count=720):
    angle = np.linspace(0, 2 * np.pi, count, endpoint=False)
    return radius * np.column_stack([np.cos(angle), np.sin(angle)])


def test_position():
    tunnel = circle(5)
    points = np.stack([ring(5.5, 40), ring(4, 40)])
    position = tunnel.position(points)
    assert position.foot.shape == (2, 40, 2) and position.derolment.shape == (2, 40)
    np.testing.assert_allclose(position.distance, [[0.5] * 40, [-1] * 40], atol=1e-9)
    np.testing.assert_allclose(tunnel.at(position.derolment), position.foot, atol=1e-9)
    assert tunnel.position([0, 6]).derolment == pytest.approx(0, abs=1e-6)
    assert tunnel.position([6, 0]).derolment == pytest.approx(5 * np.pi / 2)
    assert tunnel.circumference == pytest.approx(10 * np.pi)
    assert tunnel.area == pytest.approx(25 * np.pi, abs=1e-12)
    np.testing.assert_allclose(np.hypot(*tunnel.outline(0.1).T), 5)
    assert np.isnan(tunnel.position([[0, 6], [np.nan, 0]]).distance).tolist() == [False, True]
    with pytest.raises(HadrelError, match=r"points\[1\]"):
        tunnel.position([[0, 6], [np.nan, 0]], errcheck=True)
    through_origin = Profile([(0, 0), (0, 2), (2, 2), (0, 0)])
    assert through_origin.position([0, 0]).distance == 0
    assert pickle.loads(pickle.dumps(tunnel)) == tunnel != circle(6)


def polygon_area(points):
    x, y = np.asarray(points).T
    return abs(np.dot(x, np.roll(y, -1)) - np.dot(y, np.roll(x, -1))) / 2


def test_comparison():
    """Areas of true arcs, though the measured outline is thinned by 0.14 mm at most."""
    over = compare(circle(5), ring(5.2))
    assert over.design_area == pytest.approx(25 * np.pi, abs=2e-5)
    assert over.measured_area == pytest.approx(polygon_area(ring(5.2)), abs=5e-4)
    assert over.over_area == pytest.approx(over.measured_area - over.design_area, abs=1e-6)
    assert over.over_area == pytest.approx(np.pi * (5.2**2 - 25), abs=2e-3)
    assert over.under_area == 0 and over.under == ()
    assert np.isnan(over.geological_area) and over.geological == ()
    coarse = ring(5.2, 60)
    assert compare(circle(5), coarse).measured_area == pytest.approx(polygon_area(coarse), abs=2e-4)
    lower = compare(circle(5), coarse, filters=Filters(above=0.0))
    right = compare(circle(5), coarse, filters=Filters(left_of=0.0))
    whole = compare(circle(5), coarse)
    assert lower.over_area == pytest.approx(whole.over_area / 2, abs=1e-3)
    assert right.over_area == pytest.approx(whole.over_area / 2, abs=1e-3)
    quarter = Filters(wedges=(Wedge(0, np.pi / 2, (0, 0)),))
    assert compare(circle(5), coarse, filters=quarter).over_area == pytest.approx(
        0.75 * whole.over_area, abs=1e-3)
    beyond = compare(circle(5), ring(5.2), geology=Geology(0.1, method="beyond"))
    assert beyond.geological_area == pytest.approx(polygon_area(ring(5.2)) - np.pi * 5.1**2, abs=5e-4)
    assert len(beyond.remaining) > 0 and beyond.remaining[0].shape[1] == 2
    assert np.abs(np.vstack(beyond.remaining)).max() < 5.3  # in profile coordinates again
    assert compare(ring(5), ring(4.8)).under_area == pytest.approx(
        polygon_area(ring(5)) - polygon_area(ring(4.8)), abs=2e-4)
    with pytest.raises(ValueError, match="band, between, beyond"):
        compare(circle(5), ring(5), geology=Geology(0.1, method="all"))
    with pytest.raises(ValueError, match=r"measured\[1\]"):
        compare(circle(5), [(0, 0), (np.nan, 1), (2, 2)])


def test_area_counts_arcs_as_such():
    """A rectangle with a segment of a circle on top, and one cut out of its floor."""
    chord, radius = 8.0, 5.0
    angle = 2 * np.arcsin(chord / 2 / radius)
    cap = radius**2 * (angle - np.sin(angle)) / 2
    vault = Profile([(-4, 0), (-4, 3), (4, 3, radius), (4, 0), (-4, 0)])
    assert vault.area == pytest.approx(24 + cap, abs=1e-12)
    raised = Profile([(-4, 0), (-4, 3), (4, 3, radius), (4, 0), (-4, 0, -radius)])
    assert raised.area == pytest.approx(24, abs=1e-12)


def test_profiles_from_files(tmp_path):
    lining = Profile.from_csv(DATA / "lining_5800_design.csv")
    assert lining.area == pytest.approx(np.pi * 2.9**2, abs=1e-12)
    assert lining == Profile([(-2.9, 0), (0, 2.9, 2.9), (2.9, 0, 2.9), (0, -2.9, 2.9),
                              (-2.9, 0, 2.9)])
    german = tmp_path / "kreis.csv"
    german.write_text("start_x;start_y;end_x;end_y;radius\n-2,9;0;2,9;0;2,9\n2,9;0;-2,9;0;2,9\n")
    assert Profile.from_csv(german).area == pytest.approx(lining.area)
    open_ = tmp_path / "open.csv"
    open_.write_text("start_x,start_y,end_x,end_y,radius\n0,0,0,2,0\n0,2,2,2,0\n")
    with pytest.raises(HadrelError, match="open.csv: line 3: the profile does not close"):
        Profile.from_csv(open_)


def test_morph():
    between = morph(circle(4), circle(6), 100, 110)
    np.testing.assert_allclose(np.hypot(*between(105).outline(0.2).T), 5, atol=1e-6)
    assert pickle.loads(pickle.dumps(between)) == between
    with pytest.raises(ValueError, match="atStationing is out of range"):
        between(111)
    with pytest.raises(ValueError, match="start_stationing < end"):
        morph(circle(4), circle(6), 110, 100)


@pytest.mark.parametrize("nodes, message", [
    ([(0, 0), (1, 0)], "lead back"), ([(0, 0), (1, 0), (1, 1)], "lead back"),
    ([(0, 0), (9, 0, 2), (0, 0)], "shorter"), ([(0, 0), (np.nan, 0), (0, 0)], r"nodes\[1\]")])
def test_profiles_that_are_none(nodes, message):
    with pytest.raises(ValueError, match=message):
        Profile(nodes)


def test_fits():
    points = ring(5, 60) + [600000, 200000]
    for method in ("landau", "kasa"):
        found = fit_circle(points, method=method)
        assert found.centre == pytest.approx((600000, 200000), abs=1e-8)
        assert found.radius == pytest.approx(5, abs=1e-8)
    outlier = np.vstack([ring(1, 60) * [6, 4], [[9, 9]]])
    ellipse = fit_ellipse(outlier)
    assert ellipse.semi_axes == pytest.approx((6, 4), abs=1e-6)
    assert ellipse.used.tolist() == [True] * 60 + [False]
    for fit in (fit_circle, fit_ellipse):
        with pytest.raises(HadrelError, match="determine no"):
            fit([(0, 0), (1, 1), (2, 2)])


FIX_POINTS = {"a": (10, 20, 5), "b": (40, -10, 8), "c": (-20, 30, 1), "d": (25, 55, 9),
              "e": (-31, -18, 4)}


def sights(station, orientation):
    """Directions and distances to the fix points, by ids of the measurer's own."""
    for name, point in FIX_POINTS.items():
        east, north, up = np.subtract(point, station)
        flat = np.hypot(east, north)
        yield "m" + name, (np.arctan2(east, north) - orientation, np.arctan2(flat, up),
                           np.hypot(flat, up))


@pytest.mark.parametrize("method", ["space", "plan"])
def test_stations(method, capfd):
    named = [(name[1:], sight) for name, sight in sights((3, 4, 5), 0.7)]
    found = resect(FIX_POINTS, named, method=method)
    assert found.station == pytest.approx((3, 4, 5), abs=1e-8)
    assert found.orientation == pytest.approx(0.7, abs=1e-9)
    assert found.scale == pytest.approx(1, abs=1e-9)
    measured, points = np.array([sight for _, sight in named]), np.array(list(FIX_POINTS.values()))
    np.testing.assert_allclose(found.to_grid(measured), points, atol=1e-8)
    local = coordinates.polar_to_local(measured)
    np.testing.assert_allclose(found.to_grid(local, kind="local"), points, atol=1e-8)
    assert (found.tilt_about_east is None) == (found.residuals is None) == (method == "plan")
    again = pickle.loads(pickle.dumps(found))
    assert again == found
    np.testing.assert_array_equal(again.to_polar(points[None]), found.to_polar(points)[None])
    with pytest.raises(HadrelError, match="three sights"):
        resect(FIX_POINTS, named[:2], method=method)
    assert capfd.readouterr() == ("", "")


def test_tilted_station():
    """The zero direction dips by 0.02, then the right side rises by 0.03; one target was moved."""
    def turned(local):
        about_east = coordinates.rotate(local, -0.02, about="east")
        about_north = coordinates.rotate(about_east, -0.03, about="north")
        return coordinates.rotate(about_north, -0.7) + (3, 4, 5)

    local = np.random.default_rng(5).uniform(-40, 40, (6, 3))
    points = turned(local)
    sights = [(str(i), sight) for i, sight in enumerate(coordinates.local_to_polar(local))]
    found = resect({str(i): point for i, point in enumerate(points)}, sights + sights[:1])
    assert (found.tilt_about_east, found.tilt_about_north) == pytest.approx((0.02, 0.03), abs=1e-9)
    assert found.orientation == pytest.approx(0.7, abs=1e-9)
    np.testing.assert_allclose(found.to_grid(coordinates.local_to_polar(local)), points, atol=1e-8)
    back = coordinates.polar_to_local(found.to_polar(points.reshape(2, 3, 3)))
    np.testing.assert_allclose(back, local.reshape(2, 3, 3), atol=1e-8)
    moved = resect({str(i): p + [0, 0, 0.01 * (i == 2)] for i, p in enumerate(points)},
                   sights + sights[:1])
    assert {name: len(rows) for name, rows in moved.residuals.items()} == {
        "0": 2, "1": 1, "2": 1, "3": 1, "4": 1, "5": 1}
    np.testing.assert_array_equal(moved.residuals["2"][0],
                                  moved.to_grid(sights[2][1]) - (points[2] + [0, 0, 0.01]))
    assert moved.residuals["2"][0, 2] < -0.002 and moved != found


def test_what_else_a_profile_tells():
    tunnel = circle(5)
    np.testing.assert_allclose(tunnel.offset(ring(3, 8), 0.5), ring(5.5, 8), atol=1e-9)
    assert tunnel.offset([5.0, 0.0], -5.0) == pytest.approx([0, 0], abs=1e-9)
    assert np.isnan(tunnel.offset([np.nan, 0], 1)).all() and np.isnan(tunnel.diameter([np.nan, 0]))
    assert tunnel.diameter([0, 6]) == pytest.approx(10)
    assert np.sort(tunnel.cut(up=3)[:, 0]) == pytest.approx([-4, 4])
    assert np.sort(tunnel.cut(right=-4)[:, 1]) == pytest.approx([-3, 3])
    np.testing.assert_allclose(np.hypot(*tunnel.samples(7).T), 5)
    assert tunnel.samples(7).shape == (7, 2) and len(tunnel.vertices) == 2 and tunnel.is_clockwise
    section = ring(5.2, 4)  # a square on its corner
    radial = nearest_on_section(section, [[0.0, 6.0], [np.nan, 0]], design=tunnel)
    np.testing.assert_allclose(radial, [[0, 5.2], [np.nan, np.nan]], atol=1e-9)
    with pytest.raises(HadrelError, match=r"points\[1\]: the line misses"):
        nearest_on_section(section, [[0, 1], [0, 9]], direction="horizontal", errcheck=True)
    right = Filters(left_of=0.0)
    assert cut_section(section, up=1.2)[:, 0] == pytest.approx([4, -4])
    assert cut_section(section, right=-1.2).shape == (2, 2) and right.excludes([-1, 0])
    assert not Filters().excludes([[1e6, 0]]).any()
    half = compare(tunnel, section, filters=right)
    assert half.design_length == pytest.approx(5 * np.pi, abs=2e-3)
    assert half.measured_length == pytest.approx(2 * 5.2 * np.sqrt(2), abs=2e-3)
    assert sum(map(paths.length, half.measured_lines)) == pytest.approx(half.measured_length, abs=2e-4)
    for wrong in ({}, {"up": 1, "right": 1}):
        with pytest.raises(ValueError, match="either up or right"):
            tunnel.cut(**wrong)


def test_paths():
    square = [(1, 1), (5, 1), (5, 5), (1, 5)]
    hole = np.array([(2, 2), (2, 4), (4, 4), (4, 2)])
    framed = [square, hole]
    assert paths.area(framed) == 12 == paths.area([np.array(line) - 7 for line in framed])
    assert paths.area(circle(5)) == pytest.approx(-25 * np.pi, rel=1e-3)
    assert paths.contains(framed, [[1.5, 3], [3, 3], [1, 3], [np.nan, 3]]).tolist() == [True] + [False] * 3
    assert paths.length(paths.closed(square)) == 16 and paths.length(square) == 12
    assert paths.length_within(square, [[(3, 0), (9, 0), (9, 9), (3, 9)]]) == pytest.approx(8, abs=1e-3)
    grown, = paths.buffer(square, 1)
    assert paths.area(grown) == pytest.approx(32 + np.pi, abs=1e-3)
    assert paths.buffer(square, -3) == () == paths.buffer_lines(square, -1) == paths.intersection([], square)
    band, = paths.buffer_lines([(1, 1), (9, 1)], 0.5)
    assert paths.area(band) == pytest.approx(8)
    assert sum(map(paths.area, paths.without_holes(framed))) == pytest.approx(12, abs=1e-3)
    assert paths.simplify([(0, 0), (1, 0.0001), (2, 0), (3, 0)], 0.01).tolist() == [[0, 0], [3, 0]]
    crossings = paths.first_crossing(square, [[3, 9], [9, 9]], [[3, 8], [9, 8]])
    np.testing.assert_array_equal(crossings, [[3, 1], [np.nan, np.nan]])
    for act, message in [(lambda: paths.area([(0, 0), (np.inf, 1)]), r"outlines\[1\]"),
                         (lambda: paths.area([square, [(1, 2, 3, 4)]]), r"outlines\[1\]: expected shape"),
                         (lambda: paths.buffer(square, np.nan), "distance")]:
        with pytest.raises(ValueError, match=message):
            act()


def test_identification():
    measured = dict(sights((3, 4, 5), 0.7))
    measured["stray"] = (1.0, 1.5, 12.0)
    found = identify(FIX_POINTS, measured)
    assert found.matches == {"m" + name: name for name in FIX_POINTS}
    assert found.significant and found.expected_by_chance < 0.01
    assert identify(FIX_POINTS, measured, robust=False) is None
    with pytest.raises(ValueError, match="expected 3 numbers"):
        identify(FIX_POINTS, {"m": (1, 2)})
