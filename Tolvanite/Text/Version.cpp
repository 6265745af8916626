#include <Tolvanite/Text/Version.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <ostream>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

constexpr Int largest = std::numeric_limits<Int>::max();

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// Reads digits from `position` on and moves it behind them; negative if there are none or too many.
Int readNumber(const char*& position, const char* end) {
  constexpr std::ptrdiff_t alwaysFit = std::numeric_limits<Int>::digits10;
  const char* at = position;
  const char* const checkedFrom = end - at > alwaysFit ? at + alwaysFit : end;
  std::uint64_t number = 0;
  for (; at != checkedFrom && isDigit(*at); ++at) {
    number = number * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  if (at == position) return -1;
  for (; at != end && isDigit(*at); ++at) {
    const auto digit = static_cast<std::uint64_t>(*at - '0');
    if (number > (std::uint64_t{largest} - digit) / 10) return -1;
    number = number * 10 + digit;
  }
  position = at;
  return static_cast<Int>(number);
}

// Writes a number, most often one of one or two digits; gives the place behind it.
char* writeNumber(char* out, Int number) {
  if (number >= 100) return std::to_chars(out, out + 20, number).ptr;
  if (number >= 10) *out++ = static_cast<char>('0' + number / 10);
  *out++ = static_cast<char>('0' + number % 10);
  return out;
}

// Splits at dots up to a "+", empty pieces included; gives the place of the "+" or the end.
const char* readIdentifiers(const char* start, const char* end, std::vector<std::string>& result) {
  std::size_t count = 1;
  const char* last = start;
  for (; last != end && *last != '+'; ++last) count += *last == '.' ? 1 : 0;
  result.reserve(count);
  for (const char* at = start; at != last; ++at) {
    if (*at != '.') continue;
    result.emplace_back(start, at);
    start = at + 1;
  }
  result.emplace_back(start, last);
  return last;
}

// A decimal integer of any size: its sign and its digits without leading zeros, none for 0.
struct Decimal {
  bool isNegative;
  std::string_view digits;
};

Optional<Decimal> decimalIn(std::string_view text) noexcept {
  const bool hasMinus = text.starts_with('-');
  text.remove_prefix(hasMinus ? 1 : 0);
  if (text.empty() || !std::ranges::all_of(text, isDigit)) return {};
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  return Decimal{hasMinus && !text.empty(), text};
}

std::strong_ordering orderOf(const Decimal& a, const Decimal& b) noexcept {
  if (a.isNegative != b.isNegative) return b.isNegative <=> a.isNegative;
  const auto bySize = a.digits.size() <=> b.digits.size();
  const auto order = bySize != 0 ? bySize : a.digits <=> b.digits;
  return a.isNegative ? 0 <=> order : order;
}

// The order of two identifiers that are not the same text.
std::strong_ordering orderOf(std::string_view a, std::string_view b) noexcept {
  const auto numberA = decimalIn(a);
  const auto numberB = decimalIn(b);
  if (numberA && numberB) return orderOf(*numberA, *numberB);
  if (!numberA && !numberB) return a <=> b;
  return numberA ? std::strong_ordering::less : std::strong_ordering::greater;
}

}  // namespace

constinit const Version::Texts Version::noTexts{};

Version::Version(Int major, Int minor, Int patch, std::vector<std::string> prereleaseIdentifiers,
                 Optional<std::string> buildMetadataIdentifier, std::source_location location)
    : major_(major), minor_(minor), patch_(patch) {
  if (major < 0 || minor < 0 || patch < 0) {
    fatalFailure(fmt::format("Version({}, {}, {}) has a negative number", major, minor, patch),
                 location);
  }
  if (prereleaseIdentifiers.empty() && !buildMetadataIdentifier) return;
  texts_ = std::make_shared<const Texts>(
      Texts{std::move(prereleaseIdentifiers), std::move(buildMetadataIdentifier)});
}

Optional<Version> Version::fromText(std::string_view text) {
  Optional<Version> result;  // The only one that is returned, so that nothing is moved.
  const char* position = text.data();
  const char* const end = position + text.size();
  const Int major = readNumber(position, end);
  if (major < 0 || position == end || *position++ != '.') return result;
  const Int minor = readNumber(position, end);
  if (minor < 0 || position == end || *position++ != '.') return result;
  const Int patch = readNumber(position, end);
  if (patch < 0) return result;
  if (position != end && *position != '-') {
    // The first "-" ends the numbers, deliberately even where it stands in the metadata.
    if (*position != '+' || std::find(position, end, '-') != end) return result;
  }

  Version& version = result.emplace();
  version.major_ = major;
  version.minor_ = minor;
  version.patch_ = patch;
  if (position == end) return result;
  auto texts = std::make_shared<Texts>();
  if (*position == '-') {
    position = readIdentifiers(position + 1, end, texts->prereleaseIdentifiers);
  }
  if (position != end) texts->buildMetadataIdentifier.emplace(position + 1, end);
  version.texts_ = std::move(texts);
  return result;
}

Version Version::successor(std::source_location location) const {
  return {major_, minor_, checkedAdd<Int>(patch_, 1, location)};
}

Version Version::predecessor(std::source_location location) const {
  if (patch_ > 0) return {major_, minor_, patch_ - 1};
  if (minor_ > 0) return {major_, minor_ - 1, largest};
  if (major_ > 0) return {major_ - 1, largest, largest};
  fatalFailure("Version " + description() + " has no predecessor", location);
}

std::string Version::description() const {
  std::array<char, std::size_t{3} * (std::numeric_limits<Int>::digits10 + 2)> numbers;
  char* out = writeNumber(numbers.data(), major_);
  *out++ = '.';
  out = writeNumber(out, minor_);
  *out++ = '.';
  out = writeNumber(out, patch_);
  std::string result(numbers.data(), out);
  if (!texts_) return result;

  const auto& [identifiers, metadata] = *texts_;
  std::size_t size = result.size() + identifiers.size();
  for (const std::string& identifier : identifiers) size += identifier.size();
  if (metadata) size += 1 + metadata->size();
  result.reserve(size);
  for (char separator = '-'; const std::string& identifier : identifiers) {
    result += separator;
    result += identifier;
    separator = '.';
  }
  if (metadata) {
    result += '+';
    result += *metadata;
  }
  return result;
}

Int Version::hashValue() const noexcept {
  std::uint64_t result = 0;
  const auto mix = [&](std::uint64_t next) { result = result * 0x9ddfea08eb382d69 ^ next; };
  const std::hash<std::string> hashOfText;
  mix(static_cast<std::uint64_t>(major_));
  mix(static_cast<std::uint64_t>(minor_));
  mix(static_cast<std::uint64_t>(patch_));
  const auto& [identifiers, metadata] = texts();
  for (const std::string& identifier : identifiers) mix(hashOfText(identifier));
  if (metadata) mix(hashOfText(*metadata));
  return static_cast<Int>(result);
}

bool operator==(const Version& a, const Version& b) noexcept {
  return a.major_ == b.major_ && a.minor_ == b.minor_ && a.patch_ == b.patch_ &&
         (a.texts_ == b.texts_ || a.texts() == b.texts());
}

std::partial_ordering operator<=>(const Version& a, const Version& b) noexcept {
  if (const auto order = a.major_ <=> b.major_; order != 0) return order;
  if (const auto order = a.minor_ <=> b.minor_; order != 0) return order;
  if (const auto order = a.patch_ <=> b.patch_; order != 0) return order;
  const auto& left = a.prereleaseIdentifiers();
  const auto& right = b.prereleaseIdentifiers();
  if (left.empty() || right.empty()) return left.empty() <=> right.empty();
  const auto [first, second] = std::ranges::mismatch(left, right);
  if (first == left.end() || second == right.end()) return left.size() <=> right.size();
  return orderOf(*first, *second);
}

std::ostream& operator<<(std::ostream& out, const Version& version) {
  return out << version.description();
}

}  // namespace tolvanite
