#include <Tolvanite/Matrix/CoordinateIteratorType1.h>

#include <array>

#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

constexpr std::array<std::string_view, 5> names{"ordered", "checkered", "spiral", "randomOuterLine",
                                                "random"};

}  // namespace

std::span<const CoordinateIteratorType1> CoordinateIteratorType1::all() {
  static constexpr std::array<CoordinateIteratorType1, 5> types{ordered, checkered, spiral,
                                                                randomOuterLine, random};
  return types;
}

Optional<CoordinateIteratorType1> CoordinateIteratorType1::from(std::string_view text) {
  const std::string wanted = lowercased(text);
  for (const CoordinateIteratorType1 type : all()) {
    if (lowercased(names.at(type)) == wanted) return type;
  }
  return {};
}

std::string CoordinateIteratorType1::description() const { return std::string(names.at(value_)); }

}  // namespace tolvanite
