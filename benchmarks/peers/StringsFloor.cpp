#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "../StringsDriver.h"

namespace bench {
namespace {

// Hand-written loops over bytes.
struct Floor {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }

  // Code points only.
  static constexpr bool miscounts = true;
  static std::size_t graphemes(const Text& text) {
    std::size_t count = 0;
    for (const char byte : text) count += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    return count;
  }

  static Text escaped(const Text& text) {
    static const auto entities = [] {
      std::array<const char*, 256> all{};
      all['&'] = "&amp;";
      all['<'] = "&lt;";
      all['>'] = "&gt;";
      all['"'] = "&quot;";
      return all;
    }();
    Text result;
    result.reserve(text.size() + text.size() / 8);
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char* const entity = entities[static_cast<unsigned char>(text[i])];
      if (entity == nullptr) continue;
      result.append(text, start, i - start).append(entity);
      start = i + 1;
    }
    return result.append(text, start);
  }

  static std::vector<std::string_view> splitViews(const Text& text) {
    return splitAs<std::string_view>(text);
  }
  static std::vector<std::string> splitOwned(const Text& text) {
    return splitAs<std::string>(text);
  }

  static Text padded(const Text& text) {
    Text result;
    result.reserve(40);
    return result.append(text).append(40 - text.size(), ' ');
  }

  static Text replaced(const Text& text, const Text& of, const Text& with) {
    Text result;
    result.reserve(text.size());
    const char* place = text.data();
    const char* const end = place + text.size();
    while (const void* found =
               memmem(place, static_cast<std::size_t>(end - place), of.data(), of.size())) {
      result.append(place, static_cast<const char*>(found)).append(with);
      place = static_cast<const char*>(found) + of.size();
    }
    return result.append(place, end);
  }

 private:
  template <class Piece>
  static std::vector<Piece> splitAs(const Text& text) {
    std::vector<Piece> result;
    const char* place = text.data();
    const char* const end = place + text.size();
    while (const void* found = std::memchr(place, ',', static_cast<std::size_t>(end - place))) {
      const char* const comma = static_cast<const char*>(found);
      result.emplace_back(place, static_cast<std::size_t>(comma - place));
      place = comma + 1;
    }
    result.emplace_back(place, static_cast<std::size_t>(end - place));
    return result;
  }
};

const bool registered = registerStrings<Floor>("floor_plain");

}  // namespace
}  // namespace bench
