#include <charconv>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>

#include "../Values128Driver.h"

// The standard library: string streams, one for each half of a text, and the functions of
// <charconv> by hand.
namespace bench {
namespace {

struct Words {
  std::uint64_t low;
  std::uint64_t high;
};

struct Streams {
  using Value = Words;

  static bool read(const std::string& text, Value& value) {
    return text.size() == 32 && readHalf(text.substr(0, 16), value.high) &&
           readHalf(text.substr(16), value.low);
  }
  static std::string print(const Value& value) {
    std::ostringstream out;
    out << std::hex << std::setfill('0') << std::setw(16) << value.high << std::setw(16)
        << value.low;
    return out.str();
  }

 private:
  static bool readHalf(const std::string& half, std::uint64_t& word) {
    std::istringstream in(half);
    return static_cast<bool>(in >> std::hex >> word) && in.peek() == EOF;
  }
};

struct Charconv {
  using Value = Words;

  static bool read(const std::string& text, Value& value) {
    return text.size() == 32 && readHalf(text.data(), value.high) &&
           readHalf(text.data() + 16, value.low);
  }
  static std::string print(const Value& value) {
    std::string text(32, '0');
    printHalf(text.data(), value.high);
    printHalf(text.data() + 16, value.low);
    return text;
  }

 private:
  static bool readHalf(const char* half, std::uint64_t& word) {
    const auto [end, error] = std::from_chars(half, half + 16, word, 16);
    return error == std::errc() && end == half + 16;
  }
  static void printHalf(char* half, std::uint64_t word) {
    char digits[16];
    const char* const end = std::to_chars(digits, digits + 16, word, 16).ptr;
    const auto count = end - digits;
    std::char_traits<char>::copy(half + 16 - count, digits, static_cast<std::size_t>(count));
  }
};

const bool registered =
    registerValues<Streams>("std_streams") && registerValues<Charconv>("std_charconv");

}  // namespace
}  // namespace bench
