# SPDX-License-Identifier: BSL-1.0
"""Which tests enter which functions of the library, and how long they take."""

import json
import os
import subprocess
import sys
from collections import defaultdict

from build_tree import TEST_PROGRAMS


class Reach:
    """Tests are pairs of a program and a name."""

    def __init__(self, build):
        self._build = build
        self._tests_at = defaultdict(set)  # of each file and line of a function's head: tests
        self.seconds = {}  # of each test
        self.functions = defaultdict(int)  # that each test enters
        self.caught = defaultdict(int)  # faults that each test has caught so far
        for program in TEST_PROGRAMS:
            self._measure(program)
            self._trace(program)

    def _measure(self, program):
        report = self._build.scratch / f"{program}.json"
        binary = self._build.folder / "tests" / program
        if not _is_newer(report, binary):
            command = [binary, "--gtest_brief=1", f"--gtest_output=json:{report}"]
            done = subprocess.run(command, stdout=subprocess.PIPE, text=True)
            if done.returncode != 0:
                report.unlink(missing_ok=True)
                raise SystemExit(f"{done.stdout}\nThe tests fail without any fault.")
        for suite in json.loads(report.read_text())["testsuites"]:
            for test in suite["testsuite"]:
                self.seconds[program, f"{suite['name']}.{test['name']}"] = float(test["time"][:-1])

    def _trace(self, program):
        notes = self._build.scratch / f"{program}.trace"
        binary = self._build.folder / "tools" / "seeding" / f"{program}Traced"
        if not _is_newer(notes, binary):
            environment = {**os.environ, "CALCULATIONS_TRACE": str(notes)}
            subprocess.run([binary, "--gtest_brief=1"], env=environment, stdout=subprocess.DEVNULL)
        entered = {}
        for line in notes.read_text().splitlines():
            name, *addresses = line.split()
            entered[program, name] = addresses
        places = self._places_of(binary, {a for addresses in entered.values() for a in addresses})
        for test, addresses in entered.items():
            self.functions[test] = len(addresses)
            for address in addresses:
                self._tests_at[places[address]].add(test)
        if not any(path.startswith("src/") for path, _ in self._tests_at):
            raise SystemExit(f"{binary} enters no function of the library.")

    def _places_of(self, binary, addresses):
        ordered = sorted(addresses)
        answers = subprocess.run(["addr2line", "-e", binary], input="\n".join(ordered), text=True,
                                 stdout=subprocess.PIPE, check=True).stdout.splitlines()
        return {address: self._place(answer) for address, answer in zip(ordered, answers)}

    def _place(self, answer):
        file, line = answer.split(" ")[0].rsplit(":", 1)
        path = os.path.relpath(os.path.normpath(self._build.folder / file), self._build.root)
        return path, int(line) if line.isdigit() else 0

    def tests_entering(self, path, lines=(0, sys.maxsize)):
        """Tests that enter a function of a file whose head stands in the lines (first, last)."""
        first, last = lines
        return {test for (file, line), tests in self._tests_at.items()
                if file == path and first <= line <= last for test in tests}

    def likeliest_first(self, tests):
        """A test that enters few functions asks for what each of them does. One that has caught other
        faults asks for much."""
        def rank(test):
            return (self.functions[test] + 1) * (self.seconds[test] + 0.01) / (self.caught[test] + 1) ** 2
        return sorted(tests, key=rank)


def _is_newer(made, source):
    return made.exists() and made.stat().st_mtime > source.stat().st_mtime
