// Names an encoding of texts, and converts between it and the library's texts, which are UTF-8.
//
//   const TextEncoding encoding = TextEncoding::isoLatin1;
//   encoding.encode("é")                       the one byte 0xe9
//   encoding.encode("中")                      absent: there is no such character
//   encoding.decode(ByteBuffer{0x61, 0xe9})    "aé"
//   TextEncoding()                             UTF-8
//
// Conversion is strict: what is malformed or has no counterpart is never replaced or left out.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The name of an encoding, and its conversions.
class TOLVANITE_EXPORT TextEncoding {
 public:
  /// Encodings without a choice of the byte order.
  /// @{
  static const TextEncoding utf8;
  static const TextEncoding ascii;
  static const TextEncoding isoLatin1;
  static const TextEncoding windowsCP1252;
  static const TextEncoding macRoman;
  /// @}
  /// Without a byte order in the name: encoding writes a byte order mark and then the machine's
  /// order; decoding follows the mark, and takes the big end first where there is none. With an
  /// order in the name: no mark is written, and one that is read is a character as any other.
  /// @{
  static const TextEncoding utf16;
  static const TextEncoding utf16LittleEndian;
  static const TextEncoding utf16BigEndian;
  static const TextEncoding utf32;
  static const TextEncoding utf32LittleEndian;
  static const TextEncoding utf32BigEndian;
  /// @}

  /// UTF-8.
  constexpr TextEncoding() noexcept = default;

  /// The registered name, as "UTF-8" or "ISO-8859-1".
  std::string_view name() const noexcept;

  /// The bytes of a text in this encoding. Absent if the text is not valid UTF-8 or holds what the
  /// encoding has not.
  Optional<ByteBuffer> encode(std::string_view text) const;

  /// The text of bytes in this encoding. Absent if they are malformed.
  /// @{
  Optional<std::string> decode(std::span<const std::byte> bytes) const;
  Optional<std::string> decode(std::string_view bytes) const {
    return decode(std::as_bytes(std::span(bytes)));
  }
  /// @}

  /// The name.
  std::string description() const { return std::string(name()); }

  friend constexpr bool operator==(TextEncoding, TextEncoding) noexcept = default;
  friend constexpr auto operator<=>(TextEncoding, TextEncoding) noexcept = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, TextEncoding encoding);

 private:
  /// @cond
  friend std::hash<TextEncoding>;
  /// @endcond

  constexpr explicit TextEncoding(std::uint8_t index) noexcept : index_(index) {}

  std::uint8_t index_ = 0;
};

// The indexes are those of the table of names in the source file.
inline constexpr TextEncoding TextEncoding::utf8{0};
inline constexpr TextEncoding TextEncoding::ascii{1};
inline constexpr TextEncoding TextEncoding::isoLatin1{2};
inline constexpr TextEncoding TextEncoding::windowsCP1252{3};
inline constexpr TextEncoding TextEncoding::macRoman{4};
inline constexpr TextEncoding TextEncoding::utf16{5};
inline constexpr TextEncoding TextEncoding::utf16LittleEndian{6};
inline constexpr TextEncoding TextEncoding::utf16BigEndian{7};
inline constexpr TextEncoding TextEncoding::utf32{8};
inline constexpr TextEncoding TextEncoding::utf32LittleEndian{9};
inline constexpr TextEncoding TextEncoding::utf32BigEndian{10};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::TextEncoding> {
  std::size_t operator()(tolvanite::TextEncoding encoding) const noexcept {
    return encoding.index_;
  }
};
