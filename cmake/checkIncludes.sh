#!/usr/bin/env bash
# checkIncludes.sh FILE...: who may include whom. Prints file and line of every wrong include and
# fails if there is one. Files are named from the root of the project, where it is run.
#
# An include never points upward or sideways; the tables below are the design, so change them on
# purpose only.
set -euo pipefail

# PATH (from the start, the first match holds)   ROOM   FLOOR   BRIDGES: ROOMS OF ITS OWN FLOOR
rooms='
Tolvanite/Tolvanite.h               Everything      9
Tolvanite/Platform/                 Platform        0
Tolvanite/Frame/                    Frame           1   Diagnostics
Tolvanite/Diagnostics/FileLogger    Loggers         3
Tolvanite/Diagnostics/CsvLogger     Loggers         3
Tolvanite/Diagnostics/EventLogger   Loggers         3
Tolvanite/Diagnostics/ErrorManager  Loggers         3
Tolvanite/Diagnostics/              Diagnostics     1   Frame
Tolvanite/Text/                     Text            2
Tolvanite/Random/                   Random          2
Tolvanite/Color/                    Color           2
Tolvanite/DataStructures/           DataStructures  2
Tolvanite/Json/                     Json            2   Text
Tolvanite/Foundation/               Foundation      2
Tolvanite/Operations/               Operations      2
Tolvanite/Shortcuts/                Shortcuts       2   Text
Tolvanite/Matrix/                   Matrix          3
Tolvanite/Compression/              Compression     3
Tolvanite/Localization/             Localization    3
'

# LIBRARY (start of the included path)   PATHS OF THE SOURCES THAT MAY USE IT
libraries='
fmt/        Tolvanite/
unicode/    Tolvanite/Frame/ Tolvanite/Text/ Tolvanite/Localization/
curl/       Tolvanite/Platform/Linux/
lz4.h       Tolvanite/Compression/
zlib.h      Tolvanite/Compression/
lzma.h      Tolvanite/Compression/
'

exec awk -v rooms="$rooms" -v libraries="$libraries" '
  function startsWith(text, start) { return substr(text, 1, length(start)) == start }

  function wrong(reason) {
    printf "%s:%d: <%s>: %s\n", FILENAME, FNR, included, reason
    failed = 1
  }

  # The row of the table that a path belongs to, 0 if none.
  function rowOf(path,   row) {
    for (row = 1; row <= rowCount; row++) if (startsWith(path, prefix[row])) return row
    return 0
  }

  function checkOwn(   from, to) {
    from = rowOf(FILENAME)
    to = rowOf(included)
    if (!to) return wrong("no room of the library")
    if (startsWith(included, "Tolvanite/Platform/Linux/") && room[from] != "Platform")
      return wrong("the backend is known to Platform/ only")
    if (room[from] == room[to] || floor[from] > floor[to]) return
    if (index(" " bridges[from] " ", " " room[to] " ") && floor[from] == floor[to]) return
    wrong(room[from] " (floor " floor[from] ") may not include " room[to] " (floor " floor[to] ")")
  }

  function checkForeign(   library, allowed, count, i) {
    # The standard library: a bare name, such as <vector>.
    if (included !~ /[.\/]/) return
    if (FILENAME ~ /\.h$/ && !(included ~ /^sys\// && startsWith(FILENAME, "Tolvanite/Platform/")))
      return wrong("a header shows the standard library and Tolvanite only")
    for (library in places) {
      if (!startsWith(included, library)) continue
      count = split(places[library], allowed, " ")
      for (i = 1; i <= count; i++) if (startsWith(FILENAME, allowed[i])) return
      return wrong("this library may be used in " places[library] " only")
    }
  }

  BEGIN {
    lineCount = split(rooms, lines, "\n")
    for (i = 1; i <= lineCount; i++) {
      fieldCount = split(lines[i], field, " ")
      if (!fieldCount) continue
      prefix[++rowCount] = field[1]
      room[rowCount] = field[2]
      floor[rowCount] = field[3]
      for (j = 4; j <= fieldCount; j++) bridges[rowCount] = bridges[rowCount] " " field[j]
    }
    lineCount = split(libraries, lines, "\n")
    for (i = 1; i <= lineCount; i++) {
      if (!split(lines[i], field, " ")) continue
      places[field[1]] = substr(lines[i], length(field[1]) + 1)
      sub(/^ +/, "", places[field[1]])
    }
  }

  /^[ \t]*#[ \t]*include[ \t]*[<"]/ {
    included = $0
    sub(/^[^<"]*[<"]/, "", included)
    sub(/[>"].*/, "", included)
    inLibrary = startsWith(FILENAME, "Tolvanite/")
    quoted = $0 ~ /^[^<]*"/
    if (quoted && (inLibrary || included ~ /Tolvanite\//))
      wrong("write it as #include <Tolvanite/Room/File.h>")
    else if (!inLibrary) next
    else if (!rowOf(FILENAME)) wrong("this file is in no room of the library")
    else if (startsWith(included, "Tolvanite/")) checkOwn()
    else checkForeign()
  }

  END { exit failed }
' "$@"
