#!/usr/bin/env bash
# test.sh JZIP: packs, checks and unpacks documents in a temporary folder, and looks at what is said
# of wrong calls and damaged files.
set -euo pipefail
jzip=$1
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
cd "$folder"

# expect EXIT_CODE PATTERN ARGUMENT...: what the program must end with, and what it must say.
expect() {
  local code=$1 pattern=$2 said status=0
  shift 2
  said=$("$jzip" "$@" 2>&1) || status=$?
  [[ $status == "$code" && $said == $pattern ]] || {
    printf 'jzip %s: ended with %s where it should with %s, saying:\n%s\n' "$*" "$status" "$code" "$said"
    exit 1
  }
}

for ((i = 0; i < 2000; ++i)); do echo "{\"id\": $i, \"name\": \"number $((i * 7919 % 1000))\"}"; done >a.json
cp a.json original.txt

expect 0 'a.jzip: * bytes of text in *' pack a.json
expect 3 'jzip: will not replace */a.jzip: --force does' pack a.json
expect 0 'a.jzip: *' --force pack a.json
(($(wc -c <a.jzip) * 4 < $(wc -c <a.json)))
expect 0 'a.jzip: *' check a.jzip
rm a.json
expect 0 'a.json: *' unpack a.jzip
cmp a.json original.txt

head -c 1000 a.jzip >cut.jzip
expect 1 'jzip: */cut.jzip is damaged, or no such document' unpack cut.jzip
[[ ! -e cut.json ]]
expect 1 '*a.jzip: *cut.jzip is damaged*a.jzip: *' check a.jzip cut.jzip a.jzip
printf 'bvx$' >nothing.jzip
expect 0 'nothing.jzip: 0 bytes of text in 4' check nothing.jzip
: >empty.json
expect 1 'jzip: */empty.json is empty' pack empty.json
expect 3 'jzip: cannot read */none.json: No such file or directory' pack none.json
mkdir folder.json
expect 3 'jzip: cannot read */folder.json: it is a folder' pack folder.json
expect 2 'jzip: */a.jzip does not end in .json' pack a.jzip
expect 2 'jzip *' pack
expect 2 'jzip *' squeeze a.json
expect 0 'jzip *' --help
