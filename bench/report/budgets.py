"""The limits that this library has set itself, and whether the medians keep them."""

from dataclasses import dataclass

from figures import OWN, THREADS, threads_text

# (label, workload, largest ratio to the reference with one thread)
_LINES = (
    ("Error line, mode 1", "error_line", 1.20),
    ("Error line, mode 3", "error_line_limited", 1.20),
    ("Trace line, bracketed", "trace_line_bracketed", 1.30),
)
# (label, workload, nanoseconds, whether threads must not slow each other down)
_CALLS = (
    ("Question, tracing off", "question_off", 5.0, True),
    ("Question, not selected", "question_not_selected", 5.0, True),
    ("Record of a thread", "record_of_a_thread", 20.0, False),
)
# Below this ratio of the slowest to the fastest thread count a call counts as equally fast: what
# two runs of the same program differ by on a shared machine.
_ABOUT_EQUAL = 1.25


@dataclass(frozen=True)
class Budget:
    what: str
    limit: str
    measured: str
    met: str


def _judge(what, value, limit, unit="", flaw="", note=""):
    """`flaw` is what is wrong with the lines that were written: no time makes up for it."""
    shown_limit = f"at most {limit:.2f}{unit}"
    if value is None:
        return Budget(what, shown_limit, "", "not measured")
    met = f"**no** ({flaw})" if flaw else "yes" if value <= limit else "**no**"
    return Budget(what, shown_limit, f"{value:.3f}{unit}{note}", met)


def _line_budgets(figures, label, workload, limit):
    flaw = figures.flaw(workload, OWN)
    yield _judge(
        f"{label}, 1 thread, to {figures.reference(workload, 1)[1] or 'its reference'}",
        figures.to_reference(workload, OWN, 1),
        limit,
        flaw=flaw,
    )
    for threads in THREADS:
        peer = figures.fastest_peer(workload, threads)[1]
        absent = [name for name, gaps in figures.missing(workload).items() if threads in gaps]
        note = f" ({peer}" + (f"; not measured: {', '.join(absent)}" if absent else "") + ")"
        yield _judge(
            f"{label}, {threads_text(threads)}, to the fastest peer",
            figures.to_fastest_peer(workload, threads),
            1.0,
            flaw=flaw,
            note=note,
        )


def _call_budgets(figures, label, workload, limit, must_be_equal):
    medians = [figures.median(workload, OWN, threads, "cpu_time") for threads in THREADS]
    complete = None not in medians
    counts = ", ".join(str(threads) for threads in THREADS)
    yield _judge(
        f"{label}, the slowest of {counts} threads",
        max(medians) if complete else None,
        limit,
        unit=" ns",
    )
    if must_be_equal:
        ratio = max(medians) / min(medians) if complete and min(medians) > 0 else None
        yield _judge(f"{label}, slowest to fastest of {counts} threads", ratio, _ABOUT_EQUAL)


def budgets(figures):
    rows = []
    for line in _LINES:
        rows += _line_budgets(figures, *line)
    for call in _CALLS:
        rows += _call_budgets(figures, *call)
    return rows
