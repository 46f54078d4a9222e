# SPDX-License-Identifier: BSL-1.0
"""Plane and spatial transformations by least squares with 50 digits."""

from mpmath import atan2, cos, hypot, lu_solve, matrix, mp, mpf, pi, sin, sqrt

from tables import GOLDEN, Table, printed


def mean(values):
    return sum(values) / len(values)


def plane(local, world):
    """E = station_east + b x + a y, N = station_north - a x + b y, and the mean of the heights."""
    n = len(local)
    c, g = ([mean([p[k] for p in points]) for k in range(3)] for points in (local, world))
    x, y = ([p[k] - c[k] for p in local] for k in (0, 1))
    e, nn = ([p[k] - g[k] for p in world] for k in (0, 1))
    square = sum(u * u + v * v for u, v in zip(x, y))
    b = sum(u * p + v * q for u, v, p, q in zip(x, y, e, nn)) / square
    a = sum(v * p - u * q for u, v, p, q in zip(x, y, e, nn)) / square
    scale = hypot(a, b)
    rest = sum((p - b * u - a * v) ** 2 + (q + a * u - b * v) ** 2
               for u, v, p, q in zip(x, y, e, nn))
    sigma = sqrt(rest / (2 * n - 4))
    height = g[2] - c[2]
    return {"station_east": g[0] - b * c[0] - a * c[1], "station_north": g[1] + a * c[0] - b * c[1],
            "station_height": height, "orientation": atan2(a, b) % (2 * pi), "scale": scale,
            "sigma0": sigma, "scale_std": sigma / sqrt(square),
            "orientation_std": sigma / sqrt(square) / scale, "centroid_std": sigma / sqrt(n),
            "height_mean_abs_residual": mean([abs(q[2] - p[2] - height)
                                              for p, q in zip(local, world)])}


def rotation(omega, phi, kappa):
    """As in src/stations/SpatialRotation.h."""
    so, co, sp, cp, sk, ck = sin(omega), cos(omega), sin(phi), cos(phi), sin(kappa), cos(kappa)
    return matrix([[cp * ck, so * sp * ck + co * sk, so * sk - co * sp * ck],
                   [-cp * sk, co * ck - so * sp * sk, so * ck + co * sp * sk],
                   [sp, -so * cp, co * cp]])


def adjust(local, world, has_scale):
    """Gauss-Newton from the level solution. Unknowns: shift, omega, phi, kappa, scale."""
    start = plane(local, world)
    unknown = matrix([start["station_east"], start["station_north"], start["station_height"], 0, 0,
                      start["orientation"], start["scale"] if has_scale else 1])
    count = 7 if has_scale else 6

    def image(u, p):
        return matrix(u[0:3]) + u[6] * (rotation(u[3], u[4], u[5]) * matrix(p))

    step_of = mpf(10) ** -20  # central differences: good to the square of it
    for _ in range(60):
        rows, rest = [], []
        for p, q in zip(local, world):
            columns = []
            for k in range(count):
                up, down = unknown.copy(), unknown.copy()
                up[k] += step_of
                down[k] -= step_of
                columns.append((image(up, p) - image(down, p)) / (2 * step_of))
            rows += [[column[i] for column in columns] for i in range(3)]
            rest += list(matrix(q) - image(unknown, p))
        a, r = matrix(rows), matrix(rest)
        normal = a.T * a
        step = lu_solve(normal, a.T * r)
        for k in range(count):
            unknown[k] += step[k]
        if mp.norm(step) < mpf(10) ** -32:
            break
    return unknown, normal, r


def space(local, world):
    unknown, normal, r = adjust(local, world, True)
    sigma = sqrt(sum(v * v for v in r) / (3 * len(local) - 7))
    std = [sigma * sqrt((normal ** -1)[k, k]) for k in range(7)]
    names = ("station_east", "station_north", "station_height", "tilt_omega", "tilt_phi",
             "orientation", "scale")
    found = dict(zip(names, unknown))
    found["orientation"] %= 2 * pi
    return {**found, "sigma0": sigma, "station_east_std": std[0], "station_north_std": std[1],
            "station_height_std": std[2], "orientation_std": std[5], "scale_std": std[6]}


def rigid(local, world):
    unknown, _, r = adjust(local, world, False)
    turned = rotation(unknown[3], unknown[4], unknown[5])
    found = {f"rotation_{i + 1}{k + 1}": turned[i, k] for i in range(3) for k in range(3)}
    return {**found, "translation_east": unknown[0], "translation_north": unknown[1],
            "translation_height": unknown[2], "largest_residual": max(abs(v) for v in r)}


def tables():
    for path in sorted((GOLDEN / "transformations").glob("*_expected.csv")):
        name = path.name.removesuffix("_expected.csv")
        # Coordinates as printed, of which doubles miss a northing of 2e6 m by up to 1e-10 m.
        columns = [f"{system}_{axis}" for system in ("local", "global")
                   for axis in ("east", "north", "height")]
        both = [[mpf(row[c]) if row[c] else None for c in columns]
                for row in Table(f"transformations/{name}.csv").rows]
        local = [p[:3] for p in both if p[3] is not None]
        world = [p[3:] for p in both if p[3] is not None]
        table = Table(f"transformations/{path.name}")
        groups = {}
        for row in table.rows:
            if row["group"] == "published":
                continue
            if row["group"] not in groups:
                groups[row["group"]] = globals()[row["group"]](local, world)
            row["value"] = printed(groups[row["group"]][row["quantity"]])
        yield table
