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
from ezdxf.lldxf.encoding import decode_dxf_unicode
from ezdxf.tools.text import plain_text
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
    style = document.dimstyles.get("Standard").dxf.get("dimtxsty")
    assert style == "Standard", "dimensions refer to a text style"
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


    def test_names_of_any_letters_stay_what_they_are(self):
        names = ["100%", "a^b", '"q" <&>', "=1+1", "S\u00fcd", "\u4e2d\u5fc3", "#7", "-", "a, b; c"]
        points = pathlib.Path(self.folder.name) / "names.csv"
        with open(points, "w", newline="") as file:
            writer = csv.writer(file, quoting=csv.QUOTE_ALL)
            writer.writerow(["id", "east", "north", "height"])
            for name, place in zip(names, rows_of(self.axis / "points_on_axis.csv")[::4]):
                writer.writerow([name, place["east"], place["north"], place["height"]])
        target = pathlib.Path(self.folder.name) / "names"
        folder = run(target, AXIS, "--points", points, "--json", target.with_suffix(".json"))
        self.assertEqual([p["id"] for p in self.json_of(folder)["points"]], names)
        space, errors = drawing(folder / "plan.dxf")
        self.assertEqual(errors, [])
        drawn = [plain_text(decode_dxf_unicode(t.dxf.text)) for t in on("POINT_NAMES", space, "TEXT")]
        self.assertEqual(sorted(drawn), sorted(names))
        root = ElementTree.parse(folder / "plan.svg").getroot()
        words = {"".join(text.itertext()) for text in root.iter(SVG + "text")}
        self.assertLessEqual(set(names), words)
        self.assertNotIn("<&>", (folder / "report.html").read_text())
        given = [row["point"] for row in rows_of(folder / "points_on_axis.csv")]
        self.assertEqual([name.lstrip("'") for name in given], names)

    def test_station_equations_are_read_and_drawn(self):
        axis = self.scratch("equation.xml", AXIS.read_text().replace(
            "<Profile", '<StaEquation staInternal="8000" staAhead="500"/><Profile', 1))
        target = pathlib.Path(self.folder.name) / "equation"
        folder = run(target, axis, "--points", DATA / "surveyed_points.csv", "--json", target.with_suffix(".json"))
        plain = {row["point"]: float(row["stationing"]) for row in rows_of(self.axis / "points_on_axis.csv")}
        for row in rows_of(folder / "points_on_axis.csv"):
            station, *ahead = row["stationing"].split()
            place = plain[row["point"]]
            self.assertEqual(ahead, ["ahead"] if place > 8000 else [])
            self.assertAlmostEqual(float(station), place - 7500 if ahead else place, delta=1e-9)
        self.assertIn("8+000.000 = 0+500.000 ahead", (folder / "plan.svg").read_text())
        self.assertTrue(any("station" in place for place in self.json_of(folder)["axis"]["stations"]))

    def scratch(self, name, text):
        path = pathlib.Path(self.folder.name) / name
        path.write_text(text)
        return path

    def test_an_axis_without_profile_and_a_strange_name(self):
        text = AXIS.read_text()
        start, end = text.index("<Profile"), text.index("</Profile>") + len("</Profile>")
        axis = self.scratch("plan\x1b<&>.xml", text[:start] + text[end:])
        target = pathlib.Path(self.folder.name) / "plan"
        folder = run(target, axis, "--points", DATA / "surveyed_points.csv", "--json", target.with_suffix(".json"))
        self.assertFalse((folder / "section.svg").exists())
        point = self.json_of(folder)["points"][0]
        self.assertIsNone(point["height_above_axis"])
        plain = rows_of(self.axis / "points_on_axis.csv")[0]
        self.assertAlmostEqual(point["offset"], float(plain["offset"]), delta=1e-4)
        words = "".join(ElementTree.parse(folder / "plan.svg").getroot().itertext())
        self.assertIn("<&>.xml", words)
        for path in (folder / "plan.svg", folder / "report.html"):
            self.assertNotIn("\x1b", path.read_text())

    def test_sections_need_no_stations(self):
        rows = [f"{name},{2.95 * math.sin(a / 100)},{2.95 * math.cos(a / 100)}" for name in "ab" for a in range(629)]
        sections = self.scratch("bare.csv", "\n".join(["section,x,y", *rows]))
        folder = run(pathlib.Path(self.folder.name) / "bare", "--design", DATA / "lining_5800_design.csv",
                     "--sections", sections)
        for row in rows_of(folder / "sections.csv"):
            self.assertAlmostEqual(float(row["over area"]), math.pi * (2.95**2 - 2.9**2), delta=0.02)
            self.assertNotIn("stationing", row)
        self.assertFalse((folder / "volumes.csv").exists())

    def test_what_does_not_fit_is_told(self):
        points = (DATA / "surveyed_points.csv").read_text().splitlines()[3:]
        swapped = [",".join([p[0], p[2], p[1], p[3]]) for p in (line.split(",") for line in points[:6])]
        head = "id,east,north,height\n"
        check = "station,offset,height_above_axis,east,north,height,azimuth\n"
        place = ",0,0,662670.304,1521355.848,67.2,"
        equation = AXIS.read_text().replace("<Profile", '<StaEquation staInternal="8000" staAhead="7500"/><Profile', 1)
        triangle = "{0},{1},0,3\n{0},{1},3,0\n{0},{1},-3,-2\n"
        rings = ["--design", DATA / "lining_5800_design.csv", "--sections"]
        scan = ["--design", DATA / "road_t9p5_design.csv", "--scan"]
        cases = [
            (["--points"], head + "\n".join(swapped + points[-1:]), 3, "most points lie beside the axis only with east"),
            (["--points"], head + "\n".join(swapped), 1, "east and north are swapped: name the columns"),
            (["--points"], head + "1,5,5,5", 1, "1 lies beside no part of the axis"),
            (["--check"], check + "7225" + place + "150.9", 1, "more than a full circle"),
            (["--check"], check + "7225" + place + "2.6\n99999" + place + "2.6", 0, "station 99+999.000 ahead lies outside"),
            (["--check"], "a,b\n1,2", 1, "there is no column station"),
            (["--setout"], "station\n7310\n99999", 0, "2: the stationing 99+999.000 ahead lies outside the axis"),
            (["--setout"], "station\n99999", 1, "no point lies beside the axis"),
            (["--setout"], "a\n1", 1, "there is no column station"),
            (rings, "x,y\n1,2\n", 1, "there is no column section, ring or station"),
            (rings, "a,b\n1,2\n", 1, "there is no column x"),
            (rings, "section,station,x,y\n" + "".join(triangle.format(i, 8001 + i) for i in range(2001)), 1,
             "2001 sections, more than 2000"),
            (rings, "section,station,x,y\n" + triangle.format(1, 7700) + triangle.format(2, 7300), 0,
             "section 1: station 7+700.000 is there more than once"),
            (scan, "3\n662715.958 1521273.490 67.754\n", 1, "the file ends after 1 of its 3 points"),
            (scan, "1521273.490 662715.958 67.754\n", 1, "east and north are swapped"),
            (["--exclude-above", "1", "--exclude-below", "2", *scan], "1 2 3\n", 2, "--exclude-below must be less"),
        ]
        axis = self.scratch("equation.xml", equation)
        for i, (options, text, code, told) in enumerate(cases):
            done = subprocess.run([PROGRAM, *map(str, (axis, *options, self.scratch(f"{i}.csv", text)))],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, universal_newlines=True)
            self.assertEqual((done.returncode, told in done.stderr), (code, True), f"{told}: {done.stderr}")

    def test_rings_with_every_option(self):
        rings = pathlib.Path(self.folder.name) / "rings.csv"
        lines = (DATA / "lining_5800_rings.csv").read_text().splitlines()
        rings.write_text("\n".join(line for line in lines if line.split(",")[0] in ("ring", "0", "1", "2")) + "\n3,1,0,0,0,1,1")
        target = pathlib.Path(self.folder.name) / "rings"
        folder = run(target, "--design", DATA / "lining_5800_design.csv", "--sections", rings, "--origins",
                     DATA / "lining_5800_origins.csv", "--sort", "--follow-design", "--magnify", "20",
                     "--exclude-above", "2", "--exclude-below", "-2", "--geology-beyond", "0.04",
                     "--geology-from", "0", "--json", target.with_suffix(".json"))
        results = self.json_of(folder)["sections"]["results"]
        self.assertEqual([result["name"] for result in results], ["2", "1", "0"])
        for result in results:
            self.assertLess(result["points_compared"], result["points"])
            self.assertLess(abs(result["largest_over"]["distance"]), 0.06)
        self.assertIn("drawn 20\u00d7", next((folder / "sections").glob("001*.svg")).read_text())


STATION = [DATA / "machine_targets.csv", DATA / "machine_measurements.csv"]


class Station(unittest.TestCase):
    def run(self, result=None):
        with tempfile.TemporaryDirectory() as folder:
            self.folder = pathlib.Path(folder)
            return super().run(result)

    def station(self, *options, fix_points=STATION[0], measurements=STATION[1]):
        json_file = self.folder / "station.json"
        done = subprocess.run([PROGRAM.replace("tunnel_survey", "free_station"), *map(str, (
            fix_points, measurements, "--json", json_file, "--output", self.folder / "station", *options))],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True)
        return done, json.loads(json_file.read_text()) if json_file.exists() else None

    def written(self, name, text):
        (self.folder / name).write_text(text)
        return self.folder / name

    def test_guidance_and_places_on_the_axis(self):
        done, results = self.station("--axis", AXIS, "--origin", "9+214,1.2,2.9", "--boom", "101")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertAlmostEqual(results["on_axis"]["station"], 9212.0, delta=0.1)
        boom = next(point for point in results["points"] if point["id"] == "101")
        self.assertAlmostEqual(boom["on_axis"]["height_above_axis"], 1.2, delta=2.0)
        parallel, straight = results["guidance"]
        for line in (parallel, straight):  # five metres ahead of the boom
            ahead = line["ahead"]
            self.assertLess(math.dist([ahead[k] for k in ("east", "north")], [boom[k] for k in ("east", "north")]), 6.0)

    def test_both_faces_and_heights_of_instrument_and_targets(self):
        head, *rows = STATION[1].read_text().split()
        faces = []
        for row in rows:
            name, horizontal, zenith, distance = row.split(",")
            faces += [row + ",0,1.5", f"{name},{(float(horizontal) + 200) % 400},{400 - float(zenith)},{distance},0,1.5"]
        done, results = self.station(measurements=self.written(
            "faces.csv", "\n".join([head + ",target_height,instrument_height", *faces])))
        _, plain = self.station()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("Repeated sightings", done.stdout)
        self.assertRegex(done.stdout, r"101 +2 +both")
        height = results["station"]["height"]["value"]
        self.assertAlmostEqual(height, plain["station"]["height"]["value"], delta=1e-6)
        self.assertAlmostEqual(results["station"]["height of the ground point"]["value"], height - 1.5, delta=1e-9)

    def test_what_is_doubtful_or_wrong(self):
        targets, measured = STATION[0].read_text(), STATION[1].read_text()
        cases = [
            ({"fix_points": targets + targets.splitlines()[1]}, 0, "fix point T1 is given in line 2 already"),
            ({"fix_points": targets + "T1,662169.3268,1519480.5570,62.8590\n"}, 3, "T1 is given twice, 0.100 m apart"),
            ({"measurements": measured + "101,209.2131,124.9910,6.6762\n"}, 3, "the sightings of 101 differ by"),
            ({"measurements": measured + "x,208.7131,424.9910,6.6762\n"}, 0, "the zenith angle is none from 0"),
            ({"measurements": "id,hz,v,sd,hi\n101,208.6131,124.9910,6.6762,1.5\n102,184.2897,78.7052,6.4271,1.6\n"},
             1, "another set-up"),
            ({"measurements": measured.replace("103,226.1631,92.9196,6.4781", "103,226.1631,92.9196,6.5081")}, 0, ""),
            ({"measurements": "\n".join(line + (",1.5" if i else ",th") for i, line in enumerate(measured.split()))},
             3, "the instrument is tilted by 0.110 gon"),
            ({"options": ("--axis", AXIS, "--origin", "9214,x,2")}, 2, "x is no distance in metres"),
            ({"options": ("--axis", AXIS, "--origin", "99+000,0,2", "--boom", "101")}, 1, "lies beyond the axis"),
        ]
        for case, code, told in cases:
            files = {key: self.written(key + ".csv", text) for key, text in case.items() if key != "options"}
            done, _ = self.station(*case.get("options", ()), **files)
            self.assertEqual((done.returncode, told in done.stderr), (code, True), f"{told}: {done.stderr}")
            outlier = "measurement 103 to fix point" in done.stdout  # 3 cm too far, within the tolerance
            self.assertEqual(outlier, "6.5081" in str(case))

    def test_a_station_that_is_not_computed_is_null(self):
        head, *rows = STATION[1].read_text().split()
        degrees = [",".join([r[0], str(float(r[1]) * 0.9), str(float(r[2]) * 0.9), r[3]])
                   for r in (row.split(",") for row in rows)]
        done, results = self.station(measurements=self.written("degrees.csv", "\n".join([head, *degrees])))
        self.assertEqual(done.returncode, 3)
        self.assertIsNone(results["station"])
        self.assertTrue(any("--angles deg" in doubt for doubt in results["doubts"]))


unittest.main(argv=sys.argv[:1])
