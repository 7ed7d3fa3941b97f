#!/usr/bin/env bash
# Installs a kwFieldDeck build into a temporary prefix and builds the consumer project against
# it: with find_package(kwFieldDeck) and with pkg-config. Both programs must run and succeed.
# Arguments: build folder, consumer source folder, cmake, C++ compiler, scratch folder.
set -euo pipefail
build=$1 source=$2 cmake=$3 cxx=$4 scratch=$5

rm -rf "$scratch"
prefix=$scratch/prefix
"$cmake" --install "$build" --prefix "$prefix" >/dev/null

libdir=$(dirname "$(find "$prefix" -name 'libkwfielddeck.so' -print -quit)")
for installed in "$libdir/libkwfielddeck.so" \
                 "$prefix/include/kwFieldDeck/kwPropertyControl" \
                 "$prefix/include/kwFieldDeck/kwfielddeck_export.h" \
                 "$libdir/cmake/kwFieldDeck/kwFieldDeckConfig.cmake" \
                 "$libdir/pkgconfig/kwfielddeck.pc" \
                 "$prefix/bin/kwfielddeck-form"; do
    [ -e "$installed" ] || { echo "not installed: $installed" >&2; exit 1; }
done
# Only the public headers: no private header and no subsystem folder.
if find "$prefix/include" -name '*_p.h' -o -mindepth 2 -type d | grep . >&2; then
    echo "internal headers installed" >&2
    exit 1
fi
if [ -e "$build/designer" ] && ls "$build"/designer/*.so >/dev/null 2>&1; then
    plugin=$libdir/qt6/plugins/designer/libkwfielddeck-designer.so
    [ -e "$plugin" ] || { echo "Designer plugin not installed: $plugin" >&2; exit 1; }
    # Installed, the plugin finds the installed library by itself.
    if ldd "$plugin" | grep 'not found' >&2; then exit 1; fi
fi
# The installed program finds the installed library by itself.
"$prefix/bin/kwfielddeck-form" --version

echo "== find_package(kwFieldDeck)"
"$cmake" -S "$source" -B "$scratch/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=Release >/dev/null
"$cmake" --build "$scratch/cmake-build" >/dev/null
"$scratch/cmake-build/consumer"

echo "== pkg-config kwfielddeck"
if ! command -v pkg-config >/dev/null; then
    echo "pkg-config is not installed: that half is not checked" >&2
    exit 0
fi
export PKG_CONFIG_PATH=$libdir/pkgconfig
# Qt's headers ask for position-independent code.
"$cxx" -std=c++17 -fPIC "$source/main.cpp" -o "$scratch/consumer-pc" \
    $(pkg-config --cflags --libs kwfielddeck) -Wl,-rpath,"$libdir"
"$scratch/consumer-pc"
