#include <charconv>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "../VersionsDriver.h"

// The standard library: string streams, and the functions of <charconv> by hand.
namespace bench {
namespace {

struct Parts {
  std::int64_t major;
  std::int64_t minor;
  std::int64_t patch;
  std::vector<std::string> identifiers;
  std::optional<std::string> metadata;
};

struct Base {
  using Value = Parts;

  static std::uint64_t patchOf(const Value& value) {
    return static_cast<std::uint64_t>(value.patch);
  }
  static std::size_t identifierCountOf(const Value& value) { return value.identifiers.size(); }
};

struct Streams : Base {
  static bool read(const std::string& text, Value& value) {
    std::istringstream in(text);
    char first = 0, second = 0;
    if (!(in >> value.major >> first >> value.minor >> second >> value.patch)) return false;
    if (first != '.' || second != '.') return false;
    if (in.peek() == '-') {
      in.get();
      std::string identifiers;
      std::getline(in, identifiers, '+');
      const bool hasMetadata = !in.eof();
      std::istringstream list(identifiers);
      std::string identifier;
      while (std::getline(list, identifier, '.')) value.identifiers.push_back(identifier);
      if (hasMetadata) std::getline(in, value.metadata.emplace());
    } else if (in.peek() == '+') {
      in.get();
      std::getline(in, value.metadata.emplace());
    }
    return in.eof();
  }
  static std::string print(const Value& value) {
    std::ostringstream out;
    out << value.major << '.' << value.minor << '.' << value.patch;
    char separator = '-';
    for (const std::string& identifier : value.identifiers) {
      out << separator << identifier;
      separator = '.';
    }
    if (value.metadata) out << '+' << *value.metadata;
    return out.str();
  }
};

struct Charconv : Base {
  static bool read(const std::string& text, Value& value) {
    const char* at = text.data();
    const char* const end = at + text.size();
    if (!readNumber(at, end, value.major) || at == end || *at++ != '.') return false;
    if (!readNumber(at, end, value.minor) || at == end || *at++ != '.') return false;
    if (!readNumber(at, end, value.patch)) return false;
    if (at == end) return true;
    std::string_view rest(at, static_cast<std::size_t>(end - at));
    if (const std::size_t plus = rest.find('+'); plus != std::string_view::npos) {
      value.metadata = rest.substr(plus + 1);
      rest = rest.substr(0, plus);
    }
    if (rest.empty()) return true;
    if (rest[0] != '-') return false;
    while (!rest.empty()) {
      const std::size_t dot = rest.find('.', 1);
      value.identifiers.emplace_back(rest.substr(1, dot == rest.npos ? dot : dot - 1));
      rest = dot == rest.npos ? std::string_view() : rest.substr(dot);
    }
    return true;
  }
  static std::string print(const Value& value) {
    char numbers[64];
    char* at = std::to_chars(numbers, numbers + 20, value.major).ptr;
    *at++ = '.';
    at = std::to_chars(at, at + 20, value.minor).ptr;
    *at++ = '.';
    at = std::to_chars(at, at + 20, value.patch).ptr;
    std::string text(numbers, at);
    char separator = '-';
    for (const std::string& identifier : value.identifiers) {
      text += separator;
      text += identifier;
      separator = '.';
    }
    if (value.metadata) {
      text += '+';
      text += *value.metadata;
    }
    return text;
  }

 private:
  static bool readNumber(const char*& at, const char* end, std::int64_t& number) {
    const auto [behind, error] = std::from_chars(at, end, number);
    at = behind;
    return error == std::errc();
  }
};

const bool registered =
    registerVersions<Streams>("std_streams") && registerVersions<Charconv>("std_charconv");

}  // namespace
}  // namespace bench
