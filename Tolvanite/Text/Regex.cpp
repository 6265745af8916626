#include <Tolvanite/Text/Regex.h>

#include <ostream>
#include <utility>

#include <fmt/format.h>
#include <unicode/regex.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

// For one match: how many ticks of about 10000 steps the engine may take, and how many bytes of
// memory. Enough for any sensible pattern on texts of many megabytes.
constexpr int32_t longestSearch = 10'000;
constexpr int32_t largestStack = 256 << 20;

uint32_t flagsOf(RegexOptions options) {
  constexpr std::pair<RegexOptions, uint32_t> pairs[] = {
      {RegexOptions::caseInsensitive, UREGEX_CASE_INSENSITIVE},
      {RegexOptions::allowCommentsAndWhitespace, UREGEX_COMMENTS},
      {RegexOptions::ignoreMetacharacters, UREGEX_LITERAL},
      {RegexOptions::dotMatchesLineSeparators, UREGEX_DOTALL},
      {RegexOptions::anchorsMatchLines, UREGEX_MULTILINE},
      {RegexOptions::useUnixLineSeparators, UREGEX_UNIX_LINES},
      {RegexOptions::useUnicodeWordBoundaries, UREGEX_UWORD},
  };
  uint32_t flags = 0;
  for (const auto& [option, flag] : pairs) {
    if ((options & option) != RegexOptions::none) flags |= flag;
  }
  return flags;
}

// The byte of the pattern at the engine's place: a line, and the code points before it in the line.
// Lines end as the engine counts them.
std::size_t byteAt(std::string_view pattern, const UParseError& place) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(pattern.data());
  const auto length = static_cast<int32_t>(pattern.size());
  int32_t line = 1;
  int32_t column = 0;
  UChar32 last = 0;
  int32_t index = 0;
  while (index < length && (line < place.line || column < place.offset)) {
    UChar32 codePoint = 0;
    U8_NEXT(bytes, index, length, codePoint);
    if (codePoint == '\r' || codePoint == 0x85 || codePoint == 0x2028 ||
        (codePoint == '\n' && last != '\r')) {
      ++line;
      column = 0;
    } else if (codePoint != '\n') {
      ++column;
    }
    last = codePoint;
  }
  return static_cast<std::size_t>(index);
}

[[noreturn]] void throwWrongPattern(std::string_view pattern, std::size_t offset,
                                    std::string_view reason) {
  throw RegexError(
      fmt::format("The pattern \"{}\" is wrong at offset {}: {}", pattern, offset, reason),
      std::string(pattern), static_cast<Int>(offset));
}

std::size_t validLength(std::string_view text) {
  std::size_t offset = 0;
  for (const std::string_view character : characters(text)) {
    if (!isValidUtf8(character)) break;
    offset += character.size();
  }
  return offset;
}

}  // namespace

RegexError::~RegexError() = default;

// ICU's patterns may be used by several threads as long as each has a matcher of its own.
struct Regex::Matcher {
  std::unique_ptr<icu::RegexPattern> pattern;
};

Regex::Regex(std::string_view pattern, RegexOptions options)
    : pattern_(pattern), options_(options) {
  constexpr std::size_t longest = std::size_t{1} << 24;
  if (pattern.size() > longest) throwWrongPattern(pattern.substr(0, 80), longest, "too long");
  if (!isValidUtf8(pattern)) throwWrongPattern(pattern, validLength(pattern), "not UTF-8");
  UErrorCode status = U_ZERO_ERROR;
  UParseError place{};
  std::unique_ptr<icu::RegexPattern> compiled(icu::RegexPattern::compile(
      icu::UnicodeString::fromUTF8(pattern), flagsOf(options), place, status));
  if (U_FAILURE(status)) throwWrongPattern(pattern, byteAt(pattern, place), u_errorName(status));
  matcher_ = std::make_shared<const Matcher>(Matcher{std::move(compiled)});
}

// A walk through the matches of a text, which must outlive it.
class Regex::Search {
 public:
  Search(const Regex& regex, std::string_view text, RegexMatchOptions options)
      : regex_(regex),
        text_(text),
        isAnchored_((options & RegexMatchOptions::anchored) != RegexMatchOptions::none) {
    if (!regex.hasMatcher()) return;
    matcher_.reset(regex.matcher_->pattern->matcher(status_));
    utext_openUTF8(&source_, text.data(), static_cast<int64_t>(text.size()), &status_);
    if (U_SUCCESS(status_)) {
      matcher_->setStackLimit(largestStack, status_);
      matcher_->setMatchCallback(&Search::mayGoOn, this, status_);
      matcher_->reset(&source_);
    }
    requireSuccess();
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;
  ~Search() { utext_close(&source_); }

  bool next() {
    if (!matcher_ || (isAnchored_ && hasSearched_)) return false;
    hasSearched_ = true;
    // The engine counts on from match to match, but each may take its time.
    ticksBefore_ = ticks_;
    const UBool isFound = isAnchored_ ? matcher_->lookingAt(status_) : matcher_->find(status_);
    requireSuccess();
    if (isFound == 0) return false;
    start_ = static_cast<std::size_t>(matcher_->end64(status_));
    return true;
  }

  Optional<std::string> group(int32_t number) {
    const int64_t start = matcher_->start64(number, status_);
    const int64_t end = matcher_->end64(number, status_);
    requireSuccess();
    if (start < 0) return {};
    return std::string(
        text_.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
  }

  Groups groups() {
    Groups result;
    for (int32_t number = 0; number <= matcher_->groupCount(); ++number) {
      result.push_back(group(number));
    }
    return result;
  }

 private:
  static UBool U_CALLCONV mayGoOn(const void* context, int32_t ticks) {
    const auto& search = *static_cast<const Search*>(context);
    search.ticks_ = ticks;
    return ticks - search.ticksBefore_ < longestSearch ? 1 : 0;
  }

  void requireSuccess() const {
    if (U_SUCCESS(status_)) return;
    const char* reason = status_ == U_REGEX_STOPPED_BY_CALLER ? "it takes too long"
                         : status_ == U_REGEX_STACK_OVERFLOW  ? "it needs too much memory"
                                                              : u_errorName(status_);
    throw RegexError(fmt::format("The search for the pattern \"{}\" at offset {} was stopped: {}",
                                 regex_.pattern(), start_, reason),
                     regex_.pattern(), static_cast<Int>(start_));
  }

  const Regex& regex_;
  std::string_view text_;
  bool isAnchored_;
  UErrorCode status_ = U_ZERO_ERROR;
  UText source_ = UTEXT_INITIALIZER;
  std::unique_ptr<icu::RegexMatcher> matcher_;
  std::size_t start_ = 0;
  bool hasSearched_ = false;
  // Mutable because the engine hands its context on as constant.
  mutable int32_t ticks_ = 0;
  int32_t ticksBefore_ = 0;
};

bool Regex::match(std::string_view text, RegexMatchOptions options) const {
  return Search(*this, text, options).next();
}

std::vector<std::string> Regex::matchingsOf(std::string_view text,
                                            RegexMatchOptions options) const {
  std::vector<std::string> result;
  Search search(*this, text, options);
  while (search.next()) result.push_back(*search.group(0));
  return result;
}

std::vector<Regex::Groups> Regex::matchingGroupsOf(std::string_view text,
                                                   RegexMatchOptions options) const {
  std::vector<Groups> result;
  Search search(*this, text, options);
  while (search.next()) result.push_back(search.groups());
  return result;
}

Regex::Groups Regex::groupsOfFirstMatch(std::string_view text, RegexMatchOptions options) const {
  Search search(*this, text, options);
  return search.next() ? search.groups() : Groups();
}

Optional<Int> Regex::groupNumber(std::string_view name) const {
  if (!hasMatcher() || name.size() > pattern_.size()) return {};
  UErrorCode status = U_ZERO_ERROR;
  const int32_t number =
      matcher_->pattern->groupNumberFromName(icu::UnicodeString::fromUTF8(name), status);
  if (U_FAILURE(status)) return {};
  return Int{number};
}

std::ostream& operator<<(std::ostream& out, const Regex& regex) { return out << regex.pattern(); }

inline namespace literals {

Regex operator""_regex(const char* pattern, std::size_t length) {
  try {
    return Regex(std::string_view(pattern, length));
  } catch (const RegexError& error) {
    fatalFailure(error.description());
  }
}

}  // namespace literals

}  // namespace tolvanite
