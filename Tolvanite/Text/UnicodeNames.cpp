#include <Tolvanite/Text/UnicodeNames.h>

#include <algorithm>
#include <array>

#include <unicode/uchar.h>

#include <Tolvanite/Frame/detail/CodePoints.h>

namespace tolvanite {

std::string unicodeName(char32_t scalar) {
  // The longest names of the standard have less than 100 letters.
  std::array<char, 256> name{};
  UErrorCode status = U_ZERO_ERROR;
  const auto size = static_cast<std::int32_t>(name.size());
  const std::int32_t length =
      u_charName(static_cast<UChar32>(scalar), U_EXTENDED_CHAR_NAME, name.data(), size, &status);
  if (U_FAILURE(status)) return {};
  return {name.data(), static_cast<std::size_t>(std::min(length, size))};
}

std::string unicodeName(std::string_view text) {
  std::string result;
  detail::visitScalars(text, [&](char32_t scalar) {
    if (!result.empty()) result += ',';
    result += unicodeName(scalar);
  });
  return result;
}

std::vector<std::string> unicodeNames(
    std::string_view text, std::span<const std::string_view> ignoredCodePointNamePrefixes) {
  std::vector<std::string> result;
  detail::visitScalars(text, [&](char32_t scalar) {
    std::string name = unicodeName(scalar);
    const auto begins = [&](std::string_view prefix) { return name.starts_with(prefix); };
    if (std::ranges::none_of(ignoredCodePointNamePrefixes, begins)) {
      result.push_back(std::move(name));
    }
  });
  return result;
}

std::vector<std::string> unicodeNamesEmojiFiltered(std::string_view text) {
  static constexpr std::array<std::string_view, 4> ignored{
      "ZERO WIDTH JOINER", "VARIATION SELECTOR-16", "EMOJI MODIFIER", "REGIONAL INDICATOR SYMBOL"};
  return unicodeNames(text, ignored);
}

}  // namespace tolvanite
