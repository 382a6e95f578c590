#!/usr/bin/env bash
# Runs JUnit's console; fails too when the virtual machine finds fault with native code.
# junit_test.sh JAVA -Xcheck:jni ARGUMENT...
set -euo pipefail

output=$(mktemp)
trap 'rm -f "$output"' EXIT
"$@" 2>&1 | tee "$output"
grep -E '(WARNING|FATAL ERROR) in native method' "$output" && exit 1
# A machine that ends early leaves no summary, whatever its status.
grep -Eq '^\[ +[1-9][0-9]* tests successful' "$output"
