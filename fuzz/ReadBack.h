#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <Tolvanite/Compression/Compression.h>

// What holds for every algorithm of compression.
namespace fuzz {

// Unlike assert, this is never compiled out.
inline void require(bool holds) {
  if (!holds) std::abort();
}

// Writes a text as a stream, which must be as `isAllowed(stream, text)` wants it, and reads it
// back.
template <typename IsAllowed>
void requireReadBack(tolvanite::Compression compression, const tolvanite::ByteBuffer& text,
                     IsAllowed isAllowed) {
  const auto stream = compressed(text, compression);
  require(stream.has_value() != text.isEmpty());
  if (!stream) return;
  require(isAllowed(*stream, text));
  require(uncompressed(*stream, compression) == text);
}

// Takes the input as a text and as a stream, and what could be read of the stream as a text again.
template <typename IsAllowed>
void requireReadBackOf(tolvanite::Compression compression, const std::uint8_t* data,
                       std::size_t size, IsAllowed isAllowed) {
  const tolvanite::ByteBuffer input(std::string_view(reinterpret_cast<const char*>(data), size));
  requireReadBack(compression, input, isAllowed);
  const auto text = uncompressed(input, compression);
  // A block of a few bytes can give a megabyte, which takes long to write again under sanitizers.
  if (text && text->size() < 100000) requireReadBack(compression, *text, isAllowed);
}

}  // namespace fuzz
