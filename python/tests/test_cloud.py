# SPDX-License-Identifier: BSL-1.0
"""Scans in chunks: the same result whoever works on them, in whatever order."""

import os
import random
import signal
import struct
import threading
import time

import numpy as np
import pytest

from hadrel import Arc, Axis, Kink, Profile, Straight, cloud

pytestmark = pytest.mark.filterwarnings("default")  # those of Dask are not ours

DESIGN = Profile([(-5, 0), (-5, 2), (5, 2, 5), (5, 0), (-5, 0)])
SECTIONS = (20.0, 35.0)
OPTIONS = {"sections": SECTIONS, "half_width": 0.2, "bins": (-0.2, 0.0, 0.1, 0.2), "plane": "perpendicular"}


@pytest.fixture(scope="module")
def axis():
    return Axis(horizontal=[Straight(0, 1000, 2000, 0, 30), Arc(30, 1000, 2030, 0, 30, 200)],
                vertical=[Kink(0, 400), Kink(60, 402)])


@pytest.fixture(scope="module")
def scan(axis):
    """Millimetres, as LAS and text hold them without loss."""
    numbers = np.random.default_rng(3)
    turn = numbers.uniform(0, np.pi, 6000)
    radius = 5 + numbers.normal(0.05, 0.1, turn.size)
    places = np.column_stack([numbers.uniform(1, 59, turn.size), radius * np.cos(turn),
                              2 + radius * np.sin(turn)])
    points = np.round(axis.to_grid(places, "perpendicular"), 3)
    points[77] += 1e5
    return points


def las(path, points):
    header = bytearray(375)
    header[:4], header[24], header[25] = b"LASF", 1, 2
    struct.pack_into("<HII", header, 94, 375, 375, 0)
    struct.pack_into("<BHI", header, 104, 1, 28, len(points))
    struct.pack_into("<6d", header, 131, 0.001, 0.001, 0.001, 1000.0, 2000.0, 400.0)
    records = np.zeros(len(points), np.dtype({"names": ["xyz"], "formats": ["(3,)<i4"],
                                              "offsets": [0], "itemsize": 28}))
    records["xyz"] = np.round((points - [1000, 2000, 400]) * 1000)
    path.write_bytes(bytes(header) + records.tobytes())
    return path


def same(a, b):
    for name in ("points", "without_foot", "cells", "count", "sums", "lowest", "highest",
                 "histogram"):
        np.testing.assert_array_equal(getattr(a, name), getattr(b, name), err_msg=name)
    for at in SECTIONS:
        np.testing.assert_array_equal(a.section(at), b.section(at))
    return True


@pytest.fixture(scope="module")
def whole(axis, scan):
    return cloud.survey([scan], axis, DESIGN, read=lambda points: points, **OPTIONS)


def test_cells_and_sections(axis, scan, whole):
    """Before plain numpy over the whole scan."""
    places = axis.to_axis(scan, "perpendicular")
    wall = DESIGN.position(places[:, 1:])
    known = ~np.isnan(wall.distance)
    assert whole.points == len(scan) and whole.without_foot == (~known).sum() > 0
    assert whole.count.sum() == whole.histogram.sum() + (
        (wall.distance[known] < -0.2) | (wall.distance[known] >= 0.2)).sum() == known.sum()
    cell = len(whole.count) // 2
    inside = ((np.abs(places[:, 0] - whole.stationing[cell]) <= 0.25)
              & (np.abs(wall.derolment - whole.derolment[cell]) <= 0.125))
    assert whole.count[cell] == inside.sum() > 0
    assert whole.mean[cell] == pytest.approx(wall.distance[inside].mean(), abs=1e-9)
    assert whole.lowest[cell] == wall.distance[inside].min()
    assert whole.highest[cell] == wall.distance[inside].max()
    near = np.abs(places[:, 0] - 20) <= 0.2
    assert whole.section(20.0).shape == (near.sum(), 2)
    x, y = (whole.section(20.0) - DESIGN.centroid).T
    assert (np.diff(np.arctan2(x, y)) >= 0).all()
    assert whole.compare(20.0).over_area > 0
    with pytest.raises(KeyError, match="21"):
        whole.section(21.0)


@pytest.mark.parametrize("size", [1, 997, 6000])
@pytest.mark.parametrize("kind", ["las", "npy", "xyz", "csv"])
def test_files_in_chunks_of_any_size_and_order(axis, scan, whole, tmp_path, kind, size):
    path = tmp_path / f"scan.{kind}"
    if size == 1:
        scan = scan[:40]
    if kind == "las":
        las(path, scan)
    elif kind == "npy":
        np.save(path, scan)
    elif kind == "xyz":
        np.savetxt(path, scan, "%.3f")
    else:
        rows = (f"P{i},{n:.3f},{e:.3f},{h:.3f}\n" for i, (e, n, h) in enumerate(scan))
        path.write_text("# scanned\nid,north,east,height\n" + "".join(rows))
    chunks = cloud.split(path, size)
    assert len(chunks) >= len(scan) // size // 2
    read = np.concatenate([chunk.read() for chunk in chunks])
    np.testing.assert_allclose(read, scan, atol=1e-9)
    if len(scan) < 6000:
        return
    random.Random(size).shuffle(chunks)
    assert same(cloud.survey(chunks, axis, DESIGN, read=cloud.Chunk.read, **OPTIONS),
                cloud.survey([read], axis, DESIGN, read=lambda points: points, **OPTIONS))


def test_chunks_that_cannot_be_read(axis, scan, tmp_path):
    path = las(tmp_path / "cut.las", scan)
    path.write_bytes(path.read_bytes()[:375 + 28 * 4500])
    with pytest.raises(cloud.ChunkError, match=r"cut.las, byte (112375|140375): the file ends"):
        cloud.survey(path, axis, DESIGN, points=1000, **OPTIONS)
    rest = cloud.survey(path, axis, DESIGN, points=1000, errors="pass", **OPTIONS)
    assert [error.offset for error in rest.unread] == [375 + 28 * 4000, 375 + 28 * 5000]
    complete = [chunk.read() for chunk in cloud.split(path, 1000)[:4]]
    assert same(rest, cloud.survey(complete, axis, DESIGN, read=lambda points: points, **OPTIONS))
    text = tmp_path / "bad.xyz"
    np.savetxt(text, scan[:200], "%.3f")
    text.write_text(text.read_text() + "1000.0 2000.0 x\n")
    with pytest.raises(cloud.ChunkError, match=r"bad.xyz, byte \d+: line \d+"):
        cloud.survey(text, axis, DESIGN, points=50)
    compressed = bytearray(path.read_bytes())
    compressed[104] |= 0x80
    path.write_bytes(compressed)
    with pytest.raises(cloud.ChunkError, match="compressed"):
        cloud.split(path)


@pytest.fixture(scope="module")
def cluster():
    pytest.importorskip("distributed")
    with cloud.local_cluster(2) as running:
        yield running


def test_two_worker_processes(axis, scan, whole, cluster):
    with pytest.raises(ValueError, match="expected one or more"):
        cloud.local_cluster(0)
    chunks = np.array_split(scan, 23)
    random.Random(1).shuffle(chunks)
    found = cloud.survey(chunks, axis, DESIGN, read=lambda points: points,
                         cluster=cluster.scheduler_address, **OPTIONS)
    assert same(found, whole)


def test_a_worker_killed_in_the_middle(axis, scan, whole, cluster):
    from distributed import Client

    with Client(cluster, set_as_default=False) as client:
        process, *_ = client.run(os.getpid).values()
        # What a chunk has taken is kept for the next one.
        assert set(client.run(os.getenv, "MALLOC_TRIM_THRESHOLD_").values()) == {str(1 << 28)}

    def slowly(points):
        import time as clock
        clock.sleep(0.1)
        return points

    killer = threading.Timer(0.6, os.kill, (process, signal.SIGKILL))
    killer.start()
    begin = time.monotonic()
    found = cloud.survey(np.array_split(scan, 30), axis, DESIGN, read=slowly,
                         cluster=cluster.scheduler_address, **OPTIONS)
    assert time.monotonic() - begin > 0.6
    killer.join()
    with pytest.raises(ProcessLookupError):
        os.kill(process, 0)
    assert same(found, whole)
