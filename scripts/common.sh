# Sourced by the other scripts.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs
jobs=$(nproc)

# Shows a log without what ctest says about tests that passed, and clang-tidy about other headers.
show_log() {
    sed -E '/^ +Start +[0-9]+: /d; / Passed +[0-9.]+ sec$/d; /^[0-9]+ warnings? generated/d' "$1"
}

# quietly <log name> <command>...
# Runs the command with its output in a log, which is shown only when the command fails.
quietly() {
    local log=$logs/$1.log status=0
    shift
    mkdir -p "$logs"
    "$@" >"$log" 2>&1 || status=$?
    if ((status != 0)); then
        show_log "$log" >&2
        echo "failed with status $status: $* (log: $log)" >&2
    fi
    return "$status"
}

# build_preset <preset> [option of cmake --build]...
build_preset() {
    local preset=$1
    shift
    # Presets are looked up in the working directory.
    (cd "$root" && cmake --preset "$preset" &&
        cmake --build --preset "$preset" --parallel "$jobs" "$@")
}
