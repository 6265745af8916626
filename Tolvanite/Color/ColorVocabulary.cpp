#include <Tolvanite/Color/ColorVocabulary.h>

#include <cstddef>
#include <ostream>
#include <string_view>

namespace tolvanite {

namespace {

template <typename Enumeration, std::size_t count>
std::ostream& writeName(std::ostream& out, Enumeration value,
                        const std::string_view (&names)[count]) {
  const auto raw = static_cast<Int>(value);
  if (raw < 0 || raw >= static_cast<Int>(count)) return out << raw;
  return out << names[raw];
}

}  // namespace

std::ostream& operator<<(std::ostream& out, ColorScheme scheme) {
  return writeName(out, scheme, {"analagous", "monochromatic", "triad", "complementary"});
}

std::ostream& operator<<(std::ostream& out, ColorFormulation formulation) {
  return writeName(out, formulation, {"rgba", "hsba", "lab", "cmyk"});
}

std::ostream& operator<<(std::ostream& out, ColorDistance distance) {
  return writeName(out, distance, {"cie76", "cie94", "cie2000"});
}

std::ostream& operator<<(std::ostream& out, ColorComparison comparison) {
  return writeName(out, comparison, {"darkness", "lightness", "desaturated", "saturated"});
}

}  // namespace tolvanite
