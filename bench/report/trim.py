"""Copies what Google Benchmark wrote, without what the report does not read.

trim.py < RAW > TRIMMED
"""

import json
import sys

_KEPT = ("name", "run_type", "repetition_index", "threads", "iterations", "time_unit")
_TIMES = ("real_time", "cpu_time")


def trimmed(entry):
    kept = {key: entry[key] for key in _KEPT if key in entry}
    return kept | {key: round(entry[key], 3) for key in _TIMES if key in entry}


def main():
    entries = [
        json.dumps(trimmed(entry))
        for entry in json.load(sys.stdin)["benchmarks"]
        if entry.get("run_type") == "iteration" and not entry.get("error_occurred")
    ]
    print('{"benchmarks":[\n' + ",\n".join(entries) + "\n]}")


if __name__ == "__main__":
    main()
