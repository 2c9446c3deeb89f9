"""The rows of the COBOL to schema run, for run.py.

The compiler is the fake one of the tests, which copies a generated dictionary.
Our own part of a run is its cost less that of the compiler and of the library's
parses of the dictionary and of the mapping file that is read back."""

import os
from pathlib import Path

from measure import GROWTH_GOAL, RunFailed, measure_time, result_of

COMPILER = Path(__file__).resolve().parent.parent / "tests/fake_zbc/zbc"
MEGABYTE = 1e6
COST_GOAL = 0.5  # of the library's parse of the dictionary
PER_BYTE_GOAL = 1.2

# Functions, for the counts of instructions.
GENERATE = "fdmorph::CDMXMLGenerator::GenerateFile(*"
LOOK_UP = "fdmorph::CDMXMLCOBOLExternalMapping::findMapping(fdmorph::CDMXMLElement*"
PARSE = "xercesc_*::AbstractDOMParser::parse(char const*"

FOREIGN_MAPPING = (
    '<?xml version="1.0" encoding="UTF-8"?>\n<xml-cobol-mapping-file>\n'
    "   <xml-cobol-mapping>\n      <cobol-name>NOT-THERE</cobol-name>\n"
    "      <xml-name>there</xml-name>\n   </xml-cobol-mapping>\n</xml-cobol-mapping-file>\n"
)


class DictionaryRun:
    """The commands for one dictionary, with a mapping file that is

    none:    not asked for;
    written: made by each run and read back;
    kept:    there with an entry for each item, each of which is applied;
    foreign: there with one entry that fits no item."""

    def __init__(self, bench, kind, size, mapping):
        self.bench = bench
        self.dictionary = bench.input(kind, size)
        place = self.dictionary.parent
        self.outputs = [place / "out.xsd", place / "out.cpy"]
        source = place / "source" / "a.cbl"
        source.parent.mkdir(exist_ok=True)
        source.touch()
        self.compiler = [COMPILER, source]
        self.ours = [bench.fdmorph, "-noprompt", "-x", self.outputs[0], "-c", self.outputs[1]]
        self.bare_reads = [bench.bare, "document", self.dictionary]
        if mapping != "none":
            file = place / f"{mapping}-map.xml"
            self.ours += ["-m", file]
            self.bare_reads.append(self.keep_mapping(file, mapping, source))
        self.ours.append(source)

    def keep_mapping(self, file, mapping, source):
        """The mapping file that the library reads. It is a copy, because the
        outputs are removed before each command."""
        if mapping == "foreign":
            file.write_text(FOREIGN_MAPPING, encoding="utf-8")
            return file
        kept = file.with_name("kept-map.xml")
        if not kept.exists():
            self.run_once([*self.ours[:-1], kept, source])
        if mapping == "written":
            self.outputs.append(file)
        return kept

    def run_once(self, command):
        """A run that is not measured and must not report anything."""
        self.prepare()
        status, _ = measure_time([str(word) for word in command])
        if status != 0:
            raise RunFailed(f"{' '.join(map(str, command))} ended with status {status}")

    def output_megabytes(self):
        self.run_once(self.ours)
        return sum(output.stat().st_size for output in self.outputs) / MEGABYTE

    def prepare(self):
        """Sets the environment of the runs for this dictionary."""
        folder = str(COMPILER.parent)
        path = os.environ["PATH"].split(os.pathsep)
        if folder not in path:
            os.environ["PATH"] = os.pathsep.join([folder, *path])
        os.environ["FAKE_ZBC_DICTIONARY"] = str(self.dictionary)
        self.bench.outputs.update(self.outputs)

    def own_parts(self):
        """Usages of our runs, and our own part of each."""
        self.prepare()
        commands = [self.ours, self.bare_reads]
        if not self.bench.counts_instructions:  # which leave the compiler out
            commands.append(self.compiler)
        samples = self.bench.alternate(*commands)
        own = [ours.cost - sum(usage.cost for usage in others) for ours, *others in samples]
        return [sample[0] for sample in samples], own

    def parses(self):
        """The library's parses of the dictionary, without its start."""
        bare = self.bench.bare
        samples = self.bench.alternate([bare, "document", self.dictionary], [bare, "start"])
        return [parse.cost - start.cost for parse, start in samples]

    def count(self, command, function):
        self.prepare()
        return self.bench.measure(command, function)


def cost_row(kind, mapping, sizes, quick):
    """Our own part against the parse of the dictionary, and of it the writing
    of the outputs alone."""

    def rows(bench, name):
        for size in quick if bench.quick else sizes:
            run = DictionaryRun(bench, kind, size, mapping)
            usages, own = run.own_parts()
            yield result_of(bench, f"{name} {size:,}", own, run.parses(), COST_GOAL, usages)
            if bench.counts_instructions:
                written = run.count(run.ours, GENERATE)
                parse = run.count(run.bare_reads[:3], PARSE)
                label = f"{name} {size:,}, writing alone"
                costs = [written.cost], [parse.cost]
                yield result_of(bench, label, *costs, COST_GOAL, [written])

    return rows


def growth_row(kind, mapping, small, quick):
    """Our own part at ten times the items."""

    def rows(bench, name):
        size = quick if bench.quick else small
        usages, many = DictionaryRun(bench, kind, 10 * size, mapping).own_parts()
        _, few = DictionaryRun(bench, kind, size, mapping).own_parts()
        label = f"{name} {size:,} to {10 * size:,}"
        yield result_of(bench, label, many, few, GROWTH_GOAL, usages)

    return rows


def per_byte_row(kind, mapping, small):
    """The same where the outputs themselves grow with the square of the depth:
    our own part for each megabyte of them."""

    def rows(bench, name):
        many, few = (DictionaryRun(bench, kind, size, mapping) for size in (10 * small, small))
        costs = []
        for run in (many, few):
            megabytes = run.output_megabytes()
            costs.append([cost / megabytes for cost in run.own_parts()[1]])
        usages, _ = many.own_parts()
        label = f"{name} {small:,} to {10 * small:,}, per MB"
        yield result_of(bench, label, *costs, PER_BYTE_GOAL, usages, f"{bench.unit}/MB")

    return rows


def look_up_row(small):
    """The look-ups alone, in a mapping file that has next to nothing to read,
    at ten times the depth."""

    def rows(bench, name):
        if not bench.counts_instructions:
            return
        runs = (
            DictionaryRun(bench, "deep-dictionary", size, "foreign") for size in (10 * small, small)
        )
        many, few = (run.count(run.ours, LOOK_UP) for run in runs)
        label = f"{name} {small:,} to {10 * small:,}"
        yield result_of(bench, label, [many.cost], [few.cost], GROWTH_GOAL, [many])

    return rows


ROWS = {
    "dictionary": cost_row("flat-dictionary", "written", (10_000, 100_000), (10_000,)),
    "own-dictionary": growth_row("flat-dictionary", "none", 10_000, 5_000),
    "own-dictionary-written": growth_row("flat-dictionary", "written", 10_000, 5_000),
    "own-dictionary-kept": growth_row("flat-dictionary", "kept", 10_000, 5_000),
    "own-deep": per_byte_row("deep-dictionary", "none", 500),
    "own-deep-written": per_byte_row("deep-dictionary", "written", 500),
    "own-deep-foreign": per_byte_row("deep-dictionary", "foreign", 500),
    "deep-look-ups": look_up_row(500),
}
