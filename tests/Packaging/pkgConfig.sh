#!/usr/bin/env bash
# pkgConfig.sh PKG_CONFIG CONSUMER BUILD_FOLDER PREFIX COMPILER FLAGS: builds the consumer by
# pkg-config and one compiler call against the prefix alone, runs it and compares what it prints.
set -euo pipefail
pkgConfig=$1 consumer=$2 build=$3 prefix=$4 compiler=$5 flags=$6

rm -rf "$build"
mkdir -p "$build"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name tolvanite.pc)")
LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
export PKG_CONFIG_PATH LD_LIBRARY_PATH
# eval, since pkg-config escapes the blanks of a path for the shell.
eval "options=($flags $("$pkgConfig" --cflags --libs tolvanite))"
"$compiler" -std=c++20 "$consumer/main.cpp" "${options[@]}" -o "$build/consumer"
"$build/consumer" | diff "$consumer/expected.txt" -
