#!/usr/bin/env bash
# Runs the Java example: compares its two logs, and what it says when there is no library.
# login_host_test.sh JAVA CLASS-PATH LIBRARY RESOURCE-DIR TRACE-CONFIGURATION
set -euo pipefail

logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
host=(-cp "$2" LoginHost "$logs" "$4" "$5")

"$1" -Dcom.velmora.zoerrlog.library="$3" "${host[@]}" >"$logs/printed" 2>&1
# Process, thread and date differ from run to run.
sed -E 's/^\[[0-9]+\/[0-9]+\]\[[^]]+\]//' "$logs"/{printed,error.log,trace.log} | diff - <(
    echo '[LoginHost.java][ERROR][zo-login-00001] Failed password for root from 192.0.2.7 port 22'
    echo '[LoginHost.java][INFO][zo-log-00000] no more logins'
    printf '%s|%s|%s\n' Function SrcFile Message ======== ======= ======= \
        login LoginHost.java 'user root from 192.0.2.7')

("$1" -Dcom.velmora.zoerrlog.library=/no/lib.so "${host[@]}" 2>&1 || true) |
    grep -F "as '/no/lib.so', named by the system property com.velmora.zoerrlog.library"
("$1" -Djava.library.path= "${host[@]}" 2>&1 || true) |
    grep -F "as 'libzoerrlog.so' in java.library.path ''"
