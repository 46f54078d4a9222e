# SPDX-License-Identifier: BSL-1.0
"""Scans of any size: chunks are worked on by Dask, and what they find merges in any order.

Sums are whole nanometres and points of sections are sorted, so the result is the same to the bit
however many threads or machines took part, and in whatever order they were done.

>>> import numpy as np, tempfile, pathlib
>>> from hadrel import Axis, Kink, Profile, Straight, cloud
>>> axis = Axis(horizontal=[Straight(0, 0, 0, azimuth=0, length=50)],
...             vertical=[Kink(0, 10), Kink(50, 10)])
>>> design = Profile([(-5, 0), (5, 0, 5), (-5, 0, 5)])
>>> path = pathlib.Path(tempfile.mkdtemp()) / "scan.npy"
>>> np.save(path, axis.to_grid([[20.1, 0, 5.25], [20.2, 0, 5.75]]))
>>> found = cloud.survey(path, axis, design)
>>> found.points, found.mean.tolist()
(2, [0.5])
"""

import re
import struct
from dataclasses import dataclass
from os import PathLike
from pathlib import Path
from typing import Any, Callable, Iterable, List, Optional, Sequence, Tuple, Union

import numpy as np
import numpy.typing as npt

from . import _native
from ._arrays import Floats, is_perpendicular, numbers
from ._axis import Axis
from ._profile import Comparison, Filters, Geology, Profile, compare

Whole = npt.NDArray[np.int64]
_Path = Union[str, "PathLike[str]"]

_NANOMETRES = 1e9
_FARTHEST = 1000.0  # from the design (m); the sums of 9e6 points at that distance fit into a cell
_BYTES_OF_TEXT_POINT = 32
_MOST_HEADINGS = 100
_NUMBER = re.compile(rb"[-+]?[0-9]+\.?[0-9]*([eE][-+]?[0-9]+)?")


class ChunkError(OSError):
    """A piece of a file that cannot be read.

    :param offset: of the byte where it begins
    """

    def __init__(self, path: str, offset: int, reason: str) -> None:
        super().__init__(f"{path}, byte {offset}: {reason}")
        self.path, self.offset, self.reason = path, offset, reason

    def __reduce__(self) -> Tuple[Any, ...]:
        return ChunkError, (self.path, self.offset, self.reason)


@dataclass(frozen=True)
class Chunk:
    """A piece of a scan: points of a LAS or numpy file, or bytes of a text."""

    path: str
    kind: str
    offset: int  # of its first byte
    count: int  # points; of a text bytes
    stride: int = 0
    scale: Tuple[float, ...] = ()
    origin: Tuple[float, ...] = ()

    def read(self) -> Floats:
        """East, north and height; shape (n, 3)."""
        try:
            return _READERS[self.kind](self)
        except (OSError, ValueError) as reason:
            raise ChunkError(self.path, self.offset, str(reason)) from None


def split(path: _Path, points: int = 500_000) -> List[Chunk]:
    """The chunks of a scan, of so many points each: LAS 1.0 to 1.4, numpy (n, 3), or xyz text."""
    if points < 1:
        raise ValueError(f"points: expected one or more, got {points!r}")
    file = Path(path)
    with file.open("rb") as stream:
        signature = stream.read(8)
    if signature[:4] == b"LASF":
        return _las_chunks(file, points)
    if signature[:6] == b"\x93NUMPY":
        return _numpy_chunks(file, points)
    size, step = file.stat().st_size, points * _BYTES_OF_TEXT_POINT
    return [Chunk(str(file), "text", at, min(step, size - at)) for at in range(0, size, step)]


def _las_chunks(file: Path, points: int) -> List[Chunk]:
    with file.open("rb") as stream:
        header = stream.read(375)
    if len(header) < 227:
        raise ChunkError(str(file), 0, "the header of the LAS file is cut off")
    start, = struct.unpack_from("<I", header, 96)
    form, stride = struct.unpack_from("<BH", header, 104)
    total, = struct.unpack_from("<I", header, 107)
    if header[25] >= 4 and len(header) >= 255:
        total = struct.unpack_from("<Q", header, 247)[0] or total
    if form & 0xC0:
        raise ChunkError(str(file), 104, "compressed LAS cannot be read")
    if stride < 20:
        raise ChunkError(str(file), 105, f"points of {stride} bytes are too short")
    scale, origin = struct.unpack_from("<3d", header, 131), struct.unpack_from("<3d", header, 155)
    return [Chunk(str(file), "las", start + first * stride, min(points, total - first), stride,
                  scale, origin) for first in range(0, total, points)]


def _numpy_chunks(file: Path, points: int) -> List[Chunk]:
    array = np.load(file, mmap_mode="r", allow_pickle=False)
    if array.ndim != 2 or array.shape[1] != 3 or array.dtype != np.float64:
        raise ChunkError(str(file), 0, f"expected (n, 3) doubles, got {array.shape} {array.dtype}")
    if not array.flags.c_contiguous:
        raise ChunkError(str(file), 0, "expected rows of points, got columns")
    start = int(array.offset)
    return [Chunk(str(file), "numpy", start + 24 * first, min(points, len(array) - first), 24)
            for first in range(0, len(array), points)]


def _mapped(chunk: Chunk, kind: Any) -> Any:
    """The records of a chunk in the file's own memory."""
    size = Path(chunk.path).stat().st_size
    if size < chunk.offset + chunk.count * chunk.stride:
        raise ValueError(f"the file ends at byte {size}, inside the chunk")
    return np.memmap(chunk.path, kind, "r", chunk.offset, (chunk.count,))


def _read_las(chunk: Chunk) -> Floats:
    raw = _mapped(chunk, np.dtype({"names": ["xyz"], "formats": ["(3,)<i4"], "offsets": [0],
                                   "itemsize": chunk.stride}))
    return np.asarray(raw["xyz"] * np.array(chunk.scale) + np.array(chunk.origin))


def _read_numpy(chunk: Chunk) -> Floats:
    return np.array(_mapped(chunk, np.dtype("(3,)f8")), dtype=np.float64)


def _read_text(chunk: Chunk) -> Floats:
    """The lines that begin in the chunk, below the headings of the file."""
    with open(chunk.path, "rb") as stream:
        stream.seek(max(chunk.offset - 1, 0))
        if chunk.offset > 0:
            stream.readline()  # that line began in the chunk before
        end = chunk.offset + chunk.count
        lines = stream.read(max(end - stream.tell(), 0))
        if lines and not lines.endswith(b"\n"):
            lines += stream.readline()
    if not lines.strip():
        return np.empty((0, 3))
    headings = b"" if chunk.offset == 0 else _headings(chunk.path)
    return _native.read_scan(headings + lines)


def _headings(path: str) -> bytes:
    """The lines above the first point: the first one with three numbers."""
    found: List[bytes] = []
    with open(path, "rb") as stream:
        for line in stream:
            cells = re.split(rb"[\s,;|]+", line)
            if sum(_NUMBER.fullmatch(cell) is not None for cell in cells) >= 3:
                return b"".join(found)
            found.append(line)
            if len(found) == _MOST_HEADINGS:
                break
    raise ValueError(f"no point in the first {len(found)} lines")


_READERS: "dict[str, Callable[[Chunk], Floats]]" = {
    "las": _read_las, "numpy": _read_numpy, "text": _read_text}


@dataclass(frozen=True, eq=False)
class Survey:
    """What a scan tells about a tunnel. Cells are those that have points, in ascending order.

    :param points: how many were read; `without_foot` of them have none on axis or design, or lie
        farther than a kilometre from it
    :param cells: row along the axis and column round the wall of each cell; shape (n, 2)
    :param stationing: of the middle of each cell, with its `derolment`
    :param count: points in each cell
    :param mean: distance from the design, positive outside, with `lowest` and `highest`
    :param histogram: points by distance, for `bins`; shape (n, len(bins) - 1)
    :param unread: chunks that could not be read, where they were to be passed over
    """

    design: Profile
    size: Tuple[float, float]
    start: float
    points: int
    without_foot: int
    cells: Whole
    count: Whole
    sums: Whole  # nanometres
    lowest: Floats
    highest: Floats
    histogram: Whole
    _sections: Tuple[Tuple[float, Floats], ...] = ()  # those without points too
    unread: Tuple[ChunkError, ...] = ()

    @property
    def mean(self) -> Floats:
        return np.asarray(self.sums / self.count / _NANOMETRES)

    @property
    def stationing(self) -> Floats:
        return np.asarray(self.start + self.size[0] * (self.cells[:, 0] + 0.5))

    @property
    def derolment(self) -> Floats:
        half = self.design.circumference / 2
        return np.asarray(self.size[1] * (self.cells[:, 1] + 0.5) - half)

    @property
    def sections(self) -> Tuple[float, ...]:
        """The stationings asked for at which there are three points or more, ascending."""
        return tuple(asked for asked, points in self._sections if len(points) >= 3)

    def section(self, stationing: float) -> Floats:
        """The points near one of the sections asked for, in order round the design; (n, 2)."""
        for asked, points in self._sections:
            if asked == stationing:
                return points
        raise KeyError(f"no section at {stationing!r} was asked for")

    def compare(self, stationing: float, *, filters: Optional[Filters] = None,
                geology: Optional[Geology] = None) -> Comparison:
        """Over and under profile of a section."""
        return compare(self.design, self.section(stationing), filters=filters, geology=geology)


@dataclass(frozen=True)
class _Job:
    """What every chunk is asked."""

    axis: Axis
    design: Profile
    perpendicular: bool
    size: Tuple[float, float]
    start: float
    bins: Tuple[float, ...]
    sections: Tuple[float, ...]
    half_width: float
    passes_over: bool


@dataclass(frozen=True, eq=False)
class _Part:
    """What some chunks tell: cells sorted by key, and points near the sections."""

    points: int
    without_foot: int
    keys: Whole
    count: Whole
    sums: Whole
    lowest: Floats
    highest: Floats
    histogram: Whole
    near: Floats  # place of the section in the list, offset, height
    unread: Tuple[ChunkError, ...]


_COLUMNS = 1 << 20  # more than any wall has


def _part(chunk: Any, read: Callable[[Any], Any], job: _Job) -> _Part:
    try:
        points = numbers(read(chunk), "chunk")
    except ChunkError as error:
        if not job.passes_over:
            raise
        return _reduced(job, _empty(job, (error,)))
    plane = "perpendicular" if job.perpendicular else "vertical"
    places = job.axis.to_axis(points, plane)
    wall = job.design.position(places[:, 1:])
    known = np.isfinite(wall.distance) & (np.abs(wall.distance) <= _FARTHEST)
    places, over, round_ = places[known], wall.distance[known], wall.derolment[known]
    row = np.floor((places[:, 0] - job.start) / job.size[0]).astype(np.int64)
    column = np.floor((round_ + job.design.circumference / 2) / job.size[1]).astype(np.int64)
    bins = np.zeros((len(over), max(len(job.bins) - 1, 0)), dtype=np.int64)
    if bins.shape[1]:
        place = np.searchsorted(job.bins, over, side="right") - 1
        inside = (place >= 0) & (place < bins.shape[1])
        bins[np.flatnonzero(inside), place[inside]] = 1
    near = _near(places, job)
    whole = np.rint(over * _NANOMETRES).astype(np.int64)
    return _reduced(job, _Part(len(points), int(len(points) - known.sum()), row * _COLUMNS + column,
                               np.ones(len(over), dtype=np.int64), whole, over, over, bins, near, ()))


def _empty(job: _Job, unread: Tuple[ChunkError, ...] = ()) -> _Part:
    whole, none = np.empty(0, dtype=np.int64), np.empty(0)
    return _Part(0, 0, whole, whole, whole, none, none,
                 np.empty((0, max(len(job.bins) - 1, 0)), dtype=np.int64),
                 np.empty((0, 3)), unread)


def _near(places: Floats, job: _Job) -> Floats:
    """Points go to the nearest section, if that is near enough; of two, to the first."""
    if not job.sections:
        return np.empty((0, 3))
    sections, along = np.array(job.sections), places[:, 0]
    above = np.clip(np.searchsorted(sections, along), 0, len(sections) - 1)
    below = np.maximum(above - 1, 0)
    nearest = np.where(along - sections[below] <= sections[above] - along, below, above)
    inside = np.abs(along - sections[nearest]) <= job.half_width
    return np.column_stack([nearest[inside], places[inside, 1:]])


def _reduced(job: _Job, part: _Part) -> _Part:
    """Each cell once."""
    if len(part.keys) == 0:
        return part
    order = np.argsort(part.keys, kind="stable")
    keys = part.keys[order]
    first = np.flatnonzero(np.concatenate([[True], keys[1:] != keys[:-1]]))
    return _Part(part.points, part.without_foot, keys[first],
                 np.add.reduceat(part.count[order], first),
                 np.add.reduceat(part.sums[order], first),
                 np.minimum.reduceat(part.lowest[order], first),
                 np.maximum.reduceat(part.highest[order], first),
                 np.add.reduceat(part.histogram[order], first, axis=0), part.near, part.unread)


def _merged(parts: Sequence[_Part], job: _Job) -> _Part:
    def all_of(name: str) -> Any:
        return np.concatenate([getattr(part, name) for part in parts])

    return _reduced(job, _Part(
        sum(part.points for part in parts), sum(part.without_foot for part in parts),
        all_of("keys"), all_of("count"), all_of("sums"), all_of("lowest"), all_of("highest"),
        all_of("histogram"), all_of("near"), tuple(error for part in parts for error in part.unread)))


def _round_the_wall(points: Floats, design: Profile) -> Floats:
    """Clockwise round the design; those of one bearing by their coordinates: the order is one."""
    x, y = (points - np.array(design.centroid)).T
    return np.asarray(points[np.lexsort((y, x, np.arctan2(x, y)))])


_FAN_IN = 8

# Workers return memory to the system after every task unless told otherwise, and a sixth of their
# time goes into having it back for the next chunk. Ticks tell how busy the event loop is.
_WORKER_SETTINGS = {
    "distributed.nanny.pre-spawn-environ.MALLOC_TRIM_THRESHOLD_": 1 << 28,
    "distributed.nanny.pre-spawn-environ.MALLOC_MMAP_THRESHOLD_": 1 << 28,
    "distributed.admin.tick.interval": "1s",
}


def local_cluster(workers: int) -> Any:
    """A `distributed.LocalCluster` of so many processes with one thread each, until it is closed.

    They keep the memory of a chunk for the next one, which Dask's own settings do not.

    :param workers: one or more
    :returns: a context manager, whose `scheduler_address` is what `survey` wants as `cluster`
    :raises ValueError: for fewer, on which a survey would wait for ever
    """
    import dask
    from distributed import LocalCluster

    if workers < 1:
        raise ValueError(f"workers: expected one or more, got {workers!r}")
    with dask.config.set(_WORKER_SETTINGS):
        return LocalCluster(n_workers=workers, threads_per_worker=1, processes=True,
                            dashboard_address=None)


def survey(source: Any, axis: Axis, design: Profile, *, plane: str = "vertical",
           cells: Tuple[float, float] = (0.5, 0.25), bins: Sequence[float] = (),
           sections: Sequence[float] = (), half_width: float = 0.05,
           read: Optional[Callable[[Any], Any]] = None, points: int = 500_000,
           errors: str = "raise", cluster: Optional[str] = None, progress: bool = False) -> Survey:
    """Deviations of a scan of any size from a design along an axis, with sections of it.

    :param source: a path, several paths, or chunks of the caller's own for `read`
    :param cells: length along the axis and width round the wall of the map's cells (m)
    :param bins: ascending limits of the histogram of distances in each cell
    :param sections: stationings; points within `half_width` of the nearest one make a section
    :param read: from one of the chunks in `source` to its points, shape (n, 3); it raises
        `ChunkError` where it cannot
    :param points: in a chunk, of those made here
    :param errors: "raise" for the first chunk that cannot be read, or "pass" to go on without it
    :param cluster: address of a scheduler of Dask, of `local_cluster` or one that runs already; by
        default threads of this process do the work
    :param progress: show a bar
    :raises ChunkError: with the file and the byte
    """
    import dask

    if errors not in ("raise", "pass"):
        raise ValueError(f"errors: expected raise or pass, got {errors!r}")
    if not (min(cells) > 0 and half_width > 0):
        raise ValueError("cells and half_width: expected positive lengths")
    job = _Job(axis, design, is_perpendicular(plane), (float(cells[0]), float(cells[1])),
               axis.range[0], tuple(map(float, bins)), tuple(sorted(map(float, sections))),
               float(half_width), errors == "pass")
    chunks = _chunks_of(source, points) if read is None else list(source)
    reader = read or Chunk.read
    parts: List[Any] = [dask.delayed(_part, pure=False)(chunk, reader, job) for chunk in chunks]
    while len(parts) > 1:
        parts = [dask.delayed(_merged, pure=False)(parts[at:at + _FAN_IN], job)
                 for at in range(0, len(parts), _FAN_IN)]
    whole = _run(parts[0], cluster, progress) if parts else _empty(job)
    return _survey_of(whole, job)


def _survey_of(whole: _Part, job: _Job) -> Survey:
    cells = np.column_stack([whole.keys // _COLUMNS, whole.keys % _COLUMNS])
    near = whole.near[np.argsort(whole.near[:, 0], kind="stable")]
    limits = np.searchsorted(near[:, 0], np.arange(len(job.sections) + 1))
    rings = tuple((asked, _round_the_wall(near[first:last, 1:], job.design))
                  for asked, first, last in zip(job.sections, limits, limits[1:]))
    unread = tuple(sorted(whole.unread, key=lambda error: (error.path, error.offset)))
    return Survey(job.design, job.size, job.start, whole.points, whole.without_foot, cells,
                  whole.count, whole.sums, whole.lowest, whole.highest, whole.histogram, rings,
                  unread)


def _chunks_of(source: Any, points: int) -> List[Chunk]:
    paths: Iterable[Any] = [source] if isinstance(source, (str, PathLike)) else source
    return [chunk for path in paths for chunk in split(path, points)]


def _run(task: Any, cluster: Optional[str], progress: bool) -> _Part:
    part: _Part = _by_threads(task, progress) if cluster is None else _by_cluster(task, cluster,
                                                                                  progress)
    return part


def _by_threads(task: Any, progress: bool) -> Any:
    from dask import diagnostics as shown

    if not progress:
        return task.compute(scheduler="threads")
    with shown.ProgressBar():
        return task.compute(scheduler="threads")


def _by_cluster(task: Any, address: str, progress: bool) -> Any:
    import distributed

    with distributed.Client(address, set_as_default=False) as client:
        future = client.compute(task)
        if progress:
            distributed.progress(future)
        return future.result()
