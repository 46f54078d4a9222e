# SPDX-License-Identifier: BSL-1.0
"""Theoretical profiles, the digitised outline and the measured rings by closed formulas."""

from mpmath import asin, atan2, cos, hypot, mpf, pi, sin, sqrt

from fits import algebraic_circle, conic_of, ellipse_of
from tables import Table, exact


class Segment:
    """A straight or a minor arc; a positive radius is traversed clockwise."""

    def __init__(self, a, b, radius):
        self.a, self.b, self.radius = a, b, radius
        self.chord = hypot(b[0] - a[0], b[1] - a[1])
        self.length = self.chord
        if radius:
            half, size = self.chord / 2, abs(radius)
            self.length = 2 * size * asin(min(half / size, mpf(1)))
            rise = sqrt(max(size * size - half * half, 0)) * (1 if radius > 0 else -1)
            # The centre lies to the right of the chord of a clockwise arc.
            self.centre = tuple((a[k] + b[k]) / 2 + rise * n / self.chord
                                for k, n in ((0, b[1] - a[1]), (1, a[0] - b[0])))

    def foot(self, p):
        """Distance of the nearest point, the point, its length from the start."""
        ends = [(hypot(p[0] - e[0], p[1] - e[1]), e, l)
                for e, l in ((self.a, mpf(0)), (self.b, self.length))]
        if not self.radius:
            along = sum((p[k] - self.a[k]) * (self.b[k] - self.a[k]) for k in (0, 1)) / self.chord
            if 0 <= along <= self.length:
                at = tuple(self.a[k] + (self.b[k] - self.a[k]) * along / self.length
                           for k in (0, 1))
                ends.append((hypot(p[0] - at[0], p[1] - at[1]), at, along))
            return min(ends, key=lambda e: e[0])
        ray = [p[k] - self.centre[k] for k in (0, 1)]
        start = [self.a[k] - self.centre[k] for k in (0, 1)]
        turned = atan2(start[0] * ray[1] - start[1] * ray[0],
                       start[0] * ray[0] + start[1] * ray[1])
        along = abs(self.radius) * ((-turned if self.radius > 0 else turned) % (2 * pi))
        if along <= self.length:
            size = hypot(*ray)
            at = tuple(self.centre[k] + ray[k] * abs(self.radius) / size for k in (0, 1))
            ends.append((abs(size - abs(self.radius)), at, along))
        return min(ends, key=lambda e: e[0])

    def doubled_area(self):
        """Under the chord as seen from the origin, and between chord and arc; positive clockwise."""
        under = self.b[0] * self.a[1] - self.a[0] * self.b[1]
        turning = self.length / self.radius if self.radius else mpf(0)
        return under + self.radius ** 2 * (turning - sin(turning))

    def extremes(self):
        """The ends, and of an arc its places farthest left, right, down and up."""
        points = [self.a, self.b]
        if self.radius:
            for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
                p = (self.centre[0] + dx * abs(self.radius), self.centre[1] + dy * abs(self.radius))
                if self.foot(p)[0] < mpf(10) ** -40:
                    points.append(p)
        return points

    def heading(self, at_end):
        chord = atan2(self.b[0] - self.a[0], self.b[1] - self.a[1])
        half = self.length / self.radius / 2 if self.radius else mpf(0)
        return chord + half if at_end else chord - half


def profile(name):
    numbers = Table(f"profiles/theoretical/{name}.csv").numbers(
        "start_x", "start_y", "end_x", "end_y", "radius")
    return [Segment((a, b), (c, d), r) for a, b, c, d, r in numbers]


def largest_step(segments):
    """Of the direction at a joint of an arc that is meant to be tangent: below a thousandth."""
    steps = [mpf(0)]
    for before, after in zip(segments, segments[1:] + segments[:1]):
        step = (after.heading(False) - before.heading(True) + pi) % (2 * pi) - pi
        if abs(step) < mpf("0.001"):
            steps.append(abs(step))
    return max(steps)


def is_inside(segments, p):
    """By the turns of the outline about the point."""
    turns = mpf(0)
    for s in segments:
        pieces = 64 if s.radius else 1
        last = s.a
        for i in range(1, pieces + 1):
            if s.radius:
                turned = s.length * i / pieces / s.radius
                dx, dy = s.a[0] - s.centre[0], s.a[1] - s.centre[1]
                now = (s.centre[0] + dx * cos(turned) + dy * sin(turned),
                       s.centre[1] + dy * cos(turned) - dx * sin(turned))
            else:
                now = s.b
            u, v = (last[0] - p[0], last[1] - p[1]), (now[0] - p[0], now[1] - p[1])
            turns += atan2(u[0] * v[1] - u[1] * v[0], u[0] * v[0] + u[1] * v[1])
            last = now
    return 1 if abs(turns) > pi else 0


def area_and_length(points):
    pairs = list(zip(points, points[1:] + points[:1]))
    return (abs(sum(a[0] * b[1] - b[0] * a[1] for a, b in pairs)) / 2,
            sum(hypot(b[0] - a[0], b[1] - a[1]) for a, b in pairs))


def common_area(points, centre, radius):
    """Of a polygon and a disc, edge by edge as seen from the centre of the disc."""
    total = mpf(0)
    for a, b in zip(points, points[1:] + points[:1]):
        a, b = ((p[0] - centre[0], p[1] - centre[1]) for p in (a, b))
        d = (b[0] - a[0], b[1] - a[1])
        square = d[0] ** 2 + d[1] ** 2
        if not square:
            continue
        middle = -(a[0] * d[0] + a[1] * d[1]) / square
        nearest = hypot(a[0] + middle * d[0], a[1] + middle * d[1])
        half = sqrt((radius ** 2 - nearest ** 2) / square) if nearest < radius else mpf(0)
        cuts = sorted({mpf(0), mpf(1), *(t for t in (middle - half, middle + half) if 0 < t < 1)})
        for s, t in zip(cuts, cuts[1:]):
            u, v = ((a[0] + q * d[0], a[1] + q * d[1]) for q in (s, t))
            cross = u[0] * v[1] - u[1] * v[0]
            at = (s + t) / 2
            if hypot(a[0] + at * d[0], a[1] + at * d[1]) <= radius:
                total += cross / 2
            else:
                total += radius ** 2 * atan2(cross, u[0] * v[0] + u[1] * v[1]) / 2
    return abs(total)


def tables():
    table = Table("profiles/theoretical_expected.csv")
    profiles = {}
    for row in table.rows:
        segments = profiles[row["case"]] = profile(row["case"])
        x, y = zip(*(p for s in segments for p in s.extremes()))
        table.set(row, segments=len(segments), circumference=sum(s.length for s in segments),
                  area=abs(sum(s.doubled_area() for s in segments)) / 2, width=max(x) - min(x),
                  lowest=min(y), highest=max(y), largest_tangent_step=largest_step(segments))
    yield table
    table = Table("profiles/nearest_points.csv")
    for row in table.rows:
        segments = profiles[row["case"]]
        p = exact(row["x"]), exact(row["y"])
        feet = [s.foot(p) for s in segments]
        best = min(range(len(feet)), key=lambda i: feet[i][0])
        distance, foot, along = feet[best]
        table.set(row, distance=distance, foot_x=foot[0], foot_y=foot[1], segment=best,
                  length_along=sum((s.length for s in segments[:best]), mpf(0)) + along,
                  inside=is_inside(segments, p))
    yield table
    table = Table("profiles/digitised/expected.csv")
    for row in table.rows:
        points = Table(f"profiles/digitised/{row['case']}.csv").points()
        area, length = area_and_length(points)
        circle, ellipse = algebraic_circle(points), ellipse_of(conic_of(points))
        table.set(row, points=len(points), outline_area=area, outline_length=length,
                  circle_x=circle[0], circle_y=circle[1], circle_radius_rms=circle[2],
                  **dict(zip(("ellipse_x", "ellipse_y", "ellipse_a", "ellipse_b",
                              "ellipse_rotation"), ellipse)))
    yield table
    table = Table("rings/lining_5800_areas.csv")
    rings = Table("rings/lining_5800_points.csv")
    for row in table.rows:
        points = [(exact(p["x"]), exact(p["y"])) for p in rings.rows if p["ring"] == row["ring"]]
        area, length = area_and_length(points)
        x, y, radius = (exact(row[c]) for c in ("circle_x", "circle_y", "circle_radius"))
        common = common_area(points, (x, y), radius)
        table.set(row, outline_area=area, outline_length=length, common_area=common,
                  outline_beyond_circle=area - common,
                  circle_beyond_outline=pi * radius ** 2 - common)
    yield table
