# SPDX-License-Identifier: BSL-1.0
"""Reads what tunnel_survey writes with programs that others wrote: results_test.py tunnel_survey examples/data"""

import csv
import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

import ezdxf
from PIL import Image

PROGRAM, DATA = sys.argv[1], pathlib.Path(sys.argv[2])
AXIS = DATA / "metro_th_3122m.xml"
SVG = "{http://www.w3.org/2000/svg}"


def run(folder, *options):
    subprocess.run([PROGRAM, *map(str, options), "--output", str(folder)], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=True)
    return folder


def rows_of(path):
    """Rows by heading without its unit."""
    lines = [line for line in path.read_text().splitlines() if not line.startswith("#")]
    return [{name.split(" [")[0]: cell for name, cell in row.items() if name} for row in csv.DictReader(lines)]


def output_of(*command):
    return subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, check=True).stdout.decode()


def drawing(path):
    document = ezdxf.readfile(path)
    return document.modelspace(), document.audit().errors


def on(layer, space, kind="*"):
    return space.query(f'{kind}[layer=="{layer}"]')


def corners_of(line):
    return [tuple(v.dxf.location) for v in line.vertices]


def length_of(entity):
    if entity.dxftype() == "LINE":
        return entity.dxf.start.distance(entity.dxf.end)
    if entity.dxftype() == "ARC":
        return entity.dxf.radius * math.radians((entity.dxf.end_angle - entity.dxf.start_angle) % 360.0)
    points = [p[:2] for p in entity.get_points()]
    return sum(math.dist(a, b) for a, b in zip(points, points[1:]))


class Results(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        root = pathlib.Path(cls.folder.name)
        cls.axis = run(root / "axis", AXIS, "--points", DATA / "surveyed_points.csv",
                       "--json", root / "axis.json",
                       "--check", DATA / "metro_th_3122m_source_points.csv")
        cls.road = run(root / "road", AXIS, "--json", root / "road.json", "--design", DATA / "road_t9p5_design.csv",
                       "--scan", DATA / "road_scan.csv", "--stations", "7310,7+330",
                       "--transition-to", DATA / "road_layby_design.csv", "--transition-stations", "7370,7400",
                       "--setout", cls.axis / "points_on_axis.csv", "--single-file")

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def json_of(self, folder):
        return json.loads((folder.parent / f"{folder.name}.json").read_text())

    def test_every_dxf_can_be_read(self):
        paths = [*self.axis.rglob("*.dxf"), *self.road.rglob("*.dxf")]
        self.assertEqual(len(paths), 2 + 2 + 2 + 1 + 1)  # axes, sections one by one and together, transition
        for path in paths:
            space, errors = drawing(path)
            self.assertEqual((path.name, len(errors)), (path.name, 0))
            self.assertGreater(len(space), 0)

    def test_dxf_of_the_plan_has_the_axis_and_the_points_where_they_are(self):
        space, _ = drawing(self.axis / "plan.dxf")
        axis = self.json_of(self.axis)["axis"]
        elements = [e for kind in ("STRAIGHTS", "ARCS", "CLOTHOIDS") for e in on(f"AXIS_{kind}", space)]
        self.assertAlmostEqual(sum(map(length_of, elements)), axis["to"] - axis["from"], delta=0.001)
        in_space = [corner for line in on("AXIS_IN_SPACE", space) for corner in corners_of(line)]
        for place in axis["stations"]:
            at = (place["east"], place["north"], place["height"])
            nearest = min(math.dist(corner, at) for corner in in_space)
            self.assertLess(nearest, 0.26)  # corners are half a metre apart
        given = {row["id"]: row for row in rows_of(DATA / "surveyed_points.csv")}
        drawn = sorted(tuple(p.dxf.location) for p in on("POINTS", space, "POINT"))
        expected = sorted(tuple(float(given[p["id"]][c]) for c in ("east", "north", "height"))
                          for p in self.json_of(self.axis)["points"])
        self.assertEqual(len(drawn), 37)
        for a, b in zip(drawn, expected):
            self.assertLess(math.dist(a, b), 1e-9)

    def test_dxf_of_a_section_has_the_design_and_its_areas(self):
        space, _ = drawing(next((self.road / "sections").glob("001*.dxf")))
        result = self.json_of(self.road)["sections"]["results"][0]
        circle = on("BEST_FIT_CIRCLE", space)[0]
        self.assertAlmostEqual(circle.dxf.radius, result["circle"]["radius"], delta=1e-9)
        ends = sorted((round(float(row[f"{end}_x"]), 6), round(float(row[f"{end}_y"]), 6))
                      for row in rows_of(DATA / "road_t9p5_design.csv") for end in ("start", "end"))
        drawn = sorted((round(p.x, 6) + 0.0, round(p.y, 6) + 0.0) for e in on("DESIGN", space)
                       for p in ((e.dxf.start, e.dxf.end) if e.dxftype() == "LINE" else (e.start_point, e.end_point)))
        self.assertEqual(len(drawn), len(ends))
        for a, b in zip(drawn, ends):
            self.assertLess(math.dist(a, b), 2e-6)

    def test_dxf_of_sections_stands_in_space(self):
        # Square to the axis, so that design and measured points have its stationing again.
        space, _ = drawing(self.road / "sections.dxf")
        places = pathlib.Path(self.folder.name) / "measured.csv"
        with open(places, "w") as file:
            file.write("id,east,north,height\n")
            for i, point in enumerate(on("MEASURED_POINTS", space, "POINT")):
                file.write("%d,%.6f,%.6f,%.6f\n" % (i, *point.dxf.location))
        back = run(pathlib.Path(self.folder.name) / "back", AXIS, "--points", places)
        stations = [float(row["stationing"]) for row in rows_of(back / "points_on_axis.csv")]
        self.assertGreater(len(stations), 100)
        self.assertLess(max(min(abs(s - 7310), abs(s - 7330)) for s in stations), 1e-3)

    def test_setting_out_leads_back_to_the_points(self):
        given = {row["id"]: row for row in rows_of(DATA / "surveyed_points.csv")}
        for row in rows_of(self.road / "setting_out.csv"):
            for column in ("east", "north", "height"):
                self.assertAlmostEqual(float(row[column]), float(given[row["point"]][column]), delta=3e-4)

    def test_one_design_has_one_area(self):
        results = self.json_of(self.road)
        area = results["sections"]["design_area"]
        for other in (results["transition"]["sections"][0]["area"], results["sections"]["results"][0]["design_area"]):
            self.assertAlmostEqual(other, area, delta=1e-4)
        for section in results["sections"]["results"]:
            self.assertAlmostEqual(section["design_area"] + section["over_area"] - section["under_area"],
                                   section["measured_area"], delta=1e-4)

    def test_json_and_tables_say_the_same_and_headings_have_units(self):
        results = self.json_of(self.road)
        table = rows_of(self.road / "sections.csv")
        self.assertEqual(len(table), 2)
        for row, result in zip(table, results["sections"]["results"]):
            for column, value in (("stationing", result["stationing"]), ("over area", result["over_area"]),
                                  ("largest over", result["largest_over"]["distance"]),
                                  ("ellipse rotation", result["ellipse"]["rotation"])):
                self.assertAlmostEqual(float(row[column]), value, delta=5.1e-5)
        volume = rows_of(self.road / "volumes.csv")[0]
        self.assertAlmostEqual(float(volume["over"]), results["sections"]["volumes"]["over"], delta=5.1e-4)
        without = {"point", "points", "section", "elements", "from", "to"}
        for path in [*self.axis.glob("*.csv"), *self.road.glob("*.csv")]:
            for heading in path.read_text().splitlines()[0].split(","):
                self.assertTrue(heading in without or heading.endswith("]"), f"{path.name}: {heading}")

    def test_pdf_has_a_page_for_each_sheet_and_text_to_search(self):
        report = self.axis / "report.pdf"
        sizes = re.findall(r"Page +\d+ size: +(\S+) x (\S+)", output_of("pdfinfo", "-l", 99, report))
        self.assertLessEqual({tuple(round(float(s)) for s in size) for size in sizes},
                             {(842, 595), (595, 842), (1191, 842)})  # A4 and A3
        for line in output_of("pdffonts", report).splitlines()[2:]:
            self.assertEqual(line.split()[-5], "yes", line)  # embedded
        text = output_of("pdftotext", "-layout", report, "-")
        self.assertEqual(text.count("Plan of axis north_bound"), 1)
        for words in ("P039", "7+202.834", "1518523.584"):
            self.assertIn(words, text)

    def test_svg_has_words_and_arcs(self):
        root = ElementTree.parse(self.axis / "plan.svg").getroot()
        words = ["".join(text.itertext()) for text in root.iter(SVG + "text")]
        self.assertIn("8+000", words)
        self.assertIn("P001", words)
        section = next((self.road / "sections").glob("001*.svg")).read_text()
        self.assertRegex(section, r' d="M[^"]*a')

    def test_png_is_paper_to_its_edges(self):
        for path in [*self.axis.glob("*.png"), *self.road.glob("*.png")]:
            image = Image.open(path).convert("L")
            width, height = image.size
            for edge in ((0, 0, width, 1), (0, height - 1, width, height), (0, 0, 1, height),
                         (width - 1, 0, width, height)):
                self.assertEqual(image.crop(edge).getextrema(), (255, 255), f"{path.name} {edge}")

    def test_html_refers_to_files_that_exist_or_holds_its_drawings(self):
        text = (self.axis / "report.html").read_text()
        sources = re.findall(r'<img[^>]*src="([^"]+)"', text)
        self.assertEqual(len(sources), 2)
        self.assertEqual(text.count('loading="lazy"'), 2)
        for source in sources + re.findall(r'href="([^"#]+)"', text):
            self.assertTrue((self.axis / source).is_file(), source)
        single = (self.road / "report.html").read_text()
        self.assertFalse(re.findall(r'(?:src|href)="(?!#|data:)', single))
        self.assertEqual(single.count("<figure"), 3 + 2 + 1)  # plan, length, transition; sections; map

    def test_labels_are_drawn_or_counted(self):
        crowd = pathlib.Path(self.folder.name) / "crowd.csv"
        count = 2000
        with open(crowd, "w") as file:
            file.write("id,station,offset\n")
            for i in range(count):
                file.write(f"crowd{i},{7210 + i * 1.5},{i % 7 - 3}\n")
        folder = run(pathlib.Path(self.folder.name) / "crowd", AXIS, "--setout", crowd)
        text = (folder / "plan.svg").read_text()
        drawn = len(re.findall(r">crowd\d+<", text))
        left_out = int(re.search(r">(\d[\d ]*) labels? left out", text)[1].replace(" ", ""))
        self.assertGreater(drawn, 100)
        self.assertGreaterEqual(drawn + left_out, count)
        self.assertLess(drawn + left_out, count + 100)  # elements have labels too


unittest.main(argv=sys.argv[:1])
