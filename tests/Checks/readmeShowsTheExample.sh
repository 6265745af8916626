#!/usr/bin/env bash
# readmeShowsTheExample.sh README EXAMPLE: the README's program is the marked part of the example,
# which is compiled and run, without its indentation.
set -euo pipefail
readme=$1 example=$2

shown=$(sed -n '/^```cpp$/,/^```$/p' "$readme" | sed '/^```/d')
marked=$(sed -n '\|// \[readme\]|,\|// \[/readme\]|p' "$example" | sed '1d; $d; s/^  //')
[[ $marked ]] || { echo "$example has no marked part"; exit 1; }
diff <(echo "$shown") <(echo "$marked")
