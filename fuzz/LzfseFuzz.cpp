// Reads anything as an LZFSE stream, and writes anything as one: what was written must be read
// back, and what could be read can be written again.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <Tolvanite/Compression/Compression.h>

namespace {

using tolvanite::ByteBuffer;
using tolvanite::Compression;

// Unlike assert, this is never compiled out.
void require(bool holds) {
  if (!holds) std::abort();
}

void requireReadBack(const ByteBuffer& text) {
  const auto stream = compressed(text, Compression::lzfse);
  require(stream.has_value() != text.isEmpty());
  if (!stream) return;
  // A stored block and the end is the most that there can be, for each block.
  require(stream->size() <= text.size() + 12 + text.size() / 40000 * 8);
  require(uncompressed(*stream, Compression::lzfse) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ByteBuffer input(std::string_view(reinterpret_cast<const char*>(data), size));
  requireReadBack(input);
  if (const auto text = uncompressed(input, Compression::lzfse)) {
    // A block of a few bytes can give a megabyte, which takes long to write again under sanitizers.
    if (text->size() < 100000) requireReadBack(*text);
  }
  return 0;
}
