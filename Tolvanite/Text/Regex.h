// A compiled regular expression, with what matches it and its groups as texts.
//
//   const Regex size(R"((?<width>\d+)x(?<height>\d+))");
//   size.match("about 20x30 mm")                        // true
//   size.matchingsOf("20x30, 5x6")                      // "20x30", "5x6"
//   size.groupsOfFirstMatch("about 20x30 mm")           // "20x30", "20", "30"
//   size.groupNumber("height")                          // 2
//   static const Regex word = R"(\p{L}+)"_regex;        // fatal if it does not compile
//
// The expressions are those of ICU: look-ahead and look-behind, named groups, Unicode classes,
// possessive and lazy quantifiers. Texts are UTF-8; what is malformed in one matches as U+FFFD
// would, and stays as it is in the results. A `Regex` never changes: its copies share one compiled
// expression, and any number of threads may match with it at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// How a pattern is read; combine with `|`.
enum class RegexOptions : std::uint32_t {
  none = 0,
  /// Letters match in any case.
  caseInsensitive = 1U << 0U,
  /// White space and "#" comments in the pattern count for nothing.
  allowCommentsAndWhitespace = 1U << 1U,
  /// The pattern is a plain text to look for.
  ignoreMetacharacters = 1U << 2U,
  /// "." matches line ends, too.
  dotMatchesLineSeparators = 1U << 3U,
  /// "^" and "$" match at every line.
  anchorsMatchLines = 1U << 4U,
  /// Only a line feed ends a line.
  useUnixLineSeparators = 1U << 5U,
  /// "\b" finds the words of people, not runs of word characters.
  useUnicodeWordBoundaries = 1U << 6U,
};

/// How a text is searched; combine with `|`.
enum class RegexMatchOptions : std::uint32_t {
  none = 0,
  /// Only a match at the start of the text counts.
  anchored = 1U << 0U,
};

/// Combinations, and what two of them share.
/// @{
constexpr RegexOptions operator|(RegexOptions a, RegexOptions b) noexcept {
  return static_cast<RegexOptions>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr RegexOptions operator&(RegexOptions a, RegexOptions b) noexcept {
  return static_cast<RegexOptions>(static_cast<std::uint32_t>(a) & static_cast<std::uint32_t>(b));
}
constexpr RegexMatchOptions operator|(RegexMatchOptions a, RegexMatchOptions b) noexcept {
  return static_cast<RegexMatchOptions>(static_cast<std::uint32_t>(a) |
                                        static_cast<std::uint32_t>(b));
}
constexpr RegexMatchOptions operator&(RegexMatchOptions a, RegexMatchOptions b) noexcept {
  return static_cast<RegexMatchOptions>(static_cast<std::uint32_t>(a) &
                                        static_cast<std::uint32_t>(b));
}
/// @}

/// A pattern that does not compile, or whose search had to be stopped.
class TOLVANITE_EXPORT RegexError : public Error {
 public:
  /// From its text, and what `pattern` and `offset` are to give.
  RegexError(std::string description, std::string pattern, Int offset)
      : Error(std::move(description)), pattern_(std::move(pattern)), offset_(offset) {}
  RegexError(const RegexError&) = default;
  RegexError(RegexError&&) = default;
  RegexError& operator=(const RegexError&) = default;
  RegexError& operator=(RegexError&&) = default;
  ~RegexError() override;

  /// The pattern that the error is about.
  const std::string& pattern() const noexcept { return pattern_; }
  /// The byte of the pattern where it went wrong; for a search that was stopped, the byte of the
  /// text that it began at.
  Int offset() const noexcept { return offset_; }

 private:
  std::string pattern_;
  Int offset_;
};

/// A compiled regular expression.
///
/// No match is an empty result and never an error. Yet a search that goes on for very long is
/// stopped: those below throw a `RegexError` when the engine took some hundred million steps for
/// one match or needs more than 256 MiB, as a pattern like "(a+)+b" does, and for a text of 2 GiB
/// or more.
class TOLVANITE_EXPORT Regex {
 public:
  /// What a match captured: the whole match first, then each group of the pattern; a group that
  /// took no part is absent.
  using Groups = std::vector<Optional<std::string>>;

  /// An unusable one: the pattern is empty, and nothing matches.
  Regex() noexcept = default;
  /// Compiles a pattern. Throws a `RegexError` with the engine's error when it does not compile:
  /// `The pattern "a(" is wrong at offset 2: U_REGEX_MISMATCHED_PAREN`.
  explicit Regex(std::string_view pattern, RegexOptions options = RegexOptions::none);

  /// What it was made from.
  /// @{
  const std::string& pattern() const noexcept { return pattern_; }
  RegexOptions options() const noexcept { return options_; }
  /// @}
  /// Whether there is a compiled expression; not for one without a pattern or moved from.
  bool hasMatcher() const noexcept { return matcher_ != nullptr; }

  /// Whether something in the text matches.
  bool match(std::string_view text, RegexMatchOptions options = RegexMatchOptions::none) const;
  /// The text of every match, in order.
  std::vector<std::string> matchingsOf(std::string_view text,
                                       RegexMatchOptions options = RegexMatchOptions::none) const;
  /// The groups of every match, in order.
  std::vector<Groups> matchingGroupsOf(std::string_view text,
                                       RegexMatchOptions options = RegexMatchOptions::none) const;
  /// The groups of the first match; empty when nothing matches.
  Groups groupsOfFirstMatch(std::string_view text,
                            RegexMatchOptions options = RegexMatchOptions::none) const;

  /// The place of a named group in `Groups`; absent when the pattern has none of that name.
  Optional<Int> groupNumber(std::string_view name) const;

  /// The pattern.
  std::string description() const { return pattern_; }

  /// By pattern and options.
  friend bool operator==(const Regex& a, const Regex& b) noexcept {
    return a.pattern_ == b.pattern_ && a.options_ == b.options_;
  }
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Regex& regex);

 private:
  struct Matcher;
  class Search;

  std::string pattern_;
  RegexOptions options_ = RegexOptions::none;
  std::shared_ptr<const Matcher> matcher_;
};

inline namespace literals {

/// Compiles a pattern that stands in the source; one that does not compile is fatal.
TOLVANITE_EXPORT Regex operator""_regex(const char* pattern, std::size_t length);

}  // namespace literals

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Regex> {
  std::size_t operator()(const tolvanite::Regex& regex) const noexcept {
    return std::hash<std::string>()(regex.pattern()) + static_cast<std::size_t>(regex.options());
  }
};
