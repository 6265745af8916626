// A set of characters to test, replace, strip or trim texts with.
//
//   const CharacterSet vowels("aeiou");
//   vowels.contains(U'e')                                     true
//   tvStringByStrippingCharactersInSet("toolkit", vowels)     "tlkt"
//
// Its members are code points, so that a letter and the mark that follows it are tested one by one.
// Malformed sequences of a text belong to no set.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class TOLVANITE_EXPORT CharacterSet {
 public:
  /// The code points from `first` to `last`, both included.
  struct Range {
    char32_t first;  ///< The lowest code point.
    char32_t last;   ///< The highest code point; below the first, the range is empty.
    friend bool operator==(const Range&, const Range&) = default;
  };

  /// The empty set.
  CharacterSet() = default;
  /// The code points of a text.
  explicit CharacterSet(std::string_view characters);
  /// The code points of the ranges, which may overlap; one that ends before it starts is empty, and
  /// what lies above U+10FFFF is left out.
  CharacterSet(std::initializer_list<Range> ranges);

  /// Whether the code point is a member. Logarithmic in the number of ranges, and at once for
  /// ASCII.
  bool contains(char32_t codePoint) const {
    if (codePoint < 0x80) return ((ascii_[codePoint / 64] >> (codePoint % 64)) & 1) != 0;
    return containsBeyondAscii(codePoint);
  }

  /// The code points, up to U+10FFFF, that are no members.
  CharacterSet inverted() const;

  /// The members of both sets together.
  friend TOLVANITE_EXPORT CharacterSet operator|(const CharacterSet& a, const CharacterSet& b);

  /// The members as ranges, in ascending order; no two of them touch.
  const std::vector<Range>& ranges() const { return ranges_; }

  friend bool operator==(const CharacterSet&, const CharacterSet&) = default;

  /// What does not belong into the name of a file: the characters of `():/\%|"<>?+&`.
  static const CharacterSet& tvInvalidForFilesystemCharacterSet();
  /// The same but for parentheses, percent and ampersand: the characters of `:/\|"<>?+`.
  static const CharacterSet& tvWeakerInvalidForFilesystemCharacterSet();
  /// ASCII letters and digits, "-" and "_".
  static const CharacterSet& tvPortableForFilesystemCharacterSet();
  /// ASCII letters of both cases and the digits 2 to 7.
  static const CharacterSet& base32();
  /// What a URL holds unescaped in at least one of its parts, of user, password, host, path, query
  /// and fragment.
  static const CharacterSet& URLTolvaniteAllCombinedAllowed();
  /// The white space of Unicode, line ends included.
  static const CharacterSet& whitespacesAndNewlines();

 private:
  explicit CharacterSet(std::vector<Range> ranges);
  bool containsBeyondAscii(char32_t codePoint) const;

  std::vector<Range> ranges_;
  std::array<std::uint64_t, 2> ascii_{};
};

}  // namespace tolvanite
