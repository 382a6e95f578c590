"""Reads what the measuring programs left and answers for medians, spreads and ratios."""

import json
import pathlib
import statistics
from dataclasses import dataclass

THREADS = (1, 2, 4, 8)
OWN = "zoerrlog"
PEERS = ("spdlog", "glog", "log4cplus", "log4cxx", "boost_log")
BARE = "bare_write"
# Subjects that do the system calls of a line and nothing else.
REFERENCES = (BARE, "lseek_write", "statx_write", "fstat_write", "file_stream")

LINE_TITLES = {
    "error_line": "Error line (mode 1: the size of the file is not limited)",
    "error_line_limited": "Error line (mode 3: the size of the file is limited)",
    "trace_line_bracketed": "Trace line, bracketed",
    "trace_line_columns": "Trace line, columns",
    "trace_line_delimited": "Trace line, delimited",
    "trace_line_xml": "Trace line, XML",
    "audit_line": "Audit line",
}
CALL_TITLES = {
    "question_off": "Question while tracing is off",
    "question_not_selected": "Question about a component that is not selected",
    "question_selected": "Question about a component that is selected",
    "record_of_a_thread": "Record of a thread",
}
JAVA_TITLES = {
    "java_error_line": "Error line from Java",
    "java_trace_line": "Trace line from Java",
    "java_trace_not_selected": "Trace line from Java that is not selected",
}
BUFFERED = "error_line_buffered"
_JAVA = (OWN, "log4j2", "jul")
EXPECTED = {
    "error_line": (BARE, OWN, *PEERS),
    "error_line_limited": (*REFERENCES[1:4], OWN, "spdlog", "log4cplus"),
    "trace_line_bracketed": (BARE, OWN, *PEERS),
    **dict.fromkeys(tuple(LINE_TITLES)[3:], (BARE, OWN)),
    **dict.fromkeys(CALL_TITLES, (OWN,)),
    BUFFERED: (OWN, "spdlog", "spdlog_async", *PEERS[1:]),
    "java_error_line": ("file_stream", *_JAVA),
    "java_trace_line": ("file_stream", *_JAVA),
    "java_trace_not_selected": (*_JAVA, "zoerrlog_question"),
}
# No lines are written, so none can be looked at afterwards.
WITHOUT_LINES = (*CALL_TITLES, "java_trace_not_selected")
# Google Benchmark chooses the number of calls from one short run. When that run stalls, every
# repetition has so few that its time is that of a cold start.
_FEWEST_CALLS = 100  # of a thread in a repetition
_NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
_FILES = ("lines", "checks", "calls", "growth", "java", "machine")


def threads_text(count):
    return f"{count} thread" if count == 1 else f"{count} threads"


@dataclass(frozen=True)
class Spread:
    """The median of the repetitions and the quartiles around it, in nanoseconds."""

    median: float
    low: float
    high: float

    @staticmethod
    def of(values):
        quartiles = (
            statistics.quantiles(values, n=4, method="inclusive") if len(values) > 1 else values * 3
        )
        return Spread(statistics.median(values), quartiles[0], quartiles[2])


class Figures:
    """The figures of one run. Everything that was not measured is None or empty."""

    def __init__(self, directory):
        directory = pathlib.Path(directory)
        self.missing_files = []
        loaded = {name: self._load(directory / f"{name}.json") for name in _FILES}
        self.calls, self.growth, self.machine = (loaded[n] for n in ("calls", "growth", "machine"))
        self.checks = {name: dict(check) for name, check in loaded["checks"].items()}
        self._times = {}
        self.too_few_calls = set()
        for entry in loaded["lines"].get("benchmarks", []):
            self._add(entry)
        for entry in loaded["java"].get("benchmarks", []):
            self._add(entry)
            self._add_java_check(entry)

    def _load(self, path):
        try:
            return json.loads(path.read_text(encoding="utf-8"))
        except FileNotFoundError:
            self.missing_files.append(path.name)
        except ValueError as error:
            self.missing_files.append(f"{path.name} (not readable: {error})")
        return {}

    def _add(self, entry):
        if entry.get("run_type") != "iteration" or entry.get("error_occurred"):
            return
        workload, subject = entry["name"].split("/")[:2]
        if entry["iterations"] < _FEWEST_CALLS * entry["threads"]:
            self.too_few_calls.add((workload, subject, entry["threads"]))
            return
        unit = _NANOSECONDS[entry.get("time_unit", "ns")]
        for clock in ("real_time", "cpu_time"):
            if clock in entry:
                key = (workload, subject, entry["threads"], clock)
                self._times.setdefault(key, []).append(entry[clock] * unit)

    def _add_java_check(self, entry):
        workload, subject = entry["name"].split("/")[:2]
        if "lost" in entry and workload not in WITHOUT_LINES:
            name = f"{workload}/{subject}"
            check = self.checks.setdefault(name, {"lines": 0, "lost": 0, "torn": 0})
            check["lines"] += entry["iterations"]
            check["lost"] += entry["lost"]
            check["torn"] += entry["torn"]

    def spread(self, workload, subject, threads, clock="real_time"):
        values = self._times.get((workload, subject, threads, clock))
        return Spread.of(values) if values else None

    def median(self, workload, subject, threads, clock="real_time"):
        spread = self.spread(workload, subject, threads, clock)
        return spread.median if spread else None

    def repetitions(self):
        """The smallest and the largest number of repetitions of one figure."""
        counts = [len(values) for values in self._times.values()]
        return (min(counts), max(counts)) if counts else (0, 0)

    def threads(self, workload):
        return sorted({key[2] for key in self._times if key[0] == workload})

    def subjects(self, workload):
        """The subjects that were measured: those that are known in their order, then others."""
        there = dict.fromkeys(key[1] for key in self._times if key[0] == workload)
        known = [name for name in EXPECTED.get(workload, ()) if name in there]
        return known + [name for name in there if name not in known]

    def _cheapest(self, workload, threads, subjects):
        there = [(self.median(workload, name, threads), name) for name in subjects]
        return min((pair for pair in there if pair[0] is not None), default=(None, None))

    def reference(self, workload, threads):
        """(ns, name) of the cheapest subject that only does the system calls of a line."""
        return self._cheapest(workload, threads, REFERENCES)

    def fastest_peer(self, workload, threads):
        """(ns, name) of the fastest other library."""
        others = (n for n in self.subjects(workload) if n not in REFERENCES and n != OWN)
        return self._cheapest(workload, threads, others)

    def to_reference(self, workload, subject, threads):
        own, bare = self.median(workload, subject, threads), self.reference(workload, threads)[0]
        return own / bare if own is not None and bare else None

    def to_fastest_peer(self, workload, threads):
        own, peer = self.median(workload, OWN, threads), self.fastest_peer(workload, threads)[0]
        return own / peer if own is not None and peer else None

    def flaw(self, workload, subject):
        """What the check of the lines found wrong, "" when nothing."""
        check = self.checks.get(f"{workload}/{subject}", {})
        return ", ".join(f"{check[kind]} {kind}" for kind in ("lost", "torn") if check.get(kind))

    def missing(self, workload, threads=THREADS):
        """{subject: thread counts} of what was expected of a workload and is not there."""
        gaps = {}
        for subject in EXPECTED[workload]:
            absent = [n for n in threads if self.spread(workload, subject, n) is None]
            if absent:
                gaps[subject] = absent
        return gaps
