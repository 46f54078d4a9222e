# SPDX-License-Identifier: BSL-1.0
"""What must hold for any axis and any profile, searched for by hypothesis."""

import pickle

import numpy as np
from hypothesis import given, settings
from hypothesis import strategies as st

from hadrel import Arc, Axis, Cant, Clothoid, Kink, Profile, Straight

SETTINGS = settings(max_examples=60, deadline=None, derandomize=True, database=None)


def between(low, high):
    return st.floats(low, high, allow_nan=False)


@st.composite
def axes(draw):
    """Three smooth elements in national coordinates under an even grade."""
    azimuth, length = draw(between(-7, 7)), draw(between(5, 200))
    radius = draw(between(60, 2000)) * draw(st.sampled_from([-1, 1]))
    start = draw(between(-500, 9000))
    horizontal = [Straight(start, 600000, 200000, azimuth, length)]
    for kind in (Clothoid, Arc):
        end = sum(element.length for element in horizontal) + start
        known = Axis(horizontal=horizontal, vertical=[Kink(start, 0), Kink(end, 0)])
        east, north, _ = known.to_grid([known.range[1], 0, 0])
        heading = known.properties(known.range[1]).azimuth
        horizontal.append(Clothoid(end, east, north, heading, length, 0, radius)
                          if kind is Clothoid else Arc(end, east, north, heading, length / 4, radius))
    end = horizontal[-1].stationing + horizontal[-1].length
    rise = draw(between(-0.12, 0.12)) * (end - start)
    return Axis(horizontal=horizontal, vertical=[Kink(start, 400), Kink(end, 400 + rise)],
                cant=[Cant(start, end, draw(between(-8, 8)), draw(between(-8, 8)))])


@SETTINGS
@given(axes(), st.lists(st.tuples(between(0.02, 0.98), between(-12, 12), between(-6, 9)),
                        min_size=1, max_size=20),
       st.sampled_from(["vertical", "perpendicular"]), st.booleans())
def test_grid_and_back(axis, places, plane, cant):
    first, last = axis.range
    points = np.array(places) * [last - first, 1, 1] + [first, 0, 0]
    grid = axis.to_grid(points, plane, cant, errcheck=True)
    np.testing.assert_allclose(axis.to_axis(grid, plane, cant), points, atol=1e-8)
    meters = axis.tunnelmeter(points[:, 0])
    np.testing.assert_allclose(axis.stationing(meters), points[:, 0], atol=1e-8)
    again = pickle.loads(pickle.dumps(axis))
    assert again == axis
    np.testing.assert_array_equal(again.to_grid(points, plane, cant), grid)


@SETTINGS
@given(between(1, 9), between(1, 9), st.lists(between(0.001, 0.999), min_size=1, max_size=20),
       between(-0.9, 5))
def test_derolment_and_back(half_width, height, shares, outside):
    """Points nearer to a vault than to the floor have the derolment of the place below them."""
    vault = Profile([(-half_width, 0), (-half_width, height), (half_width, height, half_width),
                     (half_width, 0), (-half_width, 0)])
    place = (np.array(shares) - 0.5) * half_width * np.pi  # along the vault, from its highest point
    angle = place / half_width
    outwards = np.column_stack([np.sin(angle), np.cos(angle)])
    crown = vault.position([0, height + half_width]).derolment
    assert abs(crown) < 0.1  # derolments count from the highest of samples 0.1 m apart
    on_vault = outwards * half_width + [0, height]
    np.testing.assert_allclose(vault.at(place + crown), on_vault, atol=1e-9)
    radius = half_width + (outside * min(half_width, height) if outside < 0 else outside)
    position = vault.position(outwards * radius + [0, height])
    np.testing.assert_allclose(position.foot, on_vault, atol=1e-9)
    np.testing.assert_allclose(position.distance, radius - half_width, atol=1e-9)
    np.testing.assert_allclose(position.derolment, place + crown, atol=1e-9)
