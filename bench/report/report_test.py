"""python3 -B bench/report/report_test.py"""

import json
import pathlib
import tempfile
import unittest

from budgets import budgets
from figures import Figures
from fragment import ratios
from tables import line_table, results


def entry(workload, subject, time, threads=1, **others):
    name = f"{workload}/{subject}/real_time/threads:{threads}"
    times = {"real_time": time, "cpu_time": time, "time_unit": "ns", "iterations": 1000}
    return {"name": name, "run_type": "iteration", "threads": threads, **times, **others}


def figures_of(*entries, checks=None):
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        (directory / "lines.json").write_text(json.dumps({"benchmarks": entries}))
        (directory / "checks.json").write_text(json.dumps(checks or {}))
        return Figures(directory)


def met(figures, what):
    return next(row for row in budgets(figures) if row.what.startswith(what)).met


class ReportTest(unittest.TestCase):
    def test_takes_the_median_of_the_repetitions_and_nothing_else(self):
        times = [entry("error_line", "bare_write", time) for time in (900, 100, 200, 5000, 300)]
        aggregate = entry("error_line", "bare_write", 1e6, run_type="aggregate")
        failed = entry("error_line", "bare_write", 0, error_occurred=True)
        stalled = entry("error_line", "bare_write", 1e6, iterations=99)
        figures = figures_of(*times, aggregate, failed, stalled)
        spread = figures.spread("error_line", "bare_write", 1)
        self.assertEqual((spread.low, spread.median, spread.high), (200, 300, 900))

    def test_takes_the_cheapest_size_reader_of_each_thread_count_as_reference(self):
        costs = [("lseek_write", 100, 1), ("statx_write", 200, 1), ("lseek_write", 300, 2)]
        costs += [("fstat_write", 50, 2), ("zoerrlog", 150, 1), ("zoerrlog", 150, 2)]
        figures = figures_of(*(entry("error_line_limited", *cost) for cost in costs))
        found = [figures.to_reference("error_line_limited", "zoerrlog", n) for n in (1, 2)]
        self.assertEqual(found, [1.5, 3.0])

    def test_a_budget_is_met_up_to_its_limit_and_only_by_lines_that_are_whole(self):
        lost = {"error_line/zoerrlog": {"lines": 9, "lost": 1, "torn": 0}}
        for own, checks, expected in (
            (1200, {}, "yes"),
            (1200.1, {}, "**no**"),
            (1000, lost, "**no** (1 lost)"),
        ):
            times = entry("error_line", "bare_write", 1000), entry("error_line", "zoerrlog", own)
            self.assertEqual(met(figures_of(*times, checks=checks), "Error line, mode 1"), expected)
        self.assertEqual(met(figures_of(), "Error line, mode 1"), "not measured")

    def test_calls_have_to_be_equally_fast_with_any_number_of_threads(self):
        for slowest, expected in ((2.5, "yes"), (2.6, "**no**")):
            times = ((2, 1), (2, 2), (slowest, 4), (2, 8))
            figures = figures_of(*(entry("question_off", "zoerrlog", *time) for time in times))
            self.assertEqual(met(figures, "Question, tracing off, slowest to"), expected)

    def test_shows_lost_and_torn_lines_in_the_row_and_in_the_part_of_the_readme(self):
        checks = {"error_line/glog": {"lines": 9, "lost": 2, "torn": 3}}
        figures = figures_of(entry("error_line", "glog", 5), checks=checks)
        self.assertIn("glog **(2 lost, 3 torn)**", line_table(figures, "error_line"))
        self.assertIn("error_line/glog (2 lost, 3 torn)", ratios(figures, "lines.svg"))

    def test_names_what_is_missing(self):
        page = results(figures_of(entry("error_line", "glog", 5)), pathlib.Path("absent"))
        absent = "error_line/spdlog, threads: 1, 2, 4, 8", "error_line/glog, threads: 2, 4, 8"
        for line in ("java.json", *absent):
            self.assertIn(f"\n- {line}\n", page)


if __name__ == "__main__":
    unittest.main()
