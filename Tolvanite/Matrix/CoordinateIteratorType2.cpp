#include <Tolvanite/Matrix/CoordinateIteratorType2.h>

#include <array>
#include <charconv>
#include <memory>

#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

using Type = CoordinateIteratorType2;

namespace {

constexpr std::string_view checkeredPrefix = "checkered-";
constexpr std::array withoutNumber{Type::spiral(true), Type::ordered(), Type::randomOuterLine(),
                                   Type::random()};

// The decimal integer that the whole text is.
Optional<Int> integerIn(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return {};
  }
  Int value = 0;
  const char* const end = std::to_address(text.end());
  const auto [stop, error] = std::from_chars(std::to_address(text.begin()), end, value);
  if (error != std::errc() || stop != end) return {};
  return value;
}

}  // namespace

std::span<const Type> Type::some() {
  static constexpr std::array types{ordered(),    checkered(1),  checkered(2),      checkered(3),
                                    checkered(4), checkered(5),  checkered(6),      checkered(7),
                                    spiral(true), spiral(false), randomOuterLine(), random()};
  return types;
}

Optional<Type> Type::from(std::string_view text) {
  const std::string wanted = lowercased(text);
  if (wanted.starts_with(checkeredPrefix)) {
    const Optional<Int> step = integerIn(std::string_view(wanted).substr(checkeredPrefix.size()));
    return step.isSome() ? Optional<Type>(checkered(*step)) : Optional<Type>();
  }
  // The counter-clockwise spiral is not among them: it cannot be named by text, deliberately.
  for (const Type& type : withoutNumber) {
    if (type.description() == wanted) return type;
  }
  return {};
}

std::string Type::description() const {
  switch (kind_) {
    case Kind::checkered:
      return std::string(checkeredPrefix) + textForm(payload_);
    case Kind::spiral:
      return payload_ == 1 ? "spiral" : "spiralCounterClockwise";
    case Kind::ordered:
      return "ordered";
    case Kind::randomOuterLine:
      return "randomouterline";
    case Kind::random:
      return "random";
  }
  return "";
}

}  // namespace tolvanite
