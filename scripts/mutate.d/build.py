"""A worker's own copy of the sources with a build tree, and what the build says about files, objects and programs."""

import collections
import dataclasses
import filecmp
import functools
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess

import running

# Warnings are no concern here. No debug information: so objects are the same where the code is. A library that changed
# needs no new link of what uses it; the tests of a program are asked for when they are listed, not at every link.
CONFIGURATION = [
    "-DVQ_CIM=standalone", "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_C_FLAGS=-O1 -w", "-DCMAKE_CXX_FLAGS=-O1 -w",
    "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
    "-DCMAKE_C_COMPILER_LAUNCHER=", "-DCMAKE_CXX_COMPILER_LAUNCHER=",
]  # fmt: skip


class BuildFailed(Exception):
    pass


@dataclasses.dataclass(frozen=True)
class Program:
    """A test program, as ctest knows it."""

    target: str  # of ninja
    command: tuple
    directory: str
    environment: tuple
    gtest: bool

    @property
    def name(self):
        return self.target.rpartition("/")[2]


def tracked_files(root):
    """The files of the sources as they are now, those not yet committed included."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(command, cwd=root, check=True, capture_output=True, text=True).stdout
    return [name for name in sorted(set(listed.split("\0"))) if name and (root / name).is_file()]


def digest(root, without):
    """Tells one state of the sources from another; the file `without` may differ."""
    total = hashlib.sha256()
    for name in tracked_files(root):
        if root / name == without:
            continue
        total.update(name.encode() + b"\0" + (root / name).read_bytes())
    return total.hexdigest()


class Build:
    def __init__(self, root, directory):
        self.source = directory / "source"
        self.tree = directory / "build"
        self._copy(root)
        self._run("cmake", "-S", self.source, "-B", self.tree, "-G", "Ninja", *CONFIGURATION)

    def _copy(self, root):
        """Copies what differs, so that a later run builds only that."""
        names = tracked_files(root)
        for path in sorted(self.source.rglob("*"), reverse=True):
            if path.is_file() and str(path.relative_to(self.source)) not in names:
                path.unlink()
        for name in names:
            copy = self.source / name
            if not copy.exists() or not filecmp.cmp(root / name, copy, shallow=False):
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(root / name, copy)
            shutil.copymode(root / name, copy)

    def _run(self, *command):
        process = subprocess.Popen(command, cwd=self.source, text=True, start_new_session=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)  # fmt: skip
        running.begun(process)
        output, _ = process.communicate()
        running.end(process)
        if process.returncode != 0:
            raise BuildFailed(output[-4000:])
        return output

    def make(self, targets, jobs=1):
        self._run("ninja", "-C", self.tree, "-j", str(jobs), *targets)

    def _tests(self):
        return json.loads(self._run("ctest", "--test-dir", self.tree, "--show-only=json-v1"))["tests"]

    def make_programs(self, expression, jobs):
        """Builds everything; with an expression, only the test programs whose names match it."""
        if not expression:
            return self.make(["all"], jobs)
        missing = [test["name"] for test in self._tests() if test["name"].endswith("_NOT_BUILT")]
        names = {name[: -len("_NOT_BUILT")] for name in missing} | {program.name for program in self.programs()}
        matching = sorted(name for name in names if re.search(expression, name))
        if not matching:
            raise BuildFailed(f"no test program matches '{expression}'; there are {', '.join(sorted(names))}")
        return self.make(matching, jobs)

    def programs(self, expression=""):
        """The test programs that ctest runs and this build makes; each once, however many tests it has. Asked for
        after they are built."""
        tests = self._tests()
        listed = self._run("ninja", "-C", self.tree, "-t", "targets", "all")
        targets = set(re.findall(r"^(\S+): ", listed, re.MULTILINE))
        programs = {}
        for test in tests:
            command = test.get("command", [])
            target = os.path.relpath(command[0], self.tree) if command else ""
            if target not in targets:
                continue
            gtest = any(argument.startswith("--gtest_filter=") for argument in command)
            properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
            program = Program(
                target,
                tuple(command[:1] if gtest else command),
                properties.get("WORKING_DIRECTORY", str(self.tree)),
                tuple(properties.get("ENVIRONMENT", ())),
                gtest,
            )
            programs[program.command] = program
        return [program for program in programs.values() if re.search(expression, program.name)]

    @functools.lru_cache(maxsize=None)
    def inputs(self, target):
        """Everything that ninja makes or reads for a target, the libraries that it only loads included."""
        return set(self._run("ninja", "-C", self.tree, "-t", "inputs", target).splitlines())

    @functools.cached_property
    def objects(self):
        """For each source file, from the root of the sources, the objects that are compiled of it."""
        objects = collections.defaultdict(set)
        made = None
        for line in self._run("ninja", "-C", self.tree, "-t", "deps").splitlines():
            if line.startswith("    "):
                path = os.path.normpath(self.tree / line.strip())
                if path.startswith(f"{self.source}/"):
                    objects[os.path.relpath(path, self.source)].add(made)
            elif line:
                made = line.partition(":")[0]
        return objects

    def hash(self, made):
        return hashlib.sha256((self.tree / made).read_bytes()).digest()

    def write(self, name, text):
        pathlib.Path(self.source, name).write_text(text)
