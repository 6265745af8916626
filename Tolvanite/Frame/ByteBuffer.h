// A growable sequence of bytes with a length.
//
//   ByteBuffer buffer("head");
//   buffer.append(ByteBuffer{0x0d, 0x0a});
//   buffer.count()       6
//   buffer.text()        "head\r\n"
//   textForm(buffer)     "6 bytes"
//   write(descriptor, buffer.data(), buffer.size());
//
// It is a contiguous range of std::byte, and takes any such span.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A growable sequence of bytes.
class TOLVANITE_EXPORT ByteBuffer {
 public:
  using value_type = std::byte;
  /// Iterators over std::byte.
  /// @{
  using iterator = std::vector<std::byte>::iterator;
  using const_iterator = std::vector<std::byte>::const_iterator;
  /// @}

  /// Without bytes.
  ByteBuffer() = default;
  /// The bytes of a text, as they are; of a span; or as listed.
  /// @{
  explicit ByteBuffer(std::string_view text) { append(text); }
  explicit ByteBuffer(std::span<const std::byte> bytes) : bytes_(bytes.begin(), bytes.end()) {}
  explicit ByteBuffer(std::vector<std::byte> bytes) noexcept : bytes_(std::move(bytes)) {}
  ByteBuffer(std::initializer_list<std::uint8_t> bytes);
  /// @}

  /// The number of bytes, and whether there are none.
  /// @{
  Int count() const noexcept { return static_cast<Int>(bytes_.size()); }
  bool isEmpty() const noexcept { return bytes_.empty(); }
  std::size_t size() const noexcept { return bytes_.size(); }
  bool empty() const noexcept { return bytes_.empty(); }
  /// @}

  /// The bytes, valid until the length changes.
  /// @{
  std::byte* data() noexcept { return bytes_.data(); }
  const std::byte* data() const noexcept { return bytes_.data(); }
  iterator begin() noexcept { return bytes_.begin(); }
  iterator end() noexcept { return bytes_.end(); }
  const_iterator begin() const noexcept { return bytes_.begin(); }
  const_iterator end() const noexcept { return bytes_.end(); }
  /// @}

  /// The bytes taken as a text, whatever they hold. Valid until the buffer changes.
  std::string_view text() const& noexcept {
    return {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
  }
  std::string_view text() && = delete;

  /// The byte at a place; fatal if there is none.
  std::byte& operator[](Int index) { return bytes_[checkedIndex(index)]; }
  const std::byte& operator[](Int index) const { return bytes_[checkedIndex(index)]; }

  /// Adds bytes behind the last one. The argument may be a part of this buffer.
  /// @{
  void append(std::byte byte) { bytes_.push_back(byte); }
  void append(std::span<const std::byte> bytes);
  void append(std::string_view text) { append(std::as_bytes(std::span(text))); }
  void append(const ByteBuffer& other) { append(std::span(other)); }
  /// @}

  /// Cuts off the last bytes, or adds zero bytes, until `count` are there. A negative count is
  /// fatal.
  void resize(Int count);

  /// Removes the first `count` bytes, of which there must be so many, else it is fatal.
  void removeFirst(Int count);

  /// Removes all bytes.
  void removeAll() noexcept { bytes_.clear(); }

  /// Makes room for `count` bytes in all; the length stays.
  void reserve(Int count);

  /// The number of bytes: "1 byte", "5 bytes".
  std::string description() const;

  friend bool operator==(const ByteBuffer&, const ByteBuffer&) = default;
  friend auto operator<=>(const ByteBuffer&, const ByteBuffer&) = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const ByteBuffer& buffer);

 private:
  std::size_t checkedIndex(Int index) const;

  std::vector<std::byte> bytes_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::ByteBuffer> {
  std::size_t operator()(const tolvanite::ByteBuffer& buffer) const noexcept {
    return std::hash<std::string_view>()(buffer.text());
  }
};
