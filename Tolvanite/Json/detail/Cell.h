// How a JSON value is held: 16 bytes that are a number, a short text, a truth value or null by
// themselves, or refer to a shared node. What a Cell is to its users, NumberValue, ManagedObject
// and the raw containers say.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

static_assert(std::endian::native == std::endian::little,
              "a short text's first byte is the lowest one of its words");

/// What a cell holds. A tag below `null` is the length of a short text.
enum class CellTag : std::uint8_t {
  null = 16,
  boolean,
  signedInteger,
  unsignedInteger,
  real,
  // From here on the cell refers to a node; a list or dictionary without elements has none.
  longText,
  decimal,
  list,
  dictionary,
  other,
};

/// What every node begins with.
struct CellNode {
  /// The number of bytes of a text, of elements of a container.
  std::uint32_t count;
  /// 0 for a node of its own, which counts its references right before itself and changes while it
  /// has only one. Else its distance in words from the start of the chunk of an arena: such nodes
  /// never change, and their references count for the arena as a whole.
  std::uint32_t place;
};

class Cell {
 public:
  static constexpr std::size_t longestShortText = 15;

  Cell() noexcept : Cell(CellTag::null, std::uint64_t{0}) {}
  Cell(CellTag tag, std::uint64_t word) noexcept
      : low_(word), high_(static_cast<std::uint64_t>(tag) << tagShift) {}
  /// Takes over a reference that the caller has.
  Cell(CellTag tag, CellNode* node) noexcept : Cell(tag, reinterpret_cast<std::uintptr_t>(node)) {}
  /// A short text by its two words, of which the upper one has the length in its highest byte.
  Cell(std::uint64_t low, std::uint64_t high) noexcept : low_(low), high_(high) {}

  Cell(const Cell& other) noexcept : low_(other.low_), high_(other.high_) {
    if (hasNode()) retain(node());
  }
  Cell(Cell&& other) noexcept : low_(other.low_), high_(other.high_) { other.forget(); }
  Cell& operator=(const Cell& other) noexcept {
    Cell copy(other);
    swap(copy);
    return *this;
  }
  Cell& operator=(Cell&& other) noexcept {
    Cell moved(std::move(other));
    swap(moved);
    return *this;
  }
  ~Cell() {
    if (hasNode()) release(*this);
  }
  void swap(Cell& other) noexcept {
    std::swap(low_, other.low_);
    std::swap(high_, other.high_);
  }

  static Cell boolean(bool value) noexcept { return {CellTag::boolean, std::uint64_t{value}}; }
  static Cell signedInteger(std::int64_t value) noexcept {
    return {CellTag::signedInteger, static_cast<std::uint64_t>(value)};
  }
  static Cell unsignedInteger(std::uint64_t value) noexcept {
    return {CellTag::unsignedInteger, value};
  }
  static Cell real(double value) noexcept {
    return {CellTag::real, std::bit_cast<std::uint64_t>(value)};
  }
  static Cell text(std::string_view text) {
    return text.size() <= longestShortText ? shortText(text) : makeLongText(text);
  }
  /// A text that is in no arena, whatever this thread does at the moment.
  static Cell ownText(std::string_view text) {
    return text.size() <= longestShortText ? shortText(text) : makeOwnLongText(text);
  }
  /// A text of at most `longestShortText` bytes.
  static Cell shortText(std::string_view text) noexcept;

  // Below the tags that have a name, a tag is the length of a short text.
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange)
  CellTag tag() const noexcept { return static_cast<CellTag>(high_ >> tagShift); }
  bool isShortText() const noexcept { return tag() < CellTag::null; }
  bool isText() const noexcept { return isShortText() || tag() == CellTag::longText; }
  bool isNumber() const noexcept {
    return (tag() >= CellTag::boolean && tag() <= CellTag::real) || tag() == CellTag::decimal;
  }
  bool hasNode() const noexcept { return tag() >= CellTag::longText && low_ != 0; }

  std::uint64_t low() const noexcept { return low_; }
  std::uint64_t high() const noexcept { return high_; }
  std::int64_t integer() const noexcept { return static_cast<std::int64_t>(low_); }
  double realNumber() const noexcept { return std::bit_cast<double>(low_); }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a cell is two words, and one of them may be a node
  CellNode* node() const noexcept { return reinterpret_cast<CellNode*>(low_); }

  /// The bytes of a text. Those of a short one stand in the cell itself.
  std::string_view textView() const noexcept {
    if (isShortText()) {
      return {reinterpret_cast<const char*>(this), static_cast<std::size_t>(high_ >> tagShift)};
    }
    return {reinterpret_cast<const char*>(node() + 1), node()->count};
  }

  /// The number of elements of a list or dictionary; 0 for everything else.
  std::size_t elementCount() const noexcept {
    const bool isContainer = tag() == CellTag::list || tag() == CellTag::dictionary;
    return isContainer && low_ != 0 ? node()->count : 0;
  }

  bool hasSameWords(const Cell& other) const noexcept {
    return low_ == other.low_ && high_ == other.high_;
  }

  /// Makes this null without giving its reference back: that has been passed on.
  void forget() noexcept {
    low_ = 0;
    high_ = static_cast<std::uint64_t>(CellTag::null) << tagShift;
  }

 private:
  static constexpr int tagShift = 56;

  TOLVANITE_EXPORT static Cell makeLongText(std::string_view text);
  static Cell makeOwnLongText(std::string_view text);
  TOLVANITE_EXPORT static void retain(CellNode* node) noexcept;
  TOLVANITE_EXPORT static void release(Cell& cell) noexcept;

  std::uint64_t low_;
  std::uint64_t high_;
};

static_assert(sizeof(Cell) == 16);

inline Cell Cell::shortText(std::string_view text) noexcept {
  // Copies of known sizes, which may overlap, are single instructions.
  std::uint64_t low = 0;
  std::uint64_t high = 0;
  const char* bytes = text.data();
  const std::size_t length = text.size();
  if (length >= 8) {
    std::memcpy(&low, bytes, 8);
    if (length > 8) {
      std::memcpy(&high, bytes + length - 8, 8);
      high >>= 8 * (16 - length);
    }
  } else if (length >= 4) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, bytes, 4);
    std::memcpy(&last, bytes + length - 4, 4);
    low = first | static_cast<std::uint64_t>(last) << (8 * (length - 4));
  } else if (length > 0) {
    const auto byte = [&](std::size_t index) {
      return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[index])) << (8 * index);
    };
    low = byte(0) | byte(length / 2) | byte(length - 1);
  }
  return {low, high | static_cast<std::uint64_t>(length) << tagShift};
}

}  // namespace tolvanite::detail
