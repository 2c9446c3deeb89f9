"""Runs commands and measures what they use, for run.py."""

import math
import os
import re
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

sys.dont_write_bytecode = True
import generate  # noqa: E402

# A sample is the mean of as many runs as fill this time: the kernel splits
# short runs into user and system time only roughly.
SAMPLE_SECONDS = 0.4
MAX_REPEATS = 60

# The stack that fdmorph asks for; valgrind can set it only at the start.
STACK_BYTES = 1 << 30

GROWTH_GOAL = 12  # for ten times the input


class RunFailed(Exception):
    pass


@dataclass(frozen=True)
class Usage:
    cost: float  # user seconds, or millions of instructions
    wall: float  # seconds
    peak: float  # MB


@dataclass(frozen=True)
class Result:
    """One line of the table. The ratios of the single pairs show the noise."""

    name: str
    unit: str
    ours: float
    base: float
    ratios: tuple
    goal: float
    usage: Usage

    @property
    def ratio(self):
        return self.ours / self.base if self.base > 0 else math.inf


def describe(status):
    if status < 0:
        return f"was killed by {signal.Signals(-status).name}"
    return f"ended with status {status}"


def measure_time(command):
    """The exit status of one run, and what it used."""
    null = [
        (os.POSIX_SPAWN_OPEN, descriptor, "/dev/null", os.O_RDWR, 0) for descriptor in (0, 1, 2)
    ]
    begin = time.perf_counter()
    pid = os.posix_spawn(command[0], command, os.environ, file_actions=null)
    _, status, usage = os.wait4(pid, 0)
    wall = time.perf_counter() - begin
    return os.waitstatus_to_exitcode(status), Usage(usage.ru_utime, wall, usage.ru_maxrss / 1000)


def measure_instructions(command, function=None):
    """The same with the number of instructions, which does not depend on the
    load of the machine: of the whole run, or of one function and all that it
    calls. Only the cost is meaningful: a run takes about fifty times as long.
    Other programs that the command starts are not counted."""
    with tempfile.NamedTemporaryFile("r") as log:
        valgrind = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null"]
        valgrind += [f"--main-stacksize={STACK_BYTES}"]
        if function is not None:
            valgrind += [f"--toggle-collect={function}"]
        status = subprocess.run(
            [*valgrind, f"--log-file={log.name}", *command],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            check=False,
        ).returncode
        collected = re.search(r"Collected : (\d+)", log.read())
    if collected is None or int(collected[1]) == 0:
        raise RunFailed("valgrind gave no count for: " + " ".join(command))
    return status, Usage(int(collected[1]) / 1e6, 0, 0)


class Bench:
    def __init__(self, arguments, folder):
        self.fdmorph = os.path.abspath(arguments.fdmorph)
        self.bare = os.path.abspath(arguments.bare_library)
        self.empty = os.path.join(os.path.dirname(self.bare), "empty_program")
        self.reading = os.path.join(os.path.dirname(self.bare), "bare_reading")
        self.zbc = os.path.abspath(arguments.zbc)
        self.fdrec = os.path.abspath(arguments.fdrec)
        self.megabytes = arguments.document_size
        self.quick = arguments.quick
        self.counts_instructions = arguments.instructions
        self.runs = 1 if self.counts_instructions else arguments.runs
        self.unit = "Minstr" if self.counts_instructions else "s"
        self.folder = Path(folder)
        self.inputs = {}
        self.samples = {}
        self.outputs = {self.folder / "out.cpy"}  # removed before each run

    def input(self, kind, size):
        if (kind, size) not in self.inputs:
            self.inputs[kind, size] = generate.generate(kind, size, self.folder)
        return self.inputs[kind, size]

    def measure(self, command, function=None):
        """What a run uses; the part of one function only where instructions are
        counted. The status of fdmorph is the number of its reports, so a status
        alone is not a failure. A report of the bare library means that the input
        is wrong."""
        command = [str(word) for word in command]
        for output in self.outputs:
            output.unlink(missing_ok=True)
        if self.counts_instructions:
            status, usage = measure_instructions(command, function)
        else:
            status, usage = measure_time(command)
        if status < 0 or (command[0] == self.bare and status != 0):
            raise RunFailed(f"{' '.join(command)} {describe(status)}")
        return usage

    def sample(self, command, repeats):
        usages = [self.measure(command) for _ in range(repeats)]
        return Usage(
            statistics.fmean(usage.cost for usage in usages),
            statistics.fmean(usage.wall for usage in usages),
            max(usage.peak for usage in usages),
        )

    def alternate(self, *commands):
        """Samples of the commands, taken in turn."""
        key = tuple(map(tuple, commands))
        if key not in self.samples:
            repeats = 1
            if not self.counts_instructions:
                longest = max(self.measure(command).wall for command in commands)
                repeats = min(MAX_REPEATS, max(1, math.ceil(SAMPLE_SECONDS / longest)))
            self.samples[key] = [
                tuple(self.sample(command, repeats) for command in commands)
                for _ in range(self.runs)
            ]
        return self.samples[key]

    def convert(self, file, options=()):
        return [self.fdmorph, *options, "-noprompt", "-c", self.folder / "out.cpy", file]

    def pairs(self, kind, size, options=()):
        """fdmorph and the bare library on the same schema."""
        file = self.input(kind, size)
        return self.alternate(self.convert(file, options), [self.bare, "schema", file])


def median_usage(usages):
    return Usage(
        statistics.median(usage.cost for usage in usages),
        statistics.median(usage.wall for usage in usages),
        statistics.median(usage.peak for usage in usages),
    )


def compared(bench, name, pairs, goal):
    ours, base = zip(*pairs)
    usage = median_usage(ours)
    ratios = tuple(a.cost / b.cost for a, b in pairs if b.cost > 0)
    return Result(name, bench.unit, usage.cost, median_usage(base).cost, ratios, goal, usage)


def result_of(bench, label, ours, base, goal, usages, unit=None):
    """A result from the costs of the single pairs."""
    ratios = tuple(a / b if b > 0 else math.inf for a, b in zip(ours, base))
    medians = statistics.median(ours), statistics.median(base)
    return Result(label, unit or bench.unit, *medians, ratios, goal, median_usage(usages))
