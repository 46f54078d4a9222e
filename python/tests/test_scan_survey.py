# SPDX-License-Identifier: BSL-1.0
"""The example surveys a scan as the program does."""

import csv
import json
import os
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).parents[2]
DATA = ROOT / "examples" / "data"
FILES = [DATA / name for name in ("metro_th_3122m.xml", "road_t9p5_design.csv", "road_scan.csv")]


@pytest.fixture
def program():
    path = os.environ.get("HADREL_TUNNEL_SURVEY")
    if not path:
        pytest.skip("HADREL_TUNNEL_SURVEY names no program; tools/test-python builds it")
    return path


def test_areas_are_those_of_the_program(program, tmp_path):
    subprocess.run([sys.executable, ROOT / "examples" / "python" / "scan_survey.py", *FILES,
                    "--output", tmp_path], check=True, capture_output=True)
    axis, design, scan = FILES
    subprocess.run([program, axis, "--design", design, "--scan", scan, "--spacing", "2", "--slab", "0.5",
                    "--exclude-below", "0.3", "--geology-beyond", "0.4",
                    "--json", tmp_path / "program.json"], check=True, capture_output=True)
    expected = json.loads((tmp_path / "program.json").read_text())["sections"]["results"]
    with (tmp_path / "sections.csv").open() as file:
        rows = list(csv.DictReader(file))
    assert len(rows) == len(expected) == 33
    for row, section in zip(rows, expected):
        assert float(row["stationing"]) == section["stationing"]
        assert int(row["points"]) == section["points"]
        for name in ("design", "measured", "over", "under", "geological"):
            assert float(row[f"{name} area"]) == pytest.approx(section[f"{name}_area"], abs=1e-6)
    assert len(list(tmp_path.glob("section_*.png"))) == 33
    assert (tmp_path / "developed_map.png").exists()
