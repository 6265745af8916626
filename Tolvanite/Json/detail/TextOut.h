// A growing text that is written to through a pointer: whoever writes asks for room once and then
// writes without looking.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace tolvanite::detail {

class TextOut {
 public:
  /// Appends to a text, which has its right length only after this object is gone.
  explicit TextOut(std::string& text)
      : text_(text), next_(text.data() + text.size()), end_(next_) {}
  TextOut(const TextOut&) = delete;
  TextOut& operator=(const TextOut&) = delete;
  ~TextOut() { text_.resize(static_cast<std::size_t>(next_ - text_.data())); }

  /// Where to write up to so many bytes.
  char* room(std::size_t bytes) {
    if (static_cast<std::size_t>(end_ - next_) < bytes) grow(bytes);
    return next_;
  }
  /// The end of what was written there.
  void end(char* next) { next_ = next; }
  /// Both at once.
  char* roomAt(char* next, std::size_t bytes) {
    if (static_cast<std::size_t>(end_ - next) >= bytes) return next;
    end(next);
    return room(bytes);
  }

  void append(char byte) {
    *room(1) = byte;
    ++next_;
  }
  void append(std::string_view text) {
    std::memcpy(room(text.size()), text.data(), text.size());
    next_ += text.size();
  }

 private:
  void grow(std::size_t bytes);

  std::string& text_;
  char* next_;
  char* end_;
};

inline constexpr std::size_t copyBlock = 16;

/// Copies a text that may be read up to the next multiple of a block, to where as much may be
/// written; gives the end of the copy.
inline char* copyInBlocks(char* out, const char* text, std::size_t length) {
  for (std::size_t i = 0; i < length; i += copyBlock) std::memcpy(out + i, text + i, copyBlock);
  return out + length;
}

}  // namespace tolvanite::detail
