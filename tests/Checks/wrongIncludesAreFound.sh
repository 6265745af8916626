#!/usr/bin/env bash
# wrongIncludesAreFound.sh CHECK: gives the check of ./dev check a tree with every kind of wrong
# include, and right ones beside them. The wrong ones say so in a comment.
set -euo pipefail
check=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cd "$tree"

mkdir -p Tolvanite/{Platform/Linux,Frame/detail,Diagnostics,DataStructures,Json,Shed} tests
cat >Tolvanite/Platform/Loop.h <<'END'
#include <vector>
#include <sys/types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Frame/Types.h>  // wrong: upward
#include <fmt/format.h>  // wrong: a third party in a header
END
cat >Tolvanite/Platform/Linux/Loop.cpp <<'END'
#include <curl/curl.h>
#include <unistd.h>
#include <Tolvanite/Platform/Linux/Loop.h>
END
cat >Tolvanite/Frame/Types.cpp <<'END'
#include <fmt/format.h>
#include <unicode/brkiter.h>
#include <Tolvanite/Diagnostics/Console.h>
#include <Tolvanite/Frame/detail/Table.h>
#include <Tolvanite/Diagnostics/FileLogger.h>  // wrong: upward, to an exception of its room
#include <Tolvanite/Platform/Linux/Loop.h>  // wrong: past the seam
#include <curl/curl.h>  // wrong: not this library here
  #  include "Types.h"  // wrong: form
// #include <Tolvanite/Json/Json.h>
END
cat >Tolvanite/Diagnostics/FileLogger.cpp <<'END'
#include <Tolvanite/Diagnostics/Console.h>
#include <Tolvanite/Json/Json.h>
END
cat >Tolvanite/DataStructures/Kerray.h <<'END'
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Text/TextTable.h>  // wrong: sideways
#include <Tolvanite/Frames/Types.h>  // wrong: no such room
#include <sys/types.h>  // wrong: a system header above the seams
END
cat >Tolvanite/Json/Json.cpp <<'END'
#include <Tolvanite/Text/TextTable.h>
END
cat >Tolvanite/Shed/Spade.h <<'END'
#include <vector>  // wrong: the file is in no room
END
cat >tests/JsonTest.cpp <<'END'
#include "Helper.h"
#include <curl/curl.h>
#include <Tolvanite/Platform/Linux/Loop.h>
#include "Tolvanite/Json/Json.h"  // wrong: form
END

mapfile -t files < <(find . -type f | sed 's|^\./||' | sort)
status=0
"$check" "${files[@]}" >found || status=$?
((status == 1)) || { echo "ended with $status"; cat found; exit 1; }
diff <(grep -n 'wrong' "${files[@]}" | cut -d: -f1,2) <(cut -d: -f1,2 found) ||
  { cat found; exit 1; }

rm -r Tolvanite/Shed tests
find . -type f -exec sed -i '/wrong/d' {} +
find Tolvanite -type f -print0 | xargs -0 "$check"
