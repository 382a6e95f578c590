"""Prints, as JSON, on what the measuring programs are about to run.

machine.py DIRECTORY    the directory that they will write to
"""

import datetime
import json
import os
import platform
import subprocess
import sys

# What is measured or measures -> the package of the distribution it comes from.
_PACKAGES = {
    "spdlog": "libspdlog-dev",
    "glog": "libgoogle-glog-dev",
    "log4cplus": "liblog4cplus-dev",
    "log4cxx": "liblog4cxx-dev",
    "boost_log": "libboost-log-dev",
    "log4j2": "liblog4j2-java",
    "benchmark": "libbenchmark-dev",
    "C library": "libc6",
}


def _output(*command):
    try:
        return subprocess.check_output(command, stderr=subprocess.DEVNULL, text=True).strip()
    except (OSError, subprocess.CalledProcessError):
        return "unknown"


def _value_in(path, key):
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            name, _, value = line.partition(":")
            if name.strip() == key:
                return value.strip()
    return "unknown"


def _memory():
    kilobytes = _value_in("/proc/meminfo", "MemTotal").split()[0]
    return f"{int(kilobytes) / 1024**2:.1f} GiB" if kilobytes.isdigit() else kilobytes


def describe(directory):
    file_system = _output(
        "findmnt", "--noheadings", "--output", "FSTYPE,OPTIONS", "--target", directory
    )
    return {
        "date": datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
        "processor": _value_in("/proc/cpuinfo", "model name"),
        "cores": len(os.sched_getaffinity(0)),
        "memory": _memory(),
        "kernel": f"{platform.system()} {platform.release()} {platform.machine()}",
        "file system": ", ".join(file_system.split()),
        "load before the run": " ".join(f"{load:.2f}" for load in os.getloadavg()),
        "compiler": _output("c++", "--version").splitlines()[0],
        "Java": _output("java", "--version").splitlines()[0],
        **{
            name: _output("dpkg-query", "--show", "--showformat=${Version}", package)
            for name, package in _PACKAGES.items()
        },
    }


if __name__ == "__main__":
    json.dump(describe(sys.argv[1]), sys.stdout, indent=1)
    print()
