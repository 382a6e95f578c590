"""Writes results.md and lines.svg from the figures that scripts/bench left.

python3 bench/report --results DIR                   the page and the plot
python3 bench/report --results DIR --ratios          prints the part of the README
python3 bench/report --results DIR --readme FILE     puts that part in place
"""

import argparse
import os
import pathlib
import sys

# Nothing but the report belongs into the directory of the results or of these modules.
sys.dont_write_bytecode = True

from figures import Figures  # noqa: E402
from fragment import put_in_place, ratios  # noqa: E402
from tables import results  # noqa: E402

_BENCH = pathlib.Path(__file__).resolve().parent.parent
_PLOT = "lines.svg"


def _draw(figures, path):
    try:
        from plot import draw
    except ImportError as error:
        return f"no plot, as matplotlib is missing: {error}"
    return None if draw(figures, path) else "no plot, as no line was measured"


def _arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--results", type=pathlib.Path, default=_BENCH / "results")
    parser.add_argument("--ratios", action="store_true", help="print the part of the README")
    parser.add_argument("--readme", type=pathlib.Path, help="put it between the marks of this file")
    return parser.parse_args()


def main():
    arguments = _arguments()
    if not arguments.results.is_dir():
        raise SystemExit(f"report: there is no directory {arguments.results}")
    figures = Figures(arguments.results)
    if arguments.ratios or arguments.readme:
        page = arguments.readme.resolve().parent if arguments.readme else pathlib.Path.cwd()
        text = ratios(figures, os.path.relpath((arguments.results / _PLOT).resolve(), page))
        if arguments.ratios:
            print(text)
        if arguments.readme:
            put_in_place(arguments.readme, text)
        return
    page = results(figures, _BENCH / "instructions" / "figures.txt")
    (arguments.results / "results.md").write_text(page, encoding="utf-8")
    complaint = _draw(figures, arguments.results / _PLOT)
    for missing in figures.missing_files + ([complaint] if complaint else []):
        print(f"report: {missing}", file=sys.stderr)


if __name__ == "__main__":
    main()
