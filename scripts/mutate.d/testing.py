"""Runs tests, each run bounded in time and memory."""

import dataclasses
import os
import re
import resource
import subprocess
import tempfile
import time

import running

MEMORY = 2 << 30  # of one process
FILE_SIZE = 8 << 30  # a test has a file with a hole of 4 GiB
SLOW = 0.05  # seconds, from which on a test is run by itself, after the quick ones


@dataclasses.dataclass
class Unit:
    """What is run at once: the quick tests of a program, or one slow test of it."""

    program: object
    tests: str  # a filter of GoogleTest; empty for a program of another kind
    seconds: float
    killed: int = 0
    ran: int = 0


@dataclasses.dataclass
class Outcome:
    failed: bool
    text: str

    @property
    def reason(self):
        """The test that failed, or how the program ended."""
        failed = re.search(r"^\[  FAILED  \] ([^\s,]+)", self.text, re.MULTILINE)
        began = re.findall(r"^\[ RUN      \] (\S+)", self.text, re.MULTILINE)
        return failed.group(1) if failed else began[-1] if began else ""


def _limits(seconds):
    def set_limits():
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))

    return set_limits


def run(program, tests, seconds, temporary):
    """Runs the program's tests. `seconds` is what they may take of a processor; on a busy machine they may take longer
    by the clock. Whatever they leave running is killed."""
    command = [*program.command]
    if program.gtest:
        command += [f"--gtest_filter={tests or '*'}", "--gtest_fail_fast", "--gtest_color=no"]
    environment = dict(os.environ, TEST_TMPDIR=f"{temporary}/", TMPDIR=str(temporary))
    environment.update(entry.split("=", 1) for entry in program.environment)
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, cwd=program.directory, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=output, stderr=output, start_new_session=True,
                                   preexec_fn=_limits(int(seconds) + 1))  # fmt: skip
        running.begun(process)
        try:
            process.wait(20 * seconds)
        except subprocess.TimeoutExpired:
            pass
        running.end(process)
        output.seek(0)
        return Outcome(process.returncode not in (0, 77), output.read().decode(errors="replace"))


def units(program, temporary, longest):
    """The program's tests as they are to be run, from a run of the sources without a mistake; and the names of those
    that take longer than `longest` seconds and are left out. Raises RuntimeError when a test fails."""
    began = time.monotonic()
    outcome = run(program, "", 600, temporary)
    took = time.monotonic() - began
    if outcome.failed:
        raise RuntimeError(
            f"{program.target} {outcome.reason} fails without a mistake in {program.directory} (if only there, remove "
            f"that copy):\n{outcome.text[-3000:]}"
        )
    if not program.gtest:
        return ([Unit(program, "", took)], []) if took <= longest else ([], [program.target])
    tests = {
        name: int(milliseconds) / 1000
        for name, milliseconds in re.findall(r"^\[       OK \] (\S+).* \((\d+) ms\)$", outcome.text, re.MULTILINE)
    }
    slow = {name: seconds for name, seconds in tests.items() if seconds > SLOW}
    rest = max(took - sum(slow.values()), 0.01)
    quick = [Unit(program, f"*-{':'.join(slow)}", rest)] if len(slow) < len(tests) else []
    single = [Unit(program, name, seconds) for name, seconds in slow.items() if seconds <= longest]
    left_out = [f"{program.target} {name}" for name, seconds in slow.items() if seconds > longest]
    return [*quick, *single], left_out
