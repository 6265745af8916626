# Doxygen filter: a header of this project opens with plain // lines that tell what it is for; turn
# them into the documentation of the file. Indented lines are examples; Markdown wants them four
# blanks in. The line that comes in front takes the place of "#pragma once", so that warnings name
# the right lines.
FNR == 1 && /^\/\/ / { introduction = 1; print "/// \\file" }
introduction && /^\/\/ / {
  text = substr($0, 3)
  if (text ~ /^   /) text = "    " text
  print "///" text
  next
}
introduction && /^\/\/$/ { print "///"; next }
introduction { introduction = 0; if (/^#pragma once/) next }
{ print }
