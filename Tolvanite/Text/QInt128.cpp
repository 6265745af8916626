#include <Tolvanite/Text/QInt128.h>

#include <ostream>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

namespace {

constexpr std::size_t digitsOfWord = 16;

// The value of each character as a hexadecimal digit; of one that is none, a number with a bit
// above those of a digit.
constexpr std::uint8_t noDigit = 0x80;
constexpr std::array<std::uint8_t, 256> digitValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(noDigit);
  for (std::uint8_t i = 0; i < 10; ++i) values['0' + std::size_t{i}] = i;
  for (std::uint8_t i = 0; i < 6; ++i) {
    values['a' + std::size_t{i}] = static_cast<std::uint8_t>(10 + i);
    values['A' + std::size_t{i}] = static_cast<std::uint8_t>(10 + i);
  }
  return values;
}();

// The two digits of each byte, one behind the other.
constexpr std::array<char, 512> digitPairs(std::string_view digits) {
  std::array<char, 512> pairs{};
  for (std::size_t i = 0; i < 256; ++i) {
    pairs[2 * i] = digits[i / 16];
    pairs[2 * i + 1] = digits[i % 16];
  }
  return pairs;
}
constexpr std::array<char, 512> lowerPairs = digitPairs("0123456789abcdef");
constexpr std::array<char, 512> upperPairs = digitPairs("0123456789ABCDEF");

// Takes digits into the word; gives a number that has `noDigit` if one was none.
std::uint8_t readDigits(std::string_view digits, std::uint64_t& word) noexcept {
  std::uint8_t seen = 0;
  for (const char digit : digits) {
    const std::uint8_t value = digitValues[static_cast<unsigned char>(digit)];
    seen |= value;
    word = word << 4U | value;
  }
  return seen;
}

// Writes the digits of some bytes of the word, counted from the highest; gives the place behind.
char* writeDigits(char* out, std::uint64_t word, std::size_t first, std::size_t count,
                  const std::array<char, 512>& pairs) noexcept {
  for (std::size_t i = first; i < first + count; ++i) {
    const std::size_t byte = word >> (56 - 8 * i) & 0xFFU;
    *out++ = pairs[2 * byte];
    *out++ = pairs[2 * byte + 1];
  }
  return out;
}

template <typename Byte>
QInt128 fromSixteen(const Byte* bytes) noexcept {
  QInt128 result;
  for (std::size_t i = 0; i < 8; ++i) {
    result.high = result.high << 8U | static_cast<std::uint64_t>(bytes[i]);
    result.low = result.low << 8U | static_cast<std::uint64_t>(bytes[i + 8]);
  }
  return result;
}

template <typename Byte>
std::array<Byte, 16> toSixteen(const QInt128& value) noexcept {
  std::array<Byte, 16> result{};
  for (std::size_t i = 0; i < 8; ++i) {
    result[i] = static_cast<Byte>(value.high >> (56 - 8 * i));
    result[i + 8] = static_cast<Byte>(value.low >> (56 - 8 * i));
  }
  return result;
}

}  // namespace

QInt128::QInt128(const Uuid& uuid) noexcept : QInt128(fromSixteen(uuid.data())) {}
QInt128::QInt128(const Uuid_t& uuid) noexcept : QInt128(fromSixteen(uuid.data())) {}

QInt128 QInt128::createNewUuid() {
  Uuid bytes{};
  systemRandom().fill(bytes);
  QInt128 result(bytes);
  result.high = (result.high & ~std::uint64_t{0xF000}) | 0x4000;  // version 4
  result.low = (result.low & ~(std::uint64_t{3} << 62U)) | std::uint64_t{1} << 63U;
  return result;
}

Optional<QInt128> QInt128::fromText(std::string_view text) noexcept {
  if (text.size() != 2 * digitsOfWord) return {};
  QInt128 result;
  const auto seen = readDigits(text.substr(0, digitsOfWord), result.high) |
                    readDigits(text.substr(digitsOfWord), result.low);
  if ((seen & noDigit) != 0) return {};
  return result;
}

QInt128 QInt128::forced(std::string_view text, std::source_location location) {
  if (const auto result = fromText(text)) return *result;
  const std::string start = std::string(text) + " is not a uuid! ";
  if (characterCount(text) != 32) fatalFailure(start + "Length is not 32.", location);
  fatalFailure(start + "Could not UInt64(" + std::string(characterPrefix(text, 16)) +
                   ") or UInt64(" + std::string(characterSuffix(text, 16)) + ")",
               location);
}

Optional<QInt128> QInt128::fromUuidString(std::string_view text) noexcept {
  if (text.size() != 36) return {};
  if (text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') return {};
  QInt128 result;
  const auto seen =
      readDigits(text.substr(0, 8), result.high) | readDigits(text.substr(9, 4), result.high) |
      readDigits(text.substr(14, 4), result.high) | readDigits(text.substr(19, 4), result.low) |
      readDigits(text.substr(24), result.low);
  if ((seen & noDigit) != 0) return {};
  return result;
}

QInt128 QInt128::fromUuidStringForced(std::string_view text, std::source_location location) {
  if (const auto result = fromUuidString(text)) return *result;
  fatalFailure("Invalid uuid string: " + std::string(text), location);
}

Optional<QInt128> QInt128::fromData(const ByteBuffer& data) noexcept {
  return fromBytes(std::span<const std::byte>(data));
}

Optional<QInt128> QInt128::fromBytes(std::span<const std::byte> bytes) noexcept {
  if (bytes.size() != 16) return {};
  return fromSixteen(bytes.data());
}

Optional<QInt128> QInt128::fromBytes(std::span<const std::uint8_t> bytes) noexcept {
  return fromBytes(std::as_bytes(bytes));
}

std::string QInt128::asString() const {
  char digits[2 * digitsOfWord];
  writeDigits(writeDigits(digits, high, 0, 8, lowerPairs), low, 0, 8, lowerPairs);
  return {digits, sizeof digits};
}

std::string QInt128::asCompactString() const {
  char digits[8];
  writeDigits(digits, high, 0, 4, lowerPairs);
  return {digits, sizeof digits};
}

std::string QInt128::asUuidString() const {
  char digits[36];
  char* out = writeDigits(digits, high, 0, 4, upperPairs);
  *out++ = '-';
  out = writeDigits(out, high, 4, 2, upperPairs);
  *out++ = '-';
  out = writeDigits(out, high, 6, 2, upperPairs);
  *out++ = '-';
  out = writeDigits(out, low, 0, 2, upperPairs);
  *out++ = '-';
  writeDigits(out, low, 2, 6, upperPairs);
  return {digits, sizeof digits};
}

std::string QInt128::asUuidShortstring() const {
  char digits[8];
  writeDigits(digits, high, 0, 4, upperPairs);
  return {digits, sizeof digits};
}

ByteBuffer QInt128::asData() const { return ByteBuffer(std::span<const std::byte>(asUuid())); }

std::array<std::uint8_t, 16> QInt128::asBytes() const noexcept {
  return toSixteen<std::uint8_t>(*this);
}

QInt128::Uuid QInt128::asUuid() const noexcept { return toSixteen<std::byte>(*this); }

std::ostream& operator<<(std::ostream& out, const QInt128& value) {
  return out << value.asString();
}

}  // namespace tolvanite
