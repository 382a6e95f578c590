#!/usr/bin/env bash
# Installs the built tree, moves it elsewhere, and builds the host that the README shows there.
# installed_tree_test.sh CMAKE COMPILER SOURCE-DIR BUILD-DIR LIBDIR INCLUDEDIR DATADIR
# The functions are called through check, and the backquotes are those of the README:
# shellcheck disable=SC2016,SC2317
set -euo pipefail

cmake=$1 compiler=$2 source=$3 build=$4 libdir=$5 includedir=$6 datadir=$7
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/moved
strict=(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
failures=0

# What the caller's environment may hold must not help the host find its libraries.
unset LD_LIBRARY_PATH DESTDIR

# check <what must hold> <command>...
check() {
    "${@:2}" || { echo "FAILED: $1" >&2 && failures=$((failures + 1)); }
}

installed_headers() {
    (cd "$prefix/$includedir" && find . -name '*.h' -printf '%P\n')
}

# What a host includes leads to every header of the logger; one that it does not reach is private.
only_public_headers_are_installed() {
    echo '#include <zoerrlog/zoerrlog.h>' |
        "$compiler" -std=c++17 -I"$prefix/$includedir" -M -x c++ - |
        grep -o "$prefix/$includedir/zoerrlog/[^ ]*" | sed "s|^$prefix/$includedir/||" |
        sort | diff - <(installed_headers | grep ^zoerrlog/ | sort)
}

public_headers_compile_alone() {
    local header
    for header in $(installed_headers); do
        echo "#include <$header>" | "$compiler" -std=c++17 "${strict[@]}" \
            -I"$prefix/$includedir" -fsyntax-only -x c++ - || return 1
    done
}

# readme_block <info string>: the lines of the first such block.
readme_block() {
    awk -v opening="\`\`\`$1" '/^```/ { if (inside) exit; inside = $0 == opening; next } inside' \
        "$source/README.md"
}

# without_prolog: process, thread and date differ from run to run.
without_prolog() {
    sed -E 's/^\[[0-9]+\/[0-9]+\]\[[A-Z][a-z]{2} [A-Z][a-z]{2} [0-9]{2} [0-9]{4} [0-9:]{8}\]//'
}

# logs_what_the_readme_shows <host program>
logs_what_the_readme_shows() {
    local log logs=$1.logs
    mkdir "$logs"
    "$1" "$logs" "$prefix/$datadir/zoerrlog/resources" "$work/host.conf" || return 1
    for log in error.log trace.log audit.log; do
        [[ -s $logs/$log ]] || return 1
        diff <(without_prolog <"$logs/$log") <(readme_block "text $log" | without_prolog) || return 1
    done
}

find_package_serves_a_host() {
    "$cmake" -S "$work/consumer" -B "$work/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="${strict[*]}" &&
        "$cmake" --build "$work/build" &&
        logs_what_the_readme_shows "$work/build/host"
}

pkg_config_serves_a_host() {
    local flags
    flags=$(PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig pkg-config --cflags --libs zoerrlog) ||
        return 1
    read -ra flags <<<"$flags"
    "$compiler" -std=c++17 "${strict[@]}" "$work/consumer/host.cpp" -o "$work/host" "${flags[@]}" \
        -Wl,-rpath,"$prefix/$libdir" && logs_what_the_readme_shows "$work/host"
}

# exports_only <library> <pattern of its own demangled names>
# Instantiations of the standard library's templates are in every C++ library.
exports_only() {
    local data='(vtable for |VTT for |typeinfo (name )?for |guard variable for )?'
    nm -DC --defined-only "$prefix/$libdir/$1" | cut -d' ' -f2- >"$work/symbols"
    [[ -s $work/symbols ]] || return 1
    ! grep -Ev "^. $data($2)|^[WVuDR] .*\b(std|__gnu_cxx)::" "$work/symbols"
}

"$cmake" --install "$build" --prefix "$work/installed" >"$work/install.log" ||
    { cat "$work/install.log" >&2 && exit 1; }
mv "$work/installed" "$prefix"
cp -r "$source/tests/packaging/consumer" "$work"
readme_block cpp >"$work/consumer/host.cpp"
readme_block "text host.conf" >"$work/host.conf"
check "the public headers alone are installed" only_public_headers_are_installed
check "every public header compiles alone" public_headers_compile_alone
check "find_package serves a host" find_package_serves_a_host
if command -v pkg-config >/dev/null; then
    check "pkg-config serves a host" pkg_config_serves_a_host
else
    echo "note: no pkg-config here, zoerrlog.pc is not checked"
fi
check "libzoerrlog.so exports its interface alone" exports_only libzoerrlog.so \
    'CZo[A-Z]|Cpa[A-Z]|Zo[A-Z]|the(Logger|LoggerList)\(|(get|remove)MyLogger\(|ZoInitLogger$|GetComponentPtr$|GetKnown[A-Z]|GetThreadTraceData\(|initializeThread(Key|Id)\(|getThreadId\(|Java_com_velmora_zoerrlog_ZoLogger_|CTimeValue|CStopwatch|operator[<>=!]+\(CTimeValue'
check "libzoxlate.so exports its interface alone" exports_only libzoxlate.so 'CZoXlate::'
check "libzoi18n.so exports its interface alone" exports_only libzoi18n.so 'Zo[A-Z]\w*\('
exit $((failures > 0))
