# SPDX-License-Identifier: BSL-1.0
"""Surveys a scanned tunnel of any size: sections, areas, and the map of the wall.

    python3 scan_survey.py AXIS.xml DESIGN.csv SCAN... --output FOLDER

What is below 0.3 m counts as floor and is left out; what broke out beyond 0.4 m counts as geological.
Workers of a running scheduler of Dask, started by `dask scheduler` and `dask worker`, take part with
--cluster tcp://...
"""

import argparse
import csv
from pathlib import Path

import matplotlib
import numpy as np

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

from hadrel import Axis, Filters, Geology, Profile, cloud, plot  # noqa: E402

FLOOR = Filters(below=0.3)
GEOLOGY = Geology(0.4, method="beyond")


def options():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("axis", help="LandXML")
    parser.add_argument("design", help="table of the design profile's elements")
    parser.add_argument("scan", nargs="+", help="LAS, text or numpy files")
    parser.add_argument("--spacing", type=float, default=2.0, help="of sections (m)")
    parser.add_argument("--slab", type=float, default=0.5, help="whose points make a section (m)")
    parser.add_argument("--cluster", help="address of a scheduler of Dask")
    parser.add_argument("--output", type=Path, required=True, help="folder")
    return parser.parse_args()


def sections_of(axis, spacing):
    first, last = axis.range
    return spacing * np.arange(np.ceil(first / spacing), np.floor(last / spacing) + 1)


def write_table(path, survey, results):
    with path.open("w", newline="") as file:
        table = csv.writer(file)
        table.writerow(["stationing", "points", "design area", "measured area", "over area",
                        "under area", "geological area"])
        for stationing, found in results.items():
            table.writerow([stationing, len(survey.section(stationing)), found.design_area,
                            found.measured_area, found.over_area, found.under_area,
                            found.geological_area])


def draw(folder, survey, results):
    figure, ax = pyplot.subplots(figsize=(12, 5))
    plot.developed_map(survey.design, survey.stationing, survey.derolment, survey.mean, ax=ax)
    figure.savefig(folder / "developed_map.png", dpi=150)
    for stationing, found in results.items():
        figure, ax = pyplot.subplots()
        plot.section(survey.design, survey.section(stationing), found, ax=ax)
        ax.set_title(f"{stationing:.3f}")
        figure.savefig(folder / f"section_{stationing:.3f}.png")
        pyplot.close(figure)


def main():
    given = options()
    axis, design = Axis.from_landxml(given.axis), Profile.from_csv(given.design)
    survey = cloud.survey(given.scan, axis, design, sections=sections_of(axis, given.spacing),
                          half_width=given.slab / 2, cluster=given.cluster, progress=True)
    results = {stationing: survey.compare(stationing, filters=FLOOR, geology=GEOLOGY)
               for stationing in survey.sections}
    given.output.mkdir(parents=True, exist_ok=True)
    write_table(given.output / "sections.csv", survey, results)
    draw(given.output, survey, results)
    print(f"{survey.points} points, {survey.without_foot} beside the axis, {len(results)} sections: "
          f"{sum(found.over_area for found in results.values()):.2f} m2 over, "
          f"{sum(found.under_area for found in results.values()):.2f} m2 under in all")


if __name__ == "__main__":
    main()
