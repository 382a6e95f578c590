"""The part of the README that shows the plot and the ratios."""

from figures import LINE_TITLES, OWN, THREADS, threads_text
from tables import table

_BEGIN, _END = "<!-- bench -->", "<!-- /bench -->"
_NO_FIGURE = "–"


def _ratio(value, name=""):
    return _NO_FIGURE if value is None else f"{value:.2f} {name}".strip()


def _rows(figures, workload, title):
    own = [_ratio(figures.to_reference(workload, OWN, n)) for n in THREADS]
    yield [title, f"**{OWN}**"] + own
    peers = [figures.fastest_peer(workload, n)[1] for n in THREADS]
    if any(peers):
        yield ["", "fastest peer"] + [
            _ratio(peer and figures.to_reference(workload, peer, n), peer)
            for n, peer in zip(THREADS, peers)
        ]


def ratios(figures, plot):
    """`plot` is the path of the plot as the README has to name it."""
    machine = figures.machine
    rows = []
    for workload, title in LINE_TITLES.items():
        rows += _rows(figures, workload, title)
    known = ("processor", "cores", "kernel", "file system", "date")
    known = [f"{key} {machine[key]}" for key in known if key in machine]
    flaws = [
        f"{workload}/{subject} ({figures.flaw(workload, subject)})"
        for workload in LINE_TITLES
        for subject in figures.subjects(workload)
        if figures.flaw(workload, subject)
    ]
    return "\n\n".join(
        [
            f"![Median time of a line with 1, 2, 4 and 8 threads]({plot})",
            "Time of a line as a multiple of the bare system calls that it needs, measured in the "
            "same run, every line being in the file when the call returns:",
            table(["", ""] + [threads_text(n) for n in THREADS], rows),
            *(["Lines that are not sound: " + ", ".join(flaws) + "."] if flaws else []),
            f"Measured on: {'; '.join(known) or 'a machine that was not recorded'}.",
        ]
    )


def put_in_place(readme, text):
    """Replaces what stands between the two marker comments of the file."""
    page = readme.read_text(encoding="utf-8")
    before, begin, rest = page.partition(_BEGIN)
    _, end, after = rest.partition(_END)
    if not begin or not end:
        raise SystemExit(f"report: {readme} has no {_BEGIN} with a {_END} after it")
    readme.write_text(f"{before}{begin}\n{text}\n{end}{after}", encoding="utf-8")
