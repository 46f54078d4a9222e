# SPDX-License-Identifier: BSL-1.0
"""Circles and ellipses by normal equations and eigenvectors with 50 digits."""

from mpmath import atan2, hypot, lu_solve, matrix, mp, mpf, pi, sqrt

from tables import Table


def algebraic_circle(points):
    """Minimises the sum of squared differences of squared distances (Kasa)."""
    a = matrix([[2 * x, 2 * y, 1] for x, y in points])
    b = matrix([x * x + y * y for x, y in points])
    x, y, rest = lu_solve(a.T * a, a.T * b)
    return x, y, sqrt(rest + x * x + y * y)


def orthogonal_circle(points):
    """Minimises the sum of squared distances, by Gauss-Newton steps."""
    unknown = matrix(algebraic_circle(points))
    for _ in range(400):
        rows, rest = [], []
        for x, y in points:
            d = hypot(x - unknown[0], y - unknown[1])
            rows.append([-(x - unknown[0]) / d, -(y - unknown[1]) / d, -1])
            rest.append(unknown[2] - d)
        a = matrix(rows)
        step = lu_solve(a.T * a, a.T * matrix(rest))
        unknown += step
        if mp.norm(step) < mpf(10) ** -35:
            break
    return tuple(unknown)


def conic_of(points):
    """The ellipse-specific fit of Fitzgibbon, Pilu and Fisher (1999) in the form of Halir and
    Flusser (1998), about the centroid; coefficients of xx, xy, yy, x, y, 1 with norm 1."""
    n = len(points)
    cx, cy = (sum(p[k] for p in points) / n for k in (0, 1))
    quadratic = matrix([[(x - cx) ** 2, (x - cx) * (y - cy), (y - cy) ** 2] for x, y in points])
    linear = matrix([[x - cx, y - cy, 1] for x, y in points])
    s1, s2, s3 = quadratic.T * quadratic, quadratic.T * linear, linear.T * linear
    t = -(s3 ** -1) * s2.T
    m = s1 + s2 * t
    reduced = matrix([[m[2, k] / 2 for k in range(3)], [-m[1, k] for k in range(3)],
                      [m[0, k] / 2 for k in range(3)]])
    _, vectors = mp.eig(reduced)
    for k in range(3):
        a = [mp.re(vectors[i, k]) for i in range(3)]
        if 4 * a[0] * a[2] - a[1] ** 2 > 0:
            break
    d, e, f = t * matrix(a)
    conic = [*a, d - 2 * a[0] * cx - a[1] * cy, e - 2 * a[2] * cy - a[1] * cx,
             a[0] * cx * cx + a[1] * cx * cy + a[2] * cy * cy - d * cx - e * cy + f]
    norm = sqrt(sum(c * c for c in conic)) * (1 if conic[5] > 0 else -1)
    return [c / norm for c in conic]


def ellipse_of(conic):
    """Centre, semi-axes, the longer first, and the direction of the longer axis."""
    a, b, c, d, e, f = conic
    x, y = lu_solve(matrix([[2 * a, b], [b, 2 * c]]), matrix([-d, -e]))
    level = -(f + (d * x + e * y) / 2)
    spread = hypot(a - c, b)
    axes = [sqrt(2 * level / (a + c + sign * spread)) for sign in (1, -1)]
    axes.sort(reverse=True)
    sense = 1 if level > 0 else -1
    rotation = atan2(-sense * b, sense * (c - a)) / 2
    return x, y, axes[0], axes[1], rotation if rotation < pi / 2 else rotation - pi


def iterated(points):
    """Rejects points beyond three times the mean residual of all, for at most ten rounds."""
    used = [True] * len(points)
    for rounds in range(1, 11):
        conic = conic_of([p for p, keeps in zip(points, used) if keeps])
        residuals = [abs(conic[0] * x * x + conic[1] * x * y + conic[2] * y * y + conic[3] * x
                         + conic[4] * y + conic[5]) for x, y in points]
        limit = 3 * sum(residuals) / len(points)
        before = list(used)
        used = [keeps and r <= limit for keeps, r in zip(used, residuals)]
        if used == before:
            break
    rejected = " ".join(str(i) for i, keeps in enumerate(used) if not keeps)
    return ellipse_of(conic), rounds, rejected


NAMES = ("center_x", "center_y", "semi_axis_a", "semi_axis_b", "rotation")


def tables():
    circles = Table("fits/circles_expected.csv")
    for row in circles.rows:
        points = Table(f"fits/{row['case']}.csv").points()
        fits = (*algebraic_circle(points), *orthogonal_circle(points))
        names = ("center_x", "center_y", "radius_rms",
                 "orthogonal_x", "orthogonal_y", "orthogonal_radius")
        circles.set(row, points=len(points), **dict(zip(names, fits)))
    yield circles
    ellipses = Table("fits/ellipses_expected.csv")
    for row in ellipses.rows:
        points = Table(f"fits/{row['case']}.csv").points()
        conic = conic_of(points)
        ellipses.set(row, points=len(points), **dict(zip(NAMES, ellipse_of(conic))), **dict(zip(
            ("conic_xx", "conic_xy", "conic_yy", "conic_x", "conic_y", "conic_1"), conic)))
        ellipse, rounds, rejected = iterated(points)
        ellipses.set(row, iterated_rounds=rounds, iterated_rejected=rejected,
                     **{f"iterated_{n}": v for n, v in zip(NAMES, ellipse)})
    yield ellipses
