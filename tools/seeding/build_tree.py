# SPDX-License-Identifier: BSL-1.0
"""A release build that compiles each source alone: how its objects are compiled, what they read, how
the tests are linked."""

import json
import shlex
import shutil
import subprocess
from collections import defaultdict
from pathlib import Path

TEST_PROGRAMS = ("calculationsTests", "sharedUseTests", "faultTests")
# It replaces the allocation functions, by which the address sanitizer knows what may be read.
NOT_SANITIZED = "faultTests"
# Much faster than the compiler's own choice, the first that there is.
_LINKERS = ("mold", "lld", "gold")
# What is wrong with a pointer the address sanitizer tells in less time.
_SANITIZERS = ["-fsanitize=address,undefined,float-cast-overflow",
               "-fno-sanitize=alignment,null,object-size,vptr", "-fno-sanitize-recover=all"]


class BuildTree:
    """Paths of sources are relative to the root of the project, those of objects to the build."""

    def __init__(self, root):
        self.root = root
        self.folder = root / "build" / "seeding"
        self.scratch = self.folder / "trials"

    def build(self):
        """Builds the tests as they are, and those that note which functions they enter."""
        targets = [name for program in TEST_PROGRAMS for name in (program, program + "Traced")]
        self._run("tools/install-packages", "--tests", cwd=self.root)
        self._run("cmake", "--preset", "release", "-B", self.folder, "-DCALCULATIONS_UNITY=OFF",
                  "-DBUILD_PROGRAMS=OFF", "-DBUILD_EXAMPLES=OFF", "-DBUILD_BENCHMARKS=OFF",
                  "-DCMAKE_CXX_FLAGS=-D_GLIBCXX_ASSERTIONS",  # as under the sanitizers
                  cwd=self.root)
        self._run("cmake", "--build", self.folder, "--target", *targets, cwd=self.root)
        self._read_compilations()
        self._read_dependencies()
        self._links = {program: self._link_of(program) for program in TEST_PROGRAMS}
        self._keep_objects()
        self._linker = [f"-fuse-ld={name}" for name in _LINKERS if shutil.which(f"ld.{name}")][:1]

    @staticmethod
    def _run(*command, cwd):
        done = subprocess.run(command, cwd=cwd, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if done.returncode != 0:
            raise SystemExit(f"{done.stdout}\n{shlex.join(map(str, command))} failed")
        return done.stdout

    def _read_compilations(self):
        self._compilations = {}  # of each object: the command, the source
        for entry in json.loads((self.folder / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            made = words[words.index("-o") + 1]
            source = Path(entry["file"])
            if source.is_relative_to(self.root):
                self._compilations[made] = (words, source.relative_to(self.root))

    def _read_dependencies(self):
        self._readers = defaultdict(list)  # of each file: the objects that depend on it
        made = None
        for line in self._run("ninja", "-t", "deps", cwd=self.folder).splitlines():
            if line and not line[0].isspace():
                made = line.split(":")[0]
            elif line.strip() and made in self._compilations:
                read = (self.folder / line.strip()).resolve()
                if read.is_relative_to(self.root):
                    self._readers[str(read.relative_to(self.root))].append(made)

    def _link_of(self, program):
        commands = self._run("ninja", "-t", "commands", f"tests/{program}", cwd=self.folder)
        steps = commands.splitlines()[-1].split(" && ")
        return next(shlex.split(step) for step in steps if f"-o tests/{program}" in step)

    def _keep_objects(self):
        """Copies what the tests are linked from, so that tests may be written and built during a
        run."""
        self._kept = {}
        words = {word for link in self._links.values() for word in link}
        for made in words & self._compilations.keys():
            self._kept[made] = self.scratch / "objects" / made
            self._kept[made].parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(self.folder / made, self._kept[made])

    def object_without_fault(self, made):
        return self._kept[made]

    def objects_reading(self, path):
        """Objects to compile anew when a source changes: those of the library, those of tests."""
        objects = [made for made in self._readers[path] if made in self._kept]
        library = [made for made in objects if made.startswith("src/")]
        return library, [made for made in objects if made not in library]

    def compile_command(self, made, output, changed=None, sanitized=False):
        """Compiles one object.
        @param changed a folder that holds a changed source, at its path below src
        @param sanitized with sanitizers and every library's assertions"""
        words, source = self._compilations[made]
        words = list(words)
        words[words.index("-o") + 1] = str(output)
        if changed is not None:
            copy = changed / source.relative_to("src") if source.parts[0] == "src" else None
            if copy is not None and copy.exists():
                words[words.index("-c") + 1] = str(copy)
            # Includes name the path below src, and of two folders the first one wins.
            first_option = next(i for i, word in enumerate(words) if word.startswith("-"))
            words.insert(first_option, f"-I{changed}")
        if sanitized:
            words += [*_SANITIZERS, "-UNDEBUG", "-O1", "-fno-omit-frame-pointer"]
        # A function without its result is no fault that anybody makes: the compiler warns.
        return words + ["-w", "-Werror=return-type"]

    def link_command(self, program, replaced, output, sanitized=False):
        """@param replaced the new place of each object that was compiled anew"""
        objects = {**self._kept, **replaced}
        words = [str(objects.get(word, word)) for word in self._links[program]]
        words[words.index("-o") + 1] = str(output)
        words[1:1] = self._linker
        if sanitized:
            # Of functions in several objects the first one counts: the checked ones.
            words[1:1] = [*_SANITIZERS, *map(str, replaced.values())]
            words = [w for i, w in enumerate(words) if w not in words[:i] or not w.endswith(".o")]
        return words
