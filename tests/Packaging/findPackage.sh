#!/usr/bin/env bash
# findPackage.sh CMAKE CONSUMER BUILD_FOLDER PREFIX COMPILER FLAGS: builds the consumer by
# find_package against the prefix alone, runs it and compares what it prints.
set -euo pipefail
cmake=$1 consumer=$2 build=$3 prefix=$4 compiler=$5 flags=$6

rm -rf "$build"
"$cmake" -S "$consumer" -B "$build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags"
"$cmake" --build "$build"
"$build/consumer" | diff "$consumer/expected.txt" -
