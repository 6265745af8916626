#include <Tolvanite/Json/detail/TextOut.h>

#include <algorithm>

#include <Tolvanite/Platform/MemoryHints.h>

namespace tolvanite::detail {

void TextOut::grow(std::size_t bytes) {
  const auto used = static_cast<std::size_t>(next_ - text_.data());
  const std::size_t needed = used + bytes;
  if (text_.capacity() < needed) {
    text_.resize(used);
    // Room that is never written to takes no memory, and each further step would copy the text.
    constexpr std::size_t large = 16 << 20;
    const std::size_t factor = text_.capacity() < large ? 4 : 2;
    text_.reserve(std::max(needed, factor * text_.capacity()));
    preferLargePages(text_.data(), text_.capacity());
  }
  // Growing the length fills with zeros; a step that the cache holds makes that cheap.
  constexpr std::size_t step = 64 << 10;
  text_.resize(std::min(text_.capacity(), std::max(needed, used + step)));
  next_ = text_.data() + used;
  end_ = text_.data() + text_.size();
}

}  // namespace tolvanite::detail
