# SPDX-License-Identifier: BSL-1.0
"""Builds the library with a fault and asks the tests."""

import resource
import shutil
import subprocess
from collections import defaultdict
from dataclasses import dataclass, field
from enum import Enum

# Seconds. Others may use the machine as well.
_COMPILING_AT_MOST = 600
_HANGING_AFTER = 20
_HANGING_FACTOR = 10
# Of all the tests that reach a fault, these are tried before the rest.
_FIRST_TESTS = 12
_FIRST_SECONDS = 0.5
_MEMORY = 4 << 30
_OUTPUT = 64 << 20


class Verdict(Enum):
    CAUGHT = "caught"
    TIMED_OUT = "timed out"
    SURVIVED = "survived"
    EQUIVALENT = "same object code"
    NO_PROGRAM = "does not compile"

    @property
    def counts(self):
        return self in (Verdict.CAUGHT, Verdict.TIMED_OUT, Verdict.SURVIVED)


@dataclass
class Result:
    fault: object
    verdict: Verdict
    tests: list = field(default_factory=list)  # those that were run
    caught_by: str = ""


class Trial:
    """Everything is written below a folder of the trial's own; the sources are only read."""

    def __init__(self, build, reach, source, fault, folder):
        self._build = build
        self._reach = reach
        self._source = source
        self._fault = fault
        self._folder = folder
        self._changed = folder / "src"
        self._objects = {}

    def run(self):
        shutil.rmtree(self._folder, ignore_errors=True)
        self._write_changed_source()
        verdict = self._compile()
        if verdict is None:
            result = self._ask_tests()
        else:
            result = Result(self._fault, verdict)
        shutil.rmtree(self._folder, ignore_errors=True)
        return result

    def _write_changed_source(self):
        path = self._changed.parent / self._fault.path
        path.parent.mkdir(parents=True)
        path.write_text(self._fault.applied_to(self._source.text))

    def _compile(self):
        library, tests = self._build.objects_reading(self._fault.path)
        for made in library:
            if not self._compile_object(made):
                return Verdict.NO_PROGRAM
        if all(self._is_unchanged(made) for made in library):
            return Verdict.EQUIVALENT
        # Two versions of one inline function must not meet in a program.
        if not all(self._compile_object(made) for made in tests):
            return Verdict.NO_PROGRAM
        return None

    def _compile_object(self, made):
        output = self._folder / made.replace("/", "_")
        command = self._build.compile_command(made, self._changed, output)
        done = _run(command, _COMPILING_AT_MOST, cwd=self._build.folder)
        self._objects[made] = output
        return done == 0

    def _is_unchanged(self, made):
        return self._objects[made].read_bytes() == self._build.object_without_fault(made).read_bytes()

    def _ask_tests(self):
        tests = self._reach.likeliest_first(self._tests())
        result = Result(self._fault, Verdict.SURVIVED, tests)
        for batch in _batches(tests, self._reach.seconds):
            by_program = defaultdict(list)
            for program, name in batch:
                by_program[program].append(name)
            for program, names in by_program.items():
                if not self._link(program):
                    return Result(self._fault, Verdict.NO_PROGRAM)
                result.verdict, result.caught_by = self._run_tests(program, names)
                if result.verdict != Verdict.SURVIVED:
                    return result
        return result

    def _tests(self):
        """Where a function is changed, the tests that enter it. What stands outside of functions,
        or is worked out by the compiler, is used anywhere in its file; what a header has inside a
        function may have been copied into any test."""
        path = self._fault.path
        if path.endswith(".h"):
            return set(self._reach.seconds)
        function = self._source.function_around(self._fault.start)
        entering = self._reach.tests_entering(path, function) if function else None
        return entering or self._reach.tests_entering(path)

    def _link(self, program):
        binary = self._folder / program
        if binary.exists():
            return True
        command = self._build.link_command(program, self._objects, binary)
        return _run(command, _COMPILING_AT_MOST, cwd=self._build.folder) == 0

    def _run_tests(self, program, names):
        expected = sum(self._reach.seconds[program, name] for name in names)
        output = self._folder / "output"
        command = [self._folder / program, "--gtest_fail_fast", "--gtest_brief=1",
                   f"--gtest_filter={':'.join(names)}"]
        code = _run(command, _HANGING_AFTER + _HANGING_FACTOR * expected, cwd=self._folder,
                    output=output, limit=_limit_program)
        if code is None:
            return Verdict.TIMED_OUT, ""
        if code == 0:
            return Verdict.SURVIVED, ""
        lines = output.read_text(errors="replace").splitlines()
        failed = [line.split("] ")[1] for line in lines if "FAILED  ]" in line]
        return Verdict.CAUGHT, failed[0] if failed else f"by a crash of {program}"


def _batches(tests, seconds):
    """The likeliest tests by themselves: the rest need not run when they fail."""
    first, duration = 0, 0.0
    while first < min(_FIRST_TESTS, len(tests)) and duration < _FIRST_SECONDS:
        duration += seconds[tests[first]]
        first += 1
    return [batch for batch in (tests[:first], tests[first:]) if batch]


def _limit_program():
    resource.setrlimit(resource.RLIMIT_AS, (_MEMORY, _MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (_OUTPUT, _OUTPUT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


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
