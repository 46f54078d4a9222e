# SPDX-License-Identifier: BSL-1.0
"""Results equal those of C++ to the bit: the digest's groups of axis conversions, anew from here."""

import csv
import os
import subprocess
from collections import defaultdict
from pathlib import Path

import numpy as np
import pytest

from hadrel import (Arc, ArcRounding, Axis, Cant, Clothoid, Kink, ParabolaRounding, Profile, Straight,
                    compare, coordinates, cut_section, nearest_on_section, paths)

GOLDEN = Path(__file__).parents[2] / "tests" / "golden" / "alignments"
NAMES = ("metro_th_3122m", "rail_ch_2500m", "rail_ch_a50068a", "rail_fr_v1", "rail_it_1030m",
         "road_au_12d_6", "road_au_12d_8", "road_de_roundabout_30m", "tram_fr_san1_com",
         "tram_fr_san1_xd_b02")
PLACES = 40


class Random:
    """splitmix64, as the digest seeds it."""

    def __init__(self, seed):
        self.state = seed

    def uniform(self, low, high):
        mask = 2**64 - 1
        self.state = (self.state + 0x9E3779B97F4A7C15) & mask
        z = self.state
        z = ((z ^ (z >> 30)) * 0xBF58476D1CE4E5B9) & mask
        z = ((z ^ (z >> 27)) * 0x94D049BB133111EB) & mask
        return low + (high - low) * (((z ^ (z >> 31)) >> 11) * 2.0**-53)


def table(path):
    if not path.exists():
        return []
    lines = [line for line in path.read_text().splitlines() if not line.startswith("#")]
    return list(csv.DictReader(lines))


def number(row, column):
    return float(row[column] or 0)


def golden_axis(name):
    horizontal = []
    for row in table(GOLDEN / name / "horizontal.csv"):
        place = [number(row, c) for c in ("start_station", "east", "north", "azimuth", "length")]
        radii = [number(row, c) for c in ("radius_start", "radius_end")]
        horizontal.append({"straight": lambda: Straight(*place), "arc": lambda: Arc(*place, radii[0]),
                           "clothoid": lambda: Clothoid(*place, *radii)}[row["kind"]]())
    vertical = []
    for row in table(GOLDEN / name / "vertical.csv"):
        point = [number(row, "station"), number(row, "height")]
        kind = {"kink": Kink, "arc": ArcRounding}.get(row["kind"], ParabolaRounding)
        vertical.append(kind(*point) if kind is Kink else kind(*point, number(row, "rounding")))
    cant = [Cant(*(number(row, c) for c in ("station_from", "station_to", "slope_from_percent",
                                            "slope_to_percent")))
            for row in table(GOLDEN / name / "transverse_slope.csv")]
    return Axis(horizontal=horizontal, vertical=vertical, cant=cant)


@pytest.fixture(scope="module")
def digest():
    program = os.environ.get("HADREL_DIGEST")
    if not program:
        pytest.skip("HADREL_DIGEST names no program; tools/test-python builds it")
    groups = defaultdict(list)
    for line in subprocess.run([program], check=True, capture_output=True, text=True).stdout.split("\n"):
        group, *numbers = line.split(" ")  # the first number tells how large the others may be
        groups[group].append(tuple(map(float, numbers[1:])))
    return groups


def rounded(values, per_unit=1e4):
    """As std::round does it: halves away from zero."""
    return np.copysign(np.floor(np.abs(values) * per_unit + 0.5), values) / per_unit


def test_axes_to_the_bit(digest):
    random = Random(20080601)
    begin = 0
    for name in NAMES:
        axis = golden_axis(name)
        first, last = axis.range
        places = np.array([[random.uniform(first, last), random.uniform(-12.0, 12.0),
                            random.uniform(-6.0, 6.0)] for _ in range(PLACES)])
        rows = slice(begin, begin + PLACES)
        for way in range(4):
            options = {"plane": ("vertical", "perpendicular")[way & 1], "cant": bool(way & 2)}
            grid = axis.to_grid(places[way::4], **options)
            expected = np.array(digest["axis-to-grid"][rows][way::4])
            assert expected[:, 0].all()
            np.testing.assert_array_equal(grid, expected[:, 1:])
            found = axis.to_axis(rounded(grid), **options)
            expected = np.array(digest["grid-to-axis"][rows][way::4])
            np.testing.assert_array_equal(~np.isnan(found[:, 0]), expected[:, 0] == 1)
            np.testing.assert_array_equal(found[expected[:, 0] == 1],
                                          expected[expected[:, 0] == 1, 1:])
        properties = axis.properties(places[:, 0])
        np.testing.assert_array_equal(properties.radius, [r for _, r in digest["axis-radius"][rows]])
        np.testing.assert_array_equal(
            np.column_stack([properties.azimuth, properties.slope, properties.slope_percent,
                             properties.cant, properties.cant_percent]),
            digest["axis-direction"][rows])
        meters = axis.tunnelmeter(places[:, 0])
        np.testing.assert_array_equal(np.column_stack([meters, axis.stationing(rounded(meters))]),
                                      digest["tunnel-meter"][rows])
        begin += PLACES


def test_angles_to_the_bit(digest):
    random = Random(43)
    a, b, *p = np.array([[random.uniform(-20, 20), random.uniform(0.2, 1.4)]
                         + [random.uniform(-9, 9) for _ in range(3)] for _ in range(150)]).T
    p = np.column_stack(p)
    wraps = [coordinates.wrap(a), coordinates.wrap(a, signed=True), coordinates.gon_to_rad(a)]
    np.testing.assert_array_equal(np.column_stack(wraps), np.array(digest["angle-normalising"])[:, :3])
    np.testing.assert_array_equal(
        np.column_stack([coordinates.percent_to_slope(a), coordinates.slope_to_percent(b)]),
        digest["slope-conversions"])
    polar = coordinates.local_to_polar(p)
    np.testing.assert_array_equal(polar[:, :2], digest["azimuths"])
    turned = [coordinates.local_to_grid(q, station=(1, 2, 3), orientation=angle, scale=1.0001)
              for q, angle in zip(p, a)]
    components = coordinates.to_components(p, azimuth=a, slope=b / 10, cant_percent=a / 4)
    np.testing.assert_array_equal(np.column_stack([polar[:, 2], turned, components]),
                                  digest["rotations"])
    np.testing.assert_allclose(
        coordinates.from_components(components, azimuth=a, slope=b / 10, cant_percent=a / 4), p,
        atol=1e-13)
    places = [coordinates.clothoid(along * 3, radius=100 * r, length=60)[:2] for along, r in zip(a, b)]
    np.testing.assert_array_equal(places, digest["clothoid"])


def round_about(random, count, low, high):
    """Points at any distance in even parts of a turn, which need no sine."""
    turn = np.arange(count) / count
    t = 4 * turn - 1 - np.where(turn < 0.5, 0, 2)
    circle = np.column_stack([(1 - t * t) / (1 + t * t), 2 * t / (1 + t * t)])
    circle[turn >= 0.5] *= -1
    return circle * np.array([[random.uniform(low, high)] for _ in turn])


def test_profiles_to_the_bit(digest):
    random = Random(31)
    rows = table(GOLDEN.parent / "profiles" / "theoretical" / "circle_r2900.csv")
    nodes = [(number(rows[0], "start_x"), number(rows[0], "start_y"))]
    design = Profile(nodes + [[number(row, c) for c in ("end_x", "end_y", "radius")] for row in rows])

    def places(count):
        return np.array([[random.uniform(-8, 8), random.uniform(-3, 11)] for _ in range(count)])

    points = places(40)
    position = design.position(points)
    np.testing.assert_array_equal(position.foot, digest["profile-point"][:40])
    np.testing.assert_array_equal(np.column_stack(position[1:]), digest["profile-distance"][:40])
    np.testing.assert_array_equal(design.offset(points, 0.4), digest["profile-offset"][:40])
    np.testing.assert_array_equal(design.at(points[:, 0]), digest["profile-at-derolment"][:40])
    np.testing.assert_array_equal(design.diameter(points), np.ravel(digest["profile-diameter"][:40]))
    np.testing.assert_array_equal(design.samples(60).ravel(), digest["profile-samples"][0])
    cuts = iter(digest["profile-cuts"])
    for x, y in points:
        assert tuple(design.cut(up=y).ravel()) == next(cuts)
        assert tuple(design.cut(right=x).ravel()) == next(cuts)
    section = round_about(random, 120, 4.9, 6.2) + [0, 4]
    cuts = iter(digest["measured-cuts"])
    for point in places(60):
        for found in (nearest_on_section(section, point, direction="horizontal"),
                      nearest_on_section(section, point, design=design)):
            expected = next(cuts)
            np.testing.assert_array_equal(found, [np.nan] * 2 if expected[0] > 1e30 else expected)
        assert tuple(cut_section(section, up=point[1]).ravel()) == next(cuts)
    found = compare(design, section)
    assert (found.measured_length, found.design_length) == digest["circumferences"][0]


def test_outlines_to_the_bit(digest):
    random = Random(32)

    def outline():
        corners = np.column_stack([round_about(random, 13, 2, 6), np.where(np.arange(13) % 3, 0, -7)])
        return paths.closed(corners, clean=True)

    expected = iter(digest["outlines"])
    for _ in range(8):
        a, b = outline(), outline()
        for found in (paths.intersection(a, b), paths.difference(a, [b]), paths.buffer(a, 0.25),
                      paths.clip_lines(a, b)):
            for points in found:
                np.testing.assert_array_equal(points.ravel(), next(expected))
            assert (paths.area(found), paths.length(found)) == next(expected)
    assert next(expected, None) is None
