# SPDX-License-Identifier: BSL-1.0
"""Builds the library with a fault and asks the tests."""

import resource
import shutil
import signal
import subprocess
import time
from collections import Counter, defaultdict
from dataclasses import dataclass, field
from enum import Enum
from itertools import accumulate

from build_tree import NOT_SANITIZED

# Seconds of the clock: others may use the machine as well.
_AT_MOST = 600
# Seconds of the processor.
_HANGING_AFTER = 3
_HANGING_FACTOR = 4
# Of all the tests that reach a fault, so many that take so long are tried before the rest, which
# run in an order of their own.
_FIRST_TESTS = ((12, 0.5), (60, 3.0))
# Of those that let a fault pass, the likeliest are tried again under the sanitizers.
_SANITIZED_SECONDS = 0.5
_MEMORY = 4 << 30
_OUTPUT = 64 << 20
# In what a failing test or a sanitizer prints.
_REASONS = ("FAILED  ]", "ERROR: ", "runtime error: ", "Assertion ")


class Verdict(Enum):
    CAUGHT = "caught"
    TIMED_OUT = "timed out"
    SANITIZED = "caught under the sanitizers"
    SURVIVED = "survived"
    EQUIVALENT = "same object code"
    NO_PROGRAM = "does not compile"

    @property
    def counts(self):
        return self not in (Verdict.EQUIVALENT, Verdict.NO_PROGRAM)


@dataclass
class Result:
    fault: object
    verdict: Verdict
    tests: list = field(default_factory=list)  # those that were run
    caught_by: str = ""
    seconds: Counter = field(default_factory=Counter)  # of each step


class Trial:
    """Everything is written below a folder of the trial's own; the sources are only read."""

    def __init__(self, build, reach, source, fault, folder):
        self._build = build
        self._reach = reach
        self._source = source
        self._fault = fault
        self._folder = folder
        self._changed = folder / "src"
        self._seconds = Counter()

    def run(self):
        shutil.rmtree(self._folder, ignore_errors=True)
        self._write_changed_source()
        result = self._try()
        result.seconds = self._seconds
        shutil.rmtree(self._folder, ignore_errors=True)
        return result

    def _write_changed_source(self):
        path = self._changed.parent / self._fault.path
        path.parent.mkdir(parents=True)
        path.write_text(self._fault.applied_to(self._source.text))

    def _try(self):
        library, tests = self._build.objects_reading(self._fault.path)
        programs = self._programs("faulty")
        if not programs.compile(library, self._changed):
            return Result(self._fault, Verdict.NO_PROGRAM)
        if programs.is_unchanged():
            return Result(self._fault, Verdict.EQUIVALENT)
        # Two versions of one inline function must not meet in a program.
        if not programs.compile(tests, self._changed):
            return Result(self._fault, Verdict.NO_PROGRAM)
        result = self._ask_tests(programs, self._tests())
        if result.verdict == Verdict.SURVIVED and self._fails_under_sanitizers(library, tests, result):
            result.verdict = Verdict.SANITIZED
        return result

    def _programs(self, name, sanitized=False):
        return _Programs(self._build, self._reach, self._folder / name, sanitized, self._seconds)

    def _ask_tests(self, programs, tests):
        result = Result(self._fault, Verdict.SURVIVED, tests)
        for batch in _batches(tests, self._reach.seconds):
            by_program = defaultdict(list)
            for program, name in batch:
                by_program[program].append(name)
            for program, names in by_program.items():
                if not programs.link(program):
                    return Result(self._fault, Verdict.NO_PROGRAM)
                result.verdict, result.caught_by = programs.run(program, names)
                if result.verdict != Verdict.SURVIVED:
                    return result
        return result

    def _fails_under_sanitizers(self, library, tests, result):
        """Tries a survivor again with the sanitizers and assertions in what was compiled anew, where
        a place or value that is none is mostly used. Without the fault the same must pass."""
        faulty, faultless = self._programs("sanitized", True), self._programs("faultless", True)
        if not faulty.compile(library, self._changed) or not faulty.compile(tests, self._changed):
            return False
        asked = [test for test in result.tests if test[0] != NOT_SANITIZED]
        likeliest = _likeliest(asked, self._reach.seconds, _SANITIZED_SECONDS)
        caught = self._ask_tests(faulty, likeliest)
        if caught.verdict != Verdict.CAUGHT or not faultless.compile(library + tests):
            return False
        result.caught_by = caught.caught_by
        return self._ask_tests(faultless, likeliest).verdict == Verdict.SURVIVED

    def _tests(self):
        """Where a function is changed, the tests that enter it. What stands outside of functions,
        or is worked out by the compiler, is used anywhere in its file; what a header has inside a
        function may have been copied into any test."""
        path = self._fault.path
        function = self._source.function_around(self._fault.start)
        entering = self._reach.tests_entering(path, function) if function else None
        entering = self._reach.likeliest_first(entering or self._reach.tests_entering(path))
        if not path.endswith(".h"):
            return entering
        return entering + self._reach.likeliest_first(self._reach.seconds.keys() - set(entering))


class _Programs:
    """The tests' programs, linked from objects of which some were compiled anew."""

    def __init__(self, build, reach, folder, sanitized, seconds):
        self._build = build
        self._reach = reach
        self._folder = folder
        self._sanitized = sanitized
        self._seconds = seconds
        self._objects = {}
        folder.mkdir(parents=True)

    def compile(self, objects, changed=None):
        for made in objects:
            output = self._folder / made.replace("/", "_")
            command = self._build.compile_command(made, output, changed, self._sanitized)
            self._objects[made] = output
            if self._run("compiling", command, _AT_MOST, cwd=self._build.folder) != 0:
                return False
        return True

    def is_unchanged(self):
        return all(output.read_bytes() == self._build.object_without_fault(made).read_bytes()
                   for made, output in self._objects.items())

    def link(self, program):
        binary = self._folder / program
        if binary.exists():
            return True
        command = self._build.link_command(program, self._objects, binary, self._sanitized)
        return self._run("linking", command, _AT_MOST, cwd=self._build.folder) == 0

    def run(self, program, names):
        expected = sum(self._reach.seconds[program, name] for name in names)
        output = self._folder / "output"
        command = [self._folder / program, "--gtest_fail_fast", "--gtest_brief=1",
                   f"--gtest_filter={':'.join(names)}"]
        hanging_after = int(_HANGING_AFTER + _HANGING_FACTOR * expected) + 1
        code = self._run("testing", command, _AT_MOST, cwd=self._folder, output=output,
                         limit=lambda: _limit(hanging_after, None if self._sanitized else _MEMORY))
        if code in (None, -signal.SIGXCPU):
            return Verdict.TIMED_OUT, ""
        if code == 0:
            return Verdict.SURVIVED, ""
        lines = output.read_text(errors="replace").splitlines()
        self._note_failed(program, names, lines)
        reasons = [line for line in lines if any(reason in line for reason in _REASONS)]
        return Verdict.CAUGHT, reasons[0] if reasons else f"by a crash of {program}"

    def _note_failed(self, program, names, lines):
        printed = {word.rstrip(",") for line in lines if "FAILED  ]" in line for word in line.split()}
        for name in printed.intersection(names):
            self._reach.caught[program, name] += 1

    def _run(self, step, *arguments, **options):
        started = time.monotonic()
        try:
            return _run(*arguments, **options)
        finally:
            self._seconds[step] += time.monotonic() - started


def _likeliest(tests, seconds, in_all):
    """The first tests, as many as take a time together, and at least one."""
    durations = accumulate(seconds[test] for test in tests)
    return tests[: 1 + sum(1 for duration in durations if duration < in_all)]


def _batches(tests, seconds):
    """The likeliest tests by themselves: the rest need not run when they fail."""
    batches = []
    for count, in_all in _FIRST_TESTS:
        batches.append(_likeliest(tests[:count], seconds, in_all))
        tests = tests[len(batches[-1]):]
    return [batch for batch in (*batches, tests) if batch]


def _limit(seconds, memory):
    """@param memory None where the sanitizers need addresses beyond all memory"""
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
    resource.setrlimit(resource.RLIMIT_FSIZE, (_OUTPUT, _OUTPUT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    if memory is not None:
        resource.setrlimit(resource.RLIMIT_AS, (memory, memory))


def _run(command, seconds, cwd, output=None, limit=None):
    """The exit code, or None after the time."""
    with open(output or "/dev/null", "w") as sink:
        process = subprocess.Popen(command, cwd=cwd, preexec_fn=limit, stdin=subprocess.DEVNULL,
                                   stdout=sink, stderr=subprocess.STDOUT)
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None
        finally:
            if process.poll() is None:
                process.kill()
                process.wait()
