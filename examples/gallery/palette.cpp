#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Color/Color.h>
#include <Tolvanite/Color/NamedColor.h>

#include "palette.h"

namespace gallery {

namespace {

using tolvanite::Color;
using tolvanite::ColorScheme;
using tolvanite::NamedColor;

constexpr std::string_view head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>The colours of Tolvanite</title>
<style>
:root { color-scheme: light dark; --page: #ffffff; --text: #1d1d1f; --faint: #5c5c61; --line: #00000022; }
@media (prefers-color-scheme: dark) {
  :root { --page: #1b1b1e; --text: #ececee; --faint: #a5a5ab; --line: #ffffff2e; }
}
* { box-sizing: border-box; }
body { max-width: 84rem; margin: 0 auto; padding: 2rem 1.5rem 4rem;
  background: var(--page); color: var(--text); font: 15px/1.45 system-ui, sans-serif; }
h1 { margin: 0; font-size: 1.9rem; }
h2 { margin: 2.6rem 0 .2rem; font-size: 1.25rem; }
p { margin: 0 0 1rem; max-width: 44rem; color: var(--faint); }
.swatches { display: grid; gap: .5rem; grid-template-columns: repeat(auto-fill, minmax(10.5rem, 1fr)); }
.swatch { display: flex; flex-direction: column; justify-content: flex-end; min-width: 0;
  min-height: 4.4rem; padding: .45rem .6rem; border-radius: .5rem; box-shadow: inset 0 0 0 1px var(--line);
  font-size: .85rem; line-height: 1.3; overflow-wrap: anywhere; }
.swatch b { font-weight: 600; }
.swatch span { font-family: ui-monospace, monospace; }
.rows { display: grid; gap: .5rem; }
.row { display: grid; gap: .5rem; grid-template-columns: 8.5rem repeat(5, minmax(0, 1fr)); }
.row.wide { grid-template-columns: repeat(7, minmax(0, 1fr)); }
.row > h3 { margin: 0; align-self: center; font-size: .85rem; font-weight: 600; }
@media (max-width: 46rem) {
  .row, .row.wide { grid-template-columns: repeat(auto-fill, minmax(6.5rem, 1fr)); }
  .row > h3 { grid-column: 1 / -1; }
}
</style>
</head>
<body>
)";

// A name may be broken before its capitals. It is one of the library's or of this file, so nothing
// in it needs to be escaped.
void writeName(std::ostream& out, std::string_view name) {
  for (const char c : name) {
    if (c >= 'A' && c <= 'Z') out << "<wbr>";
    out << c;
  }
}

void writeSwatch(std::ostream& out, std::string_view name, const Color& color) {
  out << "<div class=\"swatch\" style=\"background:" << color.hexString()
      << ";color:" << color.blackOrWhiteContrastingColor().hexString() << "\"><b>";
  writeName(out, name);
  out << "</b><span>" << color.hexString() << "</span></div>\n";
}

void writeSection(std::ostream& out, std::string_view title, std::string_view text) {
  out << "<h2>" << title << "</h2>\n<p>" << text << "</p>\n";
}

void writeSwatches(std::ostream& out, const std::vector<NamedColor>& colors) {
  out << "<div class=\"swatches\">\n";
  for (const NamedColor& named : colors) writeSwatch(out, named.name, named.color);
  out << "</div>\n";
}

void writeSchemes(std::ostream& out, const NamedColor& named) {
  out << "<h2>Schemes of " << named.name << "</h2>\n<p>The colour, and the four that go with it."
      << "</p>\n<div class=\"rows\">\n";
  for (const ColorScheme scheme : {ColorScheme::analagous, ColorScheme::monochromatic,
                                   ColorScheme::triad, ColorScheme::complementary}) {
    out << "<div class=\"row\"><h3>" << scheme << "</h3>\n";
    writeSwatch(out, named.name, named.color);
    int number = 0;
    for (const Color& color : named.color.colorScheme(scheme)) {
      writeSwatch(out, std::to_string(++number), color);
    }
    out << "</div>\n";
  }
  out << "</div>\n";
}

void writeVariants(std::ostream& out, const std::vector<NamedColor>& colors) {
  writeSection(out, "Variants", "Darker and lighter, the complement, and mixed with white.");
  out << "<div class=\"rows\">\n";
  for (const auto& [name, color] : colors) {
    out << "<div class=\"row wide\">\n";
    writeSwatch(out, "darker by 0.5", color.darkenedColor(0.5));
    writeSwatch(out, "darker by 0.2", color.darkenedColor(0.2));
    writeSwatch(out, name, color);
    writeSwatch(out, "lighter by 0.2", color.lightenedColor(0.2));
    writeSwatch(out, "lighter by 0.5", color.lightenedColor(0.5));
    writeSwatch(out, "complement", color.complementaryColor());
    writeSwatch(out, "half white", color.mixedRGBA(Color::white, 0.5));
    out << "</div>\n";
  }
  out << "</div>\n";
}

// The named colours that are not among the nice ones.
std::vector<NamedColor> furtherColors() {
  const auto& all = tolvanite::allNamedColors();
  return {all.begin() + static_cast<std::ptrdiff_t>(tolvanite::TolvaniteNiceColors().size()),
          all.end()};
}

}  // namespace

void writePalette(std::ostream& out) {
  const std::vector<NamedColor> chosen = {{"denim", Color::denim},
                                          {"emerald", Color::emerald},
                                          {"carrot", Color::carrot},
                                          {"plum", Color::plum}};
  out << head << "<h1>The colours of Tolvanite</h1>\n"
      << "<p>The text on each swatch is black or white, as its colour asks for.</p>\n";
  writeSection(out, "Nice colours", "What a program may offer, by the alphabet.");
  writeSwatches(out, tolvanite::TolvaniteNiceColors());
  writeSection(out, "Further colours", "Black, white, and the bright ones of a phone's interface.");
  writeSwatches(out, furtherColors());
  for (const NamedColor& named : chosen) writeSchemes(out, named);
  writeVariants(out, chosen);
  out << "</body>\n</html>\n";
}

}  // namespace gallery
