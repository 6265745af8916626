// JSON text to raw elements and back, strictly by RFC 8259.
//
//   const ManagedObject settings = JSONSerialization::JSONObjectWithData(text);
//   const std::string again = JSONSerialization::text(settings, WritingOptions::sortedKeys);
//
// Json reads through this; whoever wants a Json calls Json::parseString.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/ManagedObject.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The parser and the plain writer of JSON text.
class TOLVANITE_EXPORT JSONSerialization {
 public:
  JSONSerialization() = delete;

  /// How to read. Options are joined by `|`.
  enum class ReadingOptions : std::uint8_t {
    none = 0,
    /// Takes a text whose root is neither an array nor a dictionary.
    allowFragments = 4,
  };
  /// How to write. Options are joined by `|`.
  enum class WritingOptions : std::uint8_t {
    none = 0,
    /// Each element on a line of its own, indented by two blanks a level.
    prettyPrinted = 1,
    /// Keys in ascending order of their bytes.
    sortedKeys = 2,
    /// Writes a root that is neither an array nor a dictionary.
    fragmentsAllowed = 4,
  };

  /// Why a text was not read or an element not written.
  class Errur;

  /// What a JSON text in UTF-8 says. The whole text must be one value; a byte order mark before it
  /// is passed over. Integers beyond 64 bits become decimal numbers; of a repeated key the last
  /// value counts. Containers may be nested 512 deep. Throws an Errur for anything else, a number
  /// that no double can hold among it. Elements of one text share its memory as long as any of them
  /// is there. A thread keeps some room for its next text, for a large one only between large ones.
  /// @{
  static ManagedObject JSONObjectWithData(std::string_view text,
                                          ReadingOptions options = ReadingOptions::none);
  static ManagedObject JSONObjectWithData(const ByteBuffer& data,
                                          ReadingOptions options = ReadingOptions::none) {
    return JSONObjectWithData(data.text(), options);
  }
  /// @}

  /// The JSON text of an element. Throws an Errur for what JSON can't say: numbers that are not
  /// finite, wrapped values of other kinds, texts that are not UTF-8, and a root that is neither an
  /// array nor a dictionary unless `fragmentsAllowed` is given.
  /// @{
  static std::string text(const ManagedObject& object,
                          WritingOptions options = WritingOptions::none);
  static ByteBuffer dataWithJSONObject(const ManagedObject& object,
                                       WritingOptions options = WritingOptions::none) {
    return ByteBuffer(text(object, options));
  }
  /// @}

  /// How deep containers may be nested in a text that is read; "[[]]" is 2 deep.
  static constexpr int greatestDepth = 512;
};

class TOLVANITE_EXPORT JSONSerialization::Errur final : public Error {
 public:
  /// A text that was not read, or an element that was not written.
  enum class Case { malformedText, unwritableObject };

  /// What is wrong, and at which byte of the text it begins.
  static Errur malformedText(std::string_view what, Int byteOffset);
  /// What JSON can't hold. The error's text is "JSON can't hold this: " and `what`.
  static Errur unwritableObject(std::string_view what);
  ~Errur() override;

  /// Whether reading or writing failed.
  Case errorCase() const noexcept { return case_; }
  /// The place in the text that was read; 0 for what was not written.
  Int byteOffset() const noexcept { return byteOffset_; }

 private:
  Errur(Case errorCase, std::string description, Int byteOffset)
      : Error(std::move(description)), case_(errorCase), byteOffset_(byteOffset) {}

  Case case_;
  Int byteOffset_;
};

/// Options joined, and whether all those of `b` are in `a`.
/// @{
constexpr JSONSerialization::ReadingOptions operator|(JSONSerialization::ReadingOptions a,
                                                      JSONSerialization::ReadingOptions b) {
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): options are joined bit by bit
  return static_cast<JSONSerialization::ReadingOptions>(static_cast<int>(a) | static_cast<int>(b));
}
constexpr JSONSerialization::WritingOptions operator|(JSONSerialization::WritingOptions a,
                                                      JSONSerialization::WritingOptions b) {
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): options are joined bit by bit
  return static_cast<JSONSerialization::WritingOptions>(static_cast<int>(a) | static_cast<int>(b));
}
constexpr bool contains(JSONSerialization::ReadingOptions a, JSONSerialization::ReadingOptions b) {
  return (a | b) == a;
}
constexpr bool contains(JSONSerialization::WritingOptions a, JSONSerialization::WritingOptions b) {
  return (a | b) == a;
}
/// @}

}  // namespace tolvanite
