#include <Tolvanite/Json/JsonTypes.h>

#include <array>
#include <ostream>

namespace tolvanite {

namespace {

constexpr std::array<std::string_view, 7> typeNames = {"number",     "string", "bool",   "array",
                                                       "dictionary", "null",   "unknown"};
constexpr std::array<std::string_view, 5> errorNames = {
    "unsupportedType", "indexOutOfBounds", "invalidType", "notExist", "notUtf8Encoded"};

std::string_view nameOf(JsonError error) { return errorNames[static_cast<std::size_t>(error)]; }

}  // namespace

Optional<JsonType> jsonType(Int rawValue) {
  if (rawValue < 0 || rawValue >= static_cast<Int>(typeNames.size())) return {};
  return static_cast<JsonType>(rawValue);
}

std::string_view nameOf(JsonType type) { return typeNames[static_cast<std::size_t>(type)]; }

std::ostream& operator<<(std::ostream& out, JsonType type) { return out << nameOf(type); }

std::ostream& operator<<(std::ostream& out, JsonError error) { return out << nameOf(error); }

JsonFailure::JsonFailure(JsonError error)
    : Error("Json: " + std::string(nameOf(error))), error_(error) {}

JsonFailure::~JsonFailure() = default;

}  // namespace tolvanite
