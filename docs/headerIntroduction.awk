# Doxygen filter: a header of this project opens with plain // lines that tell what it is for; turn
# them into the documentation of the file, in the group of its room. Indented lines are examples;
# Markdown wants them four blanks in. The two lines that come in front take the places of
# "#pragma once" and the empty line behind it, so that warnings name the right lines.
FNR == 1 && /^\/\/ / {
  introduction = 1
  count = split(FILENAME, folders, "/")
  print "/// \\file"
  print "/// \\ingroup " folders[count - 1]
}
introduction && /^\/\/ / {
  text = substr($0, 3)
  if (text ~ /^   /) text = "    " text
  print "///" text
  next
}
introduction && /^\/\/$/ { print "///"; next }
introduction && /^#pragma once/ { introduction = 0; behindPragma = 1; next }
behindPragma && /^$/ { next }
# A comment right behind would become part of the introduction.
behindPragma { behindPragma = 0; if (/^\/\/\//) print "" }
{ introduction = 0; print }
