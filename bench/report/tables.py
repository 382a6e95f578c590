"""The tables of results.md."""

from budgets import budgets
from figures import (
    BUFFERED,
    CALL_TITLES,
    EXPECTED,
    JAVA_TITLES,
    LINE_TITLES,
    OWN,
    THREADS,
    WITHOUT_LINES,
    threads_text,
)

_NO_FIGURE = "–"


def table(header, rows):
    """A Markdown table: the first column is text, the others are figures."""
    lines = [header, ["---"] + ["---:"] * (len(header) - 1), *rows]
    return "\n".join("| " + " | ".join(str(cell) for cell in line) + " |" for line in lines)


def number(value):
    if not isinstance(value, (int, float)):
        return str(value)
    return f"{value:,.0f}" if isinstance(value, int) or abs(value) >= 100 else f"{value:.2f}"


def _subject_cell(figures, workload, subject):
    name = f"**{subject}**" if subject == OWN else subject
    flaw = figures.flaw(workload, subject)
    if flaw:
        return f"{name} **({flaw})**"
    checked = not figures.checks or f"{workload}/{subject}" in figures.checks
    return name if checked or workload in WITHOUT_LINES else f"{name} (not checked)"


def _time_cell(figures, workload, subject, threads, clock):
    spread = figures.spread(workload, subject, threads, clock)
    if spread is None:
        return _NO_FIGURE
    cell = f"{number(spread.median)} ({number(spread.low)}–{number(spread.high)})"
    ratio = figures.to_reference(workload, subject, threads)
    return cell if ratio is None else f"{cell} ×{ratio:.2f}"


def line_table(figures, workload, clock="real_time"):
    threads = figures.threads(workload)
    header = [workload] + [threads_text(n) for n in threads]
    rows = [
        [_subject_cell(figures, workload, subject)]
        + [_time_cell(figures, workload, subject, n, clock) for n in threads]
        for subject in figures.subjects(workload)
    ]
    return table(header, rows) if rows else "Not measured."


def _titled_tables(figures, titles):
    for workload, title in titles.items():
        yield f"### {title}\n\n{line_table(figures, workload)}"


def _call_table(figures):
    rows = [
        [title] + [_time_cell(figures, workload, OWN, n, "cpu_time") for n in THREADS]
        for workload, title in CALL_TITLES.items()
    ]
    return table(["Call"] + [threads_text(n) for n in THREADS], rows)


def _budget_table(figures):
    rows = [[row.what, row.limit, row.measured, row.met] for row in budgets(figures)]
    return table(["Budget", "limit", "measured", "met"], rows)


def _heading(key):
    name, _, unit = key.replace("p999", "p99.9").rpartition("_")
    units = {"ns": "ns", "us": "µs", "kb": "kB"}
    return f"{name.replace('_', ' ')} ({units[unit]})" if unit in units else key.replace("_", " ")


def record_tables(records):
    """One table for all records with the same keys."""
    groups = {}
    for record in records or []:
        groups.setdefault(tuple(record), []).append(record)
    tables = (
        table([_heading(k) for k in keys], [[number(r[k]) for k in keys] for r in group])
        for keys, group in groups.items()
    )
    return "\n\n".join(tables) or "Not measured."


def _instruction_table(path):
    if not path.is_file():
        return "Not measured."
    rows = [line.split() for line in path.read_text(encoding="utf-8").splitlines() if line.strip()]
    return table(["Path", "instructions"], [[name, number(int(count))] for name, count in rows])


def _checks(figures):
    if not figures.checks:
        return "The lines were not checked."
    lines = sum(check.get("lines", 0) for check in figures.checks.values())
    flaws = {name: figures.flaw(*name.split("/")) for name in figures.checks}
    bad = [
        f"- {name}: **{flaw}** of {figures.checks[name]['lines']:,}"
        for name, flaw in flaws.items()
        if flaw
    ]
    text = f"{lines:,} lines of {len(figures.checks)} workloads and subjects were read back. "
    if not bad:
        return text + "None is lost, none is torn."
    return text + "These are not sound:\n\n" + "\n".join(bad)


def _missing(figures):
    rows = [f"- {name}" for name in figures.missing_files]
    for workload in EXPECTED:
        # How many threads the Java program runs is its own choice.
        threads = (figures.threads(workload) or [1]) if workload in JAVA_TITLES else THREADS
        for subject, gaps in figures.missing(workload, threads).items():
            rows.append(f"- {workload}/{subject}, threads: {', '.join(map(str, gaps))}")
            if any((workload, subject, n) in figures.too_few_calls for n in gaps):
                rows[-1] += " (a repetition had too few calls to tell)"
    return "\n".join(rows) or "Nothing."


def _other_programs(calls, growth):
    return [
        "## Single calls\n\n" + record_tables(calls.get("calls")),
        "### Calls that roll a file over\n\n" + record_tables(calls.get("rollover")),
        "## Growth",
        "### Rollover beside other files\n\n" + record_tables(growth.get("rollover")),
        "### Start\n\n" + record_tables(growth.get("start_up")),
        "### Memory\n\n" + record_tables(growth.get("memory")),
    ]


def results(figures, instructions):
    """The whole of results.md; `instructions` is the path of the committed counts."""
    repetitions = "–".join(str(n) for n in sorted(set(figures.repetitions())))
    machine = "\n".join(f"- {key}: {value}" for key, value in figures.machine.items())
    sections = [
        "# What a line costs",
        "Written by `scripts/bench`. `python3 bench/report --results DIRECTORY` writes this page "
        "and the plot anew from the figures beside it.\n\n![Median time of a line](lines.svg)",
        f"A cell is the median of {repetitions} interleaved repetitions in nanoseconds a line "
        "(wall time over the lines of all threads), then the quartiles, then the ratio to the bare "
        "system calls of the same run.",
        "## Budgets\n\n" + _budget_table(figures),
        "## Lines that are in the file when the call returns",
        "The ratio of an error line with a limited size is to the cheapest way to read the size "
        "before the write. Every other one is to `bare_write`.",
        *_titled_tables(figures, LINE_TITLES),
        "## Questions and the record of a thread\n\nProcessor time of one call on its own thread, "
        "in nanoseconds.\n\n" + _call_table(figures),
        "## Lines that a buffer or a queue holds back\n\nA process that is killed or crashes loses "
        "the lines that are still in its buffer or queue, so none of these figures can be compared "
        "with those above.\n\n" + line_table(figures, BUFFERED),
        "## From Java\n\nThe ratio is to `file_stream`, a bare stream to a file.",
        *_titled_tables(figures, JAVA_TITLES),
        *_other_programs(figures.calls, figures.growth),
        "## Instructions\n\nOf one walk through each path, as `scripts/instructions` counts "
        "them.\n\n" + _instruction_table(instructions),
        "## Check of the lines\n\n" + _checks(figures),
        "## Not measured\n\n" + _missing(figures),
        "## Machine\n\n" + (machine or "Not recorded."),
    ]
    return "\n\n".join(sections) + "\n"
