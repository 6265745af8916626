// A value of 128 bits, above all a UUID in compact form: it compares, hashes, prints in several
// forms, and reads from hexadecimal text, from UUID text and from bytes.
//
//   const auto id = QInt128::createNewUuid();
//   std::cout << id << '\n';                          // "000102030405460788090a0b0c0d0e0f"
//   id.asUuidString()                                 // "00010203-0405-4607-8809-0A0B0C0D0E0F"
//   const Optional<QInt128> read = QInt128::fromUuidString(line);
//
// Its 16 bytes are, wherever bytes are given or taken, `high` and then `low`, each with its highest
// byte first: the order of the bytes of a UUID.
#pragma once

#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <ranges>
#include <source_location>
#include <span>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A value of 128 bits.
class TOLVANITE_EXPORT QInt128 {
 public:
  /// The bytes of a UUID as the standard library would hold them.
  using Uuid = std::array<std::byte, 16>;
  /// The same as the type `uuid_t` of C libraries, of which `data()` is one.
  using Uuid_t = std::array<unsigned char, 16>;

  /// 0.
  constexpr QInt128() noexcept = default;
  /// From two words. Mind the order: the low one comes first.
  constexpr QInt128(std::uint64_t lowWord, std::uint64_t highWord) noexcept
      : low(lowWord), high(highWord) {}
  /// From the bytes of a UUID.
  /// @{
  explicit QInt128(const Uuid& uuid) noexcept;
  explicit QInt128(const Uuid_t& uuid) noexcept;
  /// @}

  /// A new random UUID, of version 4 and the variant of RFC 4122, drawn from the system's source.
  static QInt128 createNewUuid();

  /// Reads 32 hexadecimal digits in any case, `high` and then `low`; absent for any other text.
  static Optional<QInt128> fromText(std::string_view text) noexcept;
  /// Reads like `fromText`; a text that does not read is fatal: "TEXT is not a uuid! Length is not
  /// 32.", or "TEXT is not a uuid! Could not UInt64(FIRST HALF) or UInt64(SECOND HALF)".
  static QInt128 forced(std::string_view text,
                        std::source_location location = std::source_location::current());

  /// Reads the usual form of a UUID, 8-4-4-4-12 hexadecimal digits in any case; absent for any
  /// other text.
  static Optional<QInt128> fromUuidString(std::string_view text) noexcept;
  /// Reads like `fromUuidString`; a text that does not read is fatal: "Invalid uuid string: TEXT".
  static QInt128 fromUuidStringForced(
      std::string_view text, std::source_location location = std::source_location::current());

  /// From 16 bytes; absent for another number of them.
  /// @{
  static Optional<QInt128> fromData(const ByteBuffer& data) noexcept;
  static Optional<QInt128> fromBytes(std::span<const std::byte> bytes) noexcept;
  static Optional<QInt128> fromBytes(std::span<const std::uint8_t> bytes) noexcept;
  /// @}
  /// From the bytes of a UUID.
  static QInt128 fromNsUuid(const Uuid& uuid) noexcept { return QInt128(uuid); }

  /// 32 hexadecimal digits in lower case, `high` and then `low`.
  std::string asString() const;
  /// The first 8 digits of `asString`.
  std::string asCompactString() const;
  /// The usual form of a UUID in upper case: "00010203-0405-0607-0809-0A0B0C0D0E0F".
  std::string asUuidString() const;
  /// The first 8 digits of `asUuidString`.
  std::string asUuidShortstring() const;

  /// The 16 bytes.
  /// @{
  ByteBuffer asData() const;
  std::array<std::uint8_t, 16> asBytes() const noexcept;
  Uuid asUuid() const noexcept;
  Uuid_t asUuid_t() const noexcept { return asBytes(); }
  /// @}

  /// `asString`.
  std::string description() const { return asString(); }

  /// `low` or `high`, bit by bit. No mixing, deliberately: values with few bits collide much.
  constexpr Int hashValue() const noexcept { return static_cast<Int>(low | high); }

  friend constexpr bool operator==(const QInt128&, const QInt128&) noexcept = default;
  /// By the number that it is: `high` decides, then `low`, both without a sign.
  friend constexpr std::strong_ordering operator<=>(const QInt128& a, const QInt128& b) noexcept {
    const auto byHigh = a.high <=> b.high;
    return byHigh != 0 ? byHigh : a.low <=> b.low;
  }
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const QInt128& value);

  /// The lower 64 bits.
  std::uint64_t low = 0;
  /// The upper 64 bits.
  std::uint64_t high = 0;
};

namespace detail {

template <typename Range>
concept RangeOfQInt128 =
    std::ranges::input_range<Range> && std::same_as<std::ranges::range_value_t<Range>, QInt128>;

template <typename Range, typename Text>
std::string joinedWithCommas(Range&& values, Text textOf) {
  std::string result;
  for (const QInt128& value : values) {
    if (!result.empty()) result += ',';
    result += (value.*textOf)();
  }
  return result;
}

}  // namespace detail

/// The `asUuidString` of each value, joined with ",".
template <detail::RangeOfQInt128 Range>
std::string joinedUuidStrings(Range&& values) {
  return detail::joinedWithCommas(values, &QInt128::asUuidString);
}

/// The `asUuidShortstring` of each value, joined with ",".
template <detail::RangeOfQInt128 Range>
std::string joinedUuidSubstrings(Range&& values) {
  return detail::joinedWithCommas(values, &QInt128::asUuidShortstring);
}

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::QInt128> {
  std::size_t operator()(const tolvanite::QInt128& value) const noexcept {
    return static_cast<std::size_t>(value.hashValue());
  }
};
