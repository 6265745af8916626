#!/usr/bin/env bash
# guideShowsTheExamples.sh GUIDE EXAMPLES: every piece of code in the guide stands, but for its
# indentation, in one of the examples of that folder, which are compiled and run.
set -euo pipefail
guide=$1 examples=$2
pieces=$(mktemp -d)
trap 'rm -rf "$pieces"' EXIT

sed 's/^ *//' "$guide" | awk -v folder="$pieces" '
  /^```cpp$/ { piece = folder "/" ++count; next }
  /^```/ { piece = "" }
  piece { print > piece }'
shown=$(sed 's/^ *//' "$examples"/*.cpp)

missing=0
for piece in "$pieces"/*; do
  [[ $'\n'$shown$'\n' == *$'\n'"$(<"$piece")"$'\n'* ]] && continue
  echo "In no example:"
  cat "$piece"
  missing=1
done
exit "$missing"
