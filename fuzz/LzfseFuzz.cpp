// Reads anything as an LZFSE stream, and writes anything as one: what was written must be read
// back, and what could be read can be written again.
#include <fuzz/ReadBack.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tolvanite::ByteBuffer;
  // A stored block and the end is the most that there can be, for each block.
  const auto isAllowed = [](const ByteBuffer& stream, const ByteBuffer& text) {
    return stream.size() <= text.size() + 12 + text.size() / 40000 * 8;
  };
  fuzz::requireReadBackOf(tolvanite::Compression::lzfse, data, size, isAllowed);
  return 0;
}
