#!/usr/bin/env bash
# test.sh DEMO: runs the demo on a temporary folder, in which names are not only text, and looks at
# how it ends and at what it leaves behind.
set -euo pipefail
demo=$1
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
cd "$folder"
export XDG_CACHE_HOME=$folder/caches

for name in plain $'\xff\xfe' $'tab\tline\n\x01' 'a%20b %2' '"quoted\" ?#[]' 'é😀'; do
  mkdir -p "tree/$name"
  for ((i = 0; i < 50; ++i)); do head -c "$i" /dev/zero >"tree/$name/$i.$name"; done
done

"$demo" tree >said || { cat said; exit 1; }
grep -q '^\([0-9]*\) of \1 checks passed: ' said
for name in model.json packed-model.jzip; do
  grep -q "^The model in $folder/caches/tolvanite-demo/$name: " said
done
json=caches/tolvanite-demo/model.json
[[ $(grep -c '"location" : "file:///' $json) == $(grep -c '"key" : ' $json) ]]
grep -q 'file:///%FF%FE/[0-9]*.%FF%FE"' $json
(($(wc -c <caches/tolvanite-demo/packed-model.jzip) * 4 < $(wc -c <$json)))

# Where the document can't be written, the demo says so and fails.
rm $json
mkdir $json
status=0
"$demo" tree >said || status=$?
[[ $status == 1 ]]
grep -q "FAILED: cannot write $folder/$json" said
