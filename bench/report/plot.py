"""Draws the medians of the lines as grouped bars."""

import statistics

import matplotlib

matplotlib.use("Agg")
# Text stays text, and the same figures give the same bytes.
matplotlib.rcParams.update(
    {
        "svg.fonttype": "none",
        "svg.hashsalt": "zoerrlog",
        "font.family": "sans-serif",
        "font.size": 9,
    }
)

from matplotlib import pyplot  # noqa: E402  (after the choice of what draws)

from figures import LINE_TITLES, OWN, REFERENCES, THREADS, threads_text  # noqa: E402

_SHOWN = ("error_line", "error_line_limited", "trace_line_bracketed")
_OWN_COLOUR, _REFERENCE_COLOUR, _PEER_COLOUR = "#1f5fa8", "#5c6670", "#b4bcc4"
_WIDTH, _BAR_HEIGHT, _PANEL_HEIGHT = 11.0, 0.21, 0.85  # inches
_LABEL_ROOM = 1.35  # how much longer than the longest bar an axis is
_LONGEST = 6  # in medians of all bars: one slow subject must not make the others invisible


def _colour(subject):
    if subject == OWN:
        return _OWN_COLOUR
    return _REFERENCE_COLOUR if subject in REFERENCES else _PEER_COLOUR


def _draw_panel(axes, figures, workload, threads, longest):
    subjects = figures.subjects(workload)
    for row, subject in enumerate(subjects):
        time = figures.median(workload, subject, threads)
        if time is not None:
            axes.barh(row, min(time, longest), height=0.72, color=_colour(subject))
        # On white, so that the line of the reference does not cross the digits.
        axes.annotate(
            "not measured" if time is None else "→ " * (time > longest) + f"{time:,.0f}",
            (min(time or 0, longest), row),
            xytext=(4, 0),
            textcoords="offset points",
            va="center",
            fontsize=8,
            fontweight="bold" if subject == OWN else "normal",
            bbox={"facecolor": "white", "edgecolor": "none", "pad": 0.8},
            zorder=3,
        )
    bare = figures.reference(workload, threads)[0]
    if bare is not None:
        axes.axvline(bare, color="#c0392b", linewidth=0.9, linestyle="--", zorder=2)
    marks = ["*" if figures.flaw(workload, subject) else "" for subject in subjects]
    axes.set_yticks(range(len(subjects)), [s + mark for s, mark in zip(subjects, marks)])
    axes.set_ylim(len(subjects) - 0.4, -0.6)
    axes.set_xlim(0, longest * _LABEL_ROOM)
    axes.set_xticks([])
    axes.tick_params(axis="y", length=0)
    axes.set_title(threads_text(threads), fontsize=9, loc="left")
    for side in ("top", "right", "bottom"):
        axes.spines[side].set_visible(False)


def _draw_workload(part, figures, workload):
    medians = [
        figures.median(workload, subject, threads)
        for subject in figures.subjects(workload)
        for threads in THREADS
    ]
    known = [median for median in medians if median is not None]
    longest = min(max(known), _LONGEST * statistics.median(known))
    part.suptitle(LINE_TITLES[workload], x=0.01, ha="left", fontweight="bold", fontsize=10)
    panels = part.subplots(1, len(THREADS), sharey=True)
    for axes, threads in zip(panels, THREADS):
        _draw_panel(axes, figures, workload, threads, longest)


def draw(figures, path):
    """Writes the plot; the suffix of the path says the format. False when there is no figure."""
    shown = [workload for workload in _SHOWN if figures.threads(workload)]
    if not shown:
        return False
    heights = [
        _PANEL_HEIGHT + _BAR_HEIGHT * len(figures.subjects(workload)) for workload in shown
    ]
    picture = pyplot.figure(
        figsize=(_WIDTH, sum(heights) + 0.5), layout="constrained", facecolor="white"
    )
    flawed = any(figures.flaw(w, subject) for w in shown for subject in figures.subjects(w))
    picture.supxlabel(
        "Median nanoseconds a line, wall time over the lines of all threads. "
        "Dashed: the bare system calls. →: a bar that is cut."
        + (" * lost or torn lines." if flawed else ""),
        fontsize=9,
        x=0.01,
        ha="left",
    )
    parts = picture.subfigures(len(shown), 1, height_ratios=heights, squeeze=False)
    for (part,), workload in zip(parts, shown):
        _draw_workload(part, figures, workload)
    metadata = {"Date": None, "Creator": None} if path.suffix == ".svg" else None
    picture.savefig(path, metadata=metadata)
    pyplot.close(picture)
    return True
