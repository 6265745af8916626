#!/usr/bin/env bash
# checkLibrary.sh LIBRARY: what the shared library shows and needs. It fails, with the names, if the
# library exports anything but its own namespace, or needs a library that is not listed here.
set -euo pipefail
library=$1

needed='libfmt libicui18n libicuuc libicudata libcurl libsimdjson liblz4 libz liblzma'
needed+=' libstdc++ libm libgcc_s libc ld-linux-x86-64'

# In mangled names: what may stand in front of the outermost namespace (a vtable, a thunk, a guard).
front='^_Z(T[VTIS]|Th[n0-9]*_|Tv[n0-9_]*_|GV|GR)?Z*N?[rVKRO]*'
# Our own namespace, and std::hash of our types.
own='9tolvanite|St4hashIN9tolvanite'
# Weak symbols of the standard library are template instantiations; every library shares them.
standard='S[tabsiod]|9__gnu_cxx'

foreign=$(nm --dynamic --defined-only "$library" |
  awk -v own="$front($own)" -v weak="$front($own|$standard)" \
    '$3 !~ ($2 ~ /[WVu]/ ? weak : own) { print $3 }' | c++filt)
if [[ $foreign ]]; then
  printf '%s exports what is not of the namespace tolvanite:\n%s\n' "$library" "$foreign"
  exit 1
fi

LC_ALL=C readelf --dynamic "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\.so.*/\1/p' |
  while read -r name; do
    [[ " $needed " == *" $name "* ]] || {
      echo "$library needs $name, which is not in the list of cmake/checkLibrary.sh"
      exit 1
    }
  done
