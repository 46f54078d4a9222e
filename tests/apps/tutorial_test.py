# SPDX-License-Identifier: BSL-1.0
"""Runs every command of the tutorial: tutorial_test.py docs/tutorial.md examples/data folder-of-the-programs

What a block of text shows must be what the commands before it print, and its pictures must have the words of the drawings that they
make. With --pictures behind, the pictures are renewed instead."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(sh|text)\n(.*?)^```$", re.S | re.M)


def run(commands, folder, programs):
    path = f"{programs}{os.pathsep}{os.environ['PATH']}"
    done = subprocess.run(["bash", "-e", "-c", commands], cwd=folder, env={**os.environ, "PATH": path},
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, universal_newlines=True)
    if done.returncode != 0:
        sys.exit(f"{commands}\nended with {done.returncode}:\n{done.stdout}")
    return done.stdout


def compare(shown, printed):
    """Each line must be printed. Their order is free: what goes to the error stream comes when it likes."""
    lines = printed.splitlines()
    for line in shown.splitlines():
        if line == "...":
            continue
        pattern = re.escape(line).replace(re.escape("..."), ".*")
        if not any(re.fullmatch(pattern, other) for other in lines):
            sys.exit(f"The tutorial shows\n{line}\nbut printed was\n{printed}")


def words_of(svg):
    return sorted(re.findall(r"<text[^>]*>(.*?)</text>", svg.read_text()))


def main():
    tutorial, data, programs = map(pathlib.Path, sys.argv[1:4])
    text = tutorial.read_text()
    with tempfile.TemporaryDirectory() as root:
        folder = pathlib.Path(root) / "data"
        shutil.copytree(data, folder)
        printed = ""
        for kind, content in BLOCK.findall(text):
            if kind == "sh":
                printed = run(content, folder, programs.resolve())
            else:
                compare(content, printed)
        made = {"tutorial_" + "_".join(path.relative_to(folder).parts): path for path in folder.rglob("*.svg")}
        for name in re.findall(r"\(images/(\S+)\)", text):
            picture = tutorial.parent / "images" / name
            if "--pictures" in sys.argv:
                shutil.copy(made[name], picture)
            elif words_of(picture) != words_of(made[name]):
                sys.exit(f"{picture} is not what the commands draw; --pictures renews it")


main()
