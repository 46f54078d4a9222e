# SPDX-License-Identifier: BSL-1.0
"""The tutorial runs as it stands, from the top of the repository."""

import re
from pathlib import Path

import matplotlib

ROOT = Path(__file__).parents[2]


def test_tutorial(monkeypatch, tmp_path):
    matplotlib.use("Agg")
    text = (ROOT / "docs" / "python.md").read_text()
    blocks = re.findall(r"^```python\n(.*?)^```", text, re.M | re.S)
    assert len(blocks) >= 4
    (tmp_path / "examples").symlink_to(ROOT / "examples")
    monkeypatch.chdir(tmp_path)
    names = {}
    for block in blocks:
        exec(compile(block, "docs/python.md", "exec"), names)
    assert list(tmp_path.glob("*.png"))
