# SPDX-License-Identifier: BSL-1.0
"""Points on and beside the published alignments: the heading integrated with 50 digits."""

from mpmath import atan, cos, mp, mpf, pi, quad, sin, sqrt

from tables import GOLDEN, Table, exact, rows_of


class Element:
    """A piece of the plan. A radius of 0 is infinite, a positive one curves to the right."""

    def __init__(self, row):
        self.station, self.east, self.north, self.azimuth, self.length = (
            exact(row[c]) for c in ("start_station", "east", "north", "azimuth", "length"))
        self.start, self.end = (1 / exact(row[c]) if exact(row[c]) else mpf(0)
                                for c in ("radius_start", "radius_end"))

    def curvature(self, l):
        return self.start + (self.end - self.start) * l / self.length

    def heading(self, l):
        return self.azimuth + (self.start + self.curvature(l)) / 2 * l

    def at(self, station):
        """East, north, azimuth, curvature."""
        l = station - self.station
        if self.start != self.end:
            east = quad(lambda s: sin(self.heading(s)), [0, l])
            north = quad(lambda s: cos(self.heading(s)), [0, l])
        elif self.start:
            east = (cos(self.azimuth) - cos(self.heading(l))) / self.start
            north = (sin(self.heading(l)) - sin(self.azimuth)) / self.start
        else:
            east, north = sin(self.azimuth) * l, cos(self.azimuth) * l
        return self.east + east, self.north + north, self.heading(l) % (2 * pi), self.curvature(l)


class Line:
    def __init__(self, station, height, grade, to):
        self.station, self.height, self.grade, self.to = station, height, grade, to

    def at(self, s):
        return self.height + self.grade * (s - self.station), self.grade

    def length(self, a, b):
        return (b - a) * sqrt(1 + self.grade ** 2)


class Circle:
    """Tangent to both grades; the radius is that of the circle itself."""

    def __init__(self, point, height, into, out, radius):
        self.radius, self.sign = radius, 1 if out > into else -1
        tangent = radius * mp.tan(abs(atan(out) - atan(into)) / 2)
        self.station, self.to = point - tangent * cos(atan(into)), point + tangent * cos(atan(out))
        toward = self.sign * radius
        self.centre = self.station - toward * sin(atan(into))
        self.level = height - tangent * sin(atan(into)) + toward * cos(atan(into))

    def at(self, s):
        rise = sqrt(self.radius ** 2 - (s - self.centre) ** 2)
        return self.level - self.sign * rise, self.sign * (s - self.centre) / rise

    def length(self, a, b):
        return self.radius * abs(atan(self.at(b)[1]) - atan(self.at(a)[1]))


class Parabola:
    """Its grade changes by 1/R per metre of stationing."""

    def __init__(self, point, height, into, out, radius):
        half = radius * abs(out - into) / 2
        self.station, self.to, self.grade = point - half, point + half, into
        self.height, self.change = height - half * into, (out - into) / (2 * half)

    def at(self, s):
        l = s - self.station
        return self.height + (self.grade + self.change * l / 2) * l, self.grade + self.change * l

    def length(self, a, b):
        def primitive(g):
            return (g * sqrt(1 + g ** 2) + mp.asinh(g)) / (2 * self.change)
        return primitive(self.at(b)[1]) - primitive(self.at(a)[1])


class Profile:
    """Grades and roundings in the order of stations, without overlaps: the earlier one holds."""

    def __init__(self, rows):
        points = [(exact(r["station"]), exact(r["height"]), r["kind"], exact(r["rounding"]))
                  for r in rows]
        grades = [(b[1] - a[1]) / (b[0] - a[0]) for a, b in zip(points, points[1:])]
        self.first, self.last = points[0][0], points[-1][0]
        self.pieces = []
        for i, (station, height, kind, radius) in enumerate(points):
            inner = 0 < i < len(points) - 1
            if inner and kind != "kink" and radius and grades[i - 1] != grades[i]:
                shape = Circle if kind == "arc" else Parabola
                self.pieces.append(shape(station, height, grades[i - 1], grades[i], radius))
            if i < len(grades):
                self.pieces.append(Line(station, height, grades[i], points[i + 1][0]))

    def ranges(self):
        """Each piece from where the one before ends to where the next rounding begins."""
        begin = self.first
        for i, piece in enumerate(self.pieces):
            end = piece.to
            if isinstance(piece, Line) and i + 1 < len(self.pieces):
                following = self.pieces[i + 1]
                end = following.station if not isinstance(following, Line) else piece.to
            end = min(end, self.last)
            if end > begin or i == 0:
                yield begin, end, piece
                begin = max(begin, end)

    def at(self, s):
        """Height and grade; None outside."""
        for begin, end, piece in self.ranges():
            if begin <= s <= end:
                return piece.at(s)
        return None

    def length(self, a, b):
        return sum((piece.length(max(a, begin), min(b, end)) for begin, end, piece in self.ranges()
                    if max(a, begin) < min(b, end)), mpf(0))


def slope_at(rows, s):
    """Of the first interval that holds the station, in percent."""
    for row in rows:
        a, b, p, q = (exact(row[c]) for c in ("station_from", "station_to", "slope_from_percent",
                                              "slope_to_percent"))
        if a <= s <= b:
            return p + (q - p) * (s - a) / (b - a)
    return mpf(0)


def axis_points(table, element_at, profile, first):
    for row in table.rows:
        s = exact(row["station"])
        east, north, azimuth, curvature = element_at(s).at(s)
        table.set(row, east=east, north=north, azimuth=azimuth,
                  radius=1 / curvature if curvature else 0)
        vertical = profile.at(s)
        height, grade = vertical if vertical else (None, None)
        table.set(row, height=height, grade_percent=100 * grade if vertical else None,
                  length_3d=profile.length(first, s) if vertical else None)


def offset_points(table, element_at, profile, slopes):
    for row in table.rows:
        s, offset, above = (exact(row[c]) for c in ("station", "offset", "height_above_axis"))
        east, north, azimuth, _ = element_at(s).at(s)
        vertical = profile.at(s)

        def beside(right, up):
            height = vertical[0] + up if vertical else None
            return east + right * cos(azimuth), north - right * sin(azimuth), height

        plain = beside(offset, above)
        table.set(row, east=plain[0], north=plain[1], height=plain[2])
        slope = slope_at(slopes, s)
        angle = atan(slope / 100)
        turned = beside(offset * cos(angle) + above * sin(angle),
                        above * cos(angle) - offset * sin(angle))
        table.set(row, transverse_slope_percent=slope, east_with_slope=turned[0],
                  north_with_slope=turned[1], height_with_slope=turned[2])


def tables():
    for folder in sorted((GOLDEN / "alignments").iterdir()):
        path = f"alignments/{folder.name}/"
        elements = [Element(row) for row in rows_of(path + "horizontal.csv")]

        def element_at(s, elements=elements):
            """The earlier one at a joint."""
            return next((e for e in reversed(elements) if e.station < s), elements[0])

        profile = Profile(rows_of(path + "vertical.csv"))
        table = Table(path + "axis_points.csv")
        axis_points(table, element_at, profile, max(elements[0].station, profile.first))
        yield table
        table = Table(path + "offset_points.csv")
        offset_points(table, element_at, profile, rows_of(path + "transverse_slope.csv"))
        yield table
