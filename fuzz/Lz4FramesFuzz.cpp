// Reads anything as framed LZ4 blocks, and writes anything as such: what was written must be read
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
  const auto stream = compressed(text, Compression::lz4);
  require(stream.has_value() != text.isEmpty());
  if (!stream) return;
  require(stream->text().ends_with("bv4$"));
  require(uncompressed(*stream, Compression::lz4) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ByteBuffer input(std::string_view(reinterpret_cast<const char*>(data), size));
  requireReadBack(input);
  if (const auto text = uncompressed(input, Compression::lz4)) requireReadBack(*text);
  return 0;
}
