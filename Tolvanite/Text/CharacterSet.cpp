#include <Tolvanite/Text/CharacterSet.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <Tolvanite/Frame/detail/CodePoints.h>

namespace tolvanite {

namespace {

using Ranges = std::vector<CharacterSet::Range>;

constexpr char32_t lastCodePoint = 0x10FFFF;

Ranges rangesOf(std::string_view characters) {
  Ranges result;
  for (std::size_t position = 0; position < characters.size();) {
    const std::int32_t codePoint = detail::readCodePointInline(characters, position);
    if (codePoint == detail::malformed) continue;
    result.push_back({static_cast<char32_t>(codePoint), static_cast<char32_t>(codePoint)});
  }
  return result;
}

// In ascending order and up to the last code point, with those joined that overlap or touch.
Ranges inOrder(Ranges ranges) {
  for (CharacterSet::Range& range : ranges) range.last = std::min(range.last, lastCodePoint);
  std::erase_if(ranges, [](const CharacterSet::Range& range) { return range.last < range.first; });
  std::ranges::sort(ranges, {}, &CharacterSet::Range::first);
  Ranges result;
  for (const CharacterSet::Range& range : ranges) {
    if (!result.empty() && range.first <= result.back().last + 1) {
      result.back().last = std::max(result.back().last, range.last);
    } else {
      result.push_back(range);
    }
  }
  return result;
}

}  // namespace

CharacterSet::CharacterSet(std::vector<Range> ranges) : ranges_(inOrder(std::move(ranges))) {
  for (const Range& range : ranges_) {
    for (char32_t c = range.first; c <= range.last && c < 0x80; ++c) {
      ascii_[c / 64] |= std::uint64_t{1} << (c % 64);
    }
  }
}

CharacterSet::CharacterSet(std::string_view characters) : CharacterSet(rangesOf(characters)) {}

CharacterSet::CharacterSet(std::initializer_list<Range> ranges) : CharacterSet(Ranges(ranges)) {}

bool CharacterSet::containsBeyondAscii(char32_t codePoint) const {
  const auto next = std::ranges::upper_bound(ranges_, codePoint, {}, &Range::first);
  return next != ranges_.begin() && codePoint <= std::prev(next)->last;
}

CharacterSet CharacterSet::inverted() const {
  Ranges gaps;
  char32_t start = 0;
  for (const Range& range : ranges_) {
    if (range.first > start) gaps.push_back({start, range.first - 1});
    start = range.last + 1;
  }
  if (start <= lastCodePoint) gaps.push_back({start, lastCodePoint});
  return CharacterSet(std::move(gaps));
}

CharacterSet operator|(const CharacterSet& a, const CharacterSet& b) {
  Ranges both = a.ranges_;
  both.insert(both.end(), b.ranges_.begin(), b.ranges_.end());
  return CharacterSet(std::move(both));
}

const CharacterSet& CharacterSet::tvInvalidForFilesystemCharacterSet() {
  static const CharacterSet set("():/\\%|\"<>?+&");
  return set;
}

const CharacterSet& CharacterSet::tvWeakerInvalidForFilesystemCharacterSet() {
  static const CharacterSet set(":/\\|\"<>?+");
  return set;
}

const CharacterSet& CharacterSet::tvPortableForFilesystemCharacterSet() {
  static const CharacterSet set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_");
  return set;
}

const CharacterSet& CharacterSet::base32() {
  static const CharacterSet set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ234567");
  return set;
}

const CharacterSet& CharacterSet::URLTolvaniteAllCombinedAllowed() {
  static const CharacterSet set(
      "#!$&'()*+,-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz~");
  return set;
}

const CharacterSet& CharacterSet::whitespacesAndNewlines() {
  static const CharacterSet set{
      {U'\t', U'\r'},   {U' ', U' '},     {0x85, 0x85},     {0xA0, 0xA0},     {0x1680, 0x1680},
      {0x2000, 0x200A}, {0x2028, 0x2029}, {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000}};
  return set;
}

}  // namespace tolvanite
