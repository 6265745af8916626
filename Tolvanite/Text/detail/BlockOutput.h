// A text written by blocks and short pieces, into a small buffer first: storing a whole block there
// costs less than appending just what is wanted of it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/detail/ByteBlock.h>

namespace tolvanite::detail {

class BlockOutput {
 public:
  /// `expectedSize` is how long the text is likely to become.
  explicit BlockOutput(std::size_t expectedSize) { text_.reserve(expectedSize); }

  /// Appends the first `count` bytes of a block.
  void append(ByteBlock block, std::size_t count) {
    block.store(buffer_.data() + used_);
    used_ += count;
    if (used_ > flushSize) flush();
  }

  /// Appends a piece of text.
  void append(std::string_view piece) {
    if (piece.size() > ByteBlock::size) {
      flush();
      text_ += piece;
      return;
    }
    piece.copy(buffer_.data() + used_, piece.size());
    used_ += piece.size();
    if (used_ > flushSize) flush();
  }

  std::string take() {
    flush();
    return std::move(text_);
  }

 private:
  static constexpr std::size_t flushSize = 2048;

  void flush() {
    text_.append(buffer_.data(), used_);
    used_ = 0;
  }

  std::array<char, flushSize + 2 * ByteBlock::size> buffer_;
  std::size_t used_ = 0;
  std::string text_;
};

}  // namespace tolvanite::detail
