# SPDX-License-Identifier: BSL-1.0
"""Axes and guidance: results of the library, shapes, errors, objects."""

import pickle
import threading
import time
from pathlib import Path

import numpy as np
import pytest

import hadrel
from hadrel import (Arc, ArcRounding, Axis, Cant, Clothoid, GuidanceVector, HadrelError, Kink,
                    ParabolaRounding, Straight, map_between, map_points)


DATA = Path(__file__).parents[2] / "examples" / "data"


def curve():
    """A straight, a clothoid and an arc in national coordinates."""
    straight = Axis(horizontal=[Straight(100, 600000, 200000, 0.3, 80)],
                    vertical=[Kink(100, 0), Kink(180, 0)]).to_grid([180, 0, 0])
    return [Straight(100, 600000, 200000, 0.3, 80),
            Clothoid(180, straight[0], straight[1], 0.3, 60, 0, 400)]


@pytest.fixture(scope="module")
def axis():
    return Axis(horizontal=curve(),
                vertical=[Kink(100, 400), ArcRounding(150, 401, 2000), ParabolaRounding(200, 400, 900),
                          Kink(240, 402)],
                cant=[Cant(100, 240, 2, -4)], tunnelmeter=(120, 1000))


@pytest.mark.parametrize("plane", ["vertical", "perpendicular"])
@pytest.mark.parametrize("cant", [True, False])
def test_there_and_back(axis, plane, cant):
    random = np.random.default_rng(1)
    places = random.uniform([105, -9, -4], [235, 9, 8], (20, 50, 3))
    grid = axis.to_grid(places, plane, cant, errcheck=True)
    assert grid.shape == places.shape
    np.testing.assert_allclose(axis.to_axis(grid, plane=plane, cant=cant), places, atol=2e-9)
    alone = np.array([axis.to_axis(p, plane, cant) for p in grid[3]])
    np.testing.assert_array_equal(alone, axis.to_axis(grid, plane, cant)[3])


def test_known_places():
    straight = Axis(horizontal=[Straight(0, 1000, 2000, np.pi / 2, 300)],
                    vertical=[Kink(0, 50), Kink(300, 62)])
    np.testing.assert_allclose(straight.to_grid([100, 3, 2]), [1100, 1997, 56], atol=1e-9)
    assert straight.tunnelmeter(100) == pytest.approx(100 * np.hypot(1, 0.04), abs=1e-9)
    assert straight.stationing(straight.tunnelmeter(77.0)) == pytest.approx(77, abs=1e-9)
    properties = straight.properties([10.0, 20.0])
    assert properties.azimuth == pytest.approx([np.pi / 2] * 2)
    assert properties.slope_percent == pytest.approx([4, 4])
    right = Axis(horizontal=[Arc(0, 0, 0, 0, 50, radius=100)], vertical=[Kink(0, 0), Kink(50, 0)])
    np.testing.assert_allclose(right.to_axis([100 - 90 * np.cos(0.2), 90 * np.sin(0.2), 1]),
                               [20, 10, 1], atol=1e-9)
    assert right.properties(5.0).radius == 100
    assert right.polyline(1.0)[0].shape[1] == right.profile_polyline(1.0).shape[1] == 2
    assert right.misclosures.tolist() == [[0, 0]]
    assert [line.tolist() for line in right.vertical_polylines(1.0)] == [[[0, 0]], [[50, 0]]]
    np.testing.assert_allclose(straight.tangent(10.0, "perpendicular"),
                               np.array([1, 0, 0.04]) / np.hypot(1, 0.04), atol=1e-15)


def test_blocks_shafts_and_other_axes(axis):
    block = axis.block(120, 150)
    assert map_between(axis, block, 130.0) == pytest.approx(130, abs=0.05)
    assert np.isnan(map_between(axis, block, [130.0, 230.0])).tolist() == [False, True]
    with pytest.raises(HadrelError, match=r"values\[1\]"):
        map_between(axis, block, [130.0, 230.0], errcheck=True)
    with pytest.raises(ValueError, match="100 <= start"):
        axis.block(90, 120)
    points = np.array([[[130.0, 3, 2], [145, -2, 1]], [[125, 0, 0], [230, 0, 0]]])
    for plane, cant in (("vertical", True), ("perpendicular", False)):
        found = map_points(axis, block, points, plane, cant)
        np.testing.assert_array_equal(found[0], block.to_axis(axis.to_grid(points[0], plane, cant), plane,
                                                              cant))
        assert np.isnan(found[1, 1]).all() and not np.isnan(found[1, 0]).any()
    for stationing, reason in ((230, r"points\[1\]: no foot"), (999, r"points\[1\]: stationing")):
        with pytest.raises(HadrelError, match=reason):
            map_points(axis, block, [[130, 0, 0], [stationing, 0, 0]], errcheck=True)
    extent = block.extent
    assert (extent.start - 2, extent.end + 2) == block.range and axis.extent is None
    assert extent.start_tunnelmeter == axis.tunnelmeter(120.0) == block.tunnelmeter(120.0)
    assert extent.length == pytest.approx(extent.end - 120) and extent.length_in_space > extent.length
    assert extent.end_tunnelmeter == pytest.approx(block.tunnelmeter(extent.end), abs=1e-9)
    assert axis.tunnelmeter_origin == (120, 1000)
    shaft = Axis.shaft(east=1000, north=2000, height_start=500, height_end=460)
    assert np.isnan(shaft.to_axis([1000, 2000, 501])).all()
    assert shaft.is_shaft and not block.is_shaft
    assert shaft.tangent([5.0, 50.0]).tolist()[0] == [0, 0, -1]
    for same in (axis, block, shaft):
        assert pickle.loads(pickle.dumps(same)) == same
        assert hash(pickle.loads(pickle.dumps(same))) == hash(same)
    assert axis != block
    with pytest.raises(AttributeError):
        axis.range = (0, 1)


def test_what_is_not_found_and_what_is_wrong(axis):
    points = axis.to_grid([[110, 1, 1], [120, 1, 1]])
    points[1] += 1e6
    assert np.isnan(axis.to_axis(points)).all(axis=1).tolist() == [False, True]
    with pytest.raises(HadrelError, match=r"points\[1\]: no foot"):
        axis.to_axis(points, errcheck=True)
    with pytest.raises(HadrelError, match=r"stationing\[0\]"):
        axis.properties(99.0, errcheck=True)
    assert np.isnan(axis.tunnelmeter(99.0))
    assert axis.to_axis(np.empty((0, 3))).shape == (0, 3)
    wrong = [(lambda: axis.to_axis([1, 2]), ValueError, r"shape \(..., 3\), got \(2,\)"),
             (lambda: axis.to_axis(["a", "b", "c"]), TypeError, "expected numbers"),
             (lambda: axis.to_axis([1, 2, 3], plane="level"), ValueError, "vertical, perpendicular"),
             (lambda: Axis(horizontal=[Kink(0, 0)], vertical=[]), TypeError, r"horizontal\[0\]"),
             (lambda: Axis(horizontal=curve(), vertical=[Kink(0, 0)]), HadrelError, "in common"),
             (lambda: GuidanceVector.straight([1, 2, 3], [0, 0, 0]), ValueError, "direction")]
    for act, kind, message in wrong:
        with pytest.raises(kind, match=message):
            act()


def test_guidance(axis):
    ahead = GuidanceVector.between(axis, [110, 1, 1], [130, 1, 1], cant=True)
    start, target = axis.to_grid([[110, 1, 1], [130, 1, 1]])
    offsets = ahead.offsets(axis, [start, target])
    np.testing.assert_allclose(offsets[:, 1:], 0, atol=1e-9)
    assert offsets[1, 0] == pytest.approx(np.linalg.norm(target - start))
    along = GuidanceVector.parallel([110, 1, 1])
    np.testing.assert_array_equal(np.isnan(along.offsets(axis, [start, start + 1e6])[:, 0]),
                                  [False, True])
    with pytest.raises(HadrelError, match=r"points\[0\]"):
        along.offsets(axis, start + 1e6, errcheck=True)
    np.testing.assert_allclose(offsets[0], 0, atol=1e-9)
    on_vector = ahead.points(axis, [0.0, 5.0, offsets[1, 0]])
    np.testing.assert_allclose(ahead.offsets(axis, on_vector)[:, 0], [0, 5, offsets[1, 0]], atol=1e-9)
    np.testing.assert_allclose(on_vector[[0, 2]], [start, target], atol=1e-9)
    assert np.isnan(along.points(axis, [1e6])).all()
    home = Axis(horizontal=[Straight(0, 0, -10, 0, 50)], vertical=[Kink(0, 0), Kink(50, 0)])
    for vector in (GuidanceVector.parallel([0, 0, 0]), GuidanceVector.straight([0, 0, 0], [1, 0, 0])):
        assert vector.points(home, 10) == pytest.approx([0, 0, 0], abs=1e-12)  # is a point, too
    front, top, side = ahead.angles
    for two in ({"front": front, "top": top}, {"top": top, "side": side}):
        assert GuidanceVector.from_angles(ahead.origin, **two).direction == pytest.approx(
            ahead.direction, abs=1e-9)
    with pytest.raises(ValueError, match="two of the views"):
        GuidanceVector.from_angles([0, 0, 0], front=1.0)
    up = GuidanceVector.in_section([110, 0, 0], 0.0)
    assert up.direction == (0, 0, 1)
    circle = hadrel.Profile([(-5, 0), (5, 0, 5), (-5, 0, 5)])
    assert GuidanceVector.radial(circle, [110, 3, 0]).direction == pytest.approx((0, 1, 0))
    assert pickle.loads(pickle.dumps(up)) == up


def test_two_threads_run_at_once(axis):
    """While one converts a long array, another one begins and ends calls of its own."""
    points = axis.to_grid(np.tile([110.0, 3, 2], (400000, 1)))
    calls = []
    done = threading.Event()

    def convert():
        while not done.is_set():
            begin = time.perf_counter()
            axis.to_axis(points[:1000])
            calls.append((begin, time.perf_counter()))

    thread = threading.Thread(target=convert)
    thread.start()
    begin = time.perf_counter()
    axis.to_axis(points)
    end = time.perf_counter()
    done.set()
    thread.join()
    assert sum(begin < first and last < end for first, last in calls) > 3


def test_landxml(tmp_path):
    path = DATA / "metro_th_3122m.xml"
    metro = Axis.from_landxml(path)
    assert len(metro.horizontal) > 43 and not metro.cant
    printed = np.genfromtxt(DATA / "metro_th_3122m_source_points.csv", delimiter=",", names=True)
    inside = (printed["station"] >= metro.range[0]) & (printed["station"] <= metro.range[1])
    printed = printed[inside & (printed["offset"] == 0)]
    grid = metro.to_grid(np.column_stack([printed["station"], 0 * printed["station"],
                                          printed["height_above_axis"]]), errcheck=True)
    np.testing.assert_allclose(grid[:, 0], printed["east"], atol=2e-3)
    np.testing.assert_allclose(grid[:, 1], printed["north"], atol=2e-3)
    np.testing.assert_allclose(grid[:, 2], printed["height"], atol=2e-3)
    assert metro.tunnelmeter(metro.range[0]) == 0
    again = pickle.loads(pickle.dumps(metro))
    assert again == metro and again.notes == metro.notes
    np.testing.assert_array_equal(again.to_grid(grid * 0 + [7300, 1, 2]),
                                  metro.to_grid(grid * 0 + [7300, 1, 2]))
    broken = tmp_path / "broken.xml"
    broken.write_text(path.read_text().replace("<Spiral", "<Wave", 1).replace("</Spiral>",
                                                                             "</Wave>", 1))
    with pytest.raises(HadrelError, match=r"broken.xml: line \d+: "):
        Axis.from_landxml(broken)
    with pytest.raises(HadrelError, match="none"):
        Axis.from_landxml(path, alignment="none")
