// Reads anything as framed LZ4 blocks, and writes anything as such: what was written must be read
// back, and what could be read can be written again.
#include <fuzz/ReadBack.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tolvanite::ByteBuffer;
  const auto isAllowed = [](const ByteBuffer& stream, const ByteBuffer& /*text*/) {
    return stream.text().ends_with("bv4$");
  };
  fuzz::requireReadBackOf(tolvanite::Compression::lz4, data, size, isAllowed);
  return 0;
}
