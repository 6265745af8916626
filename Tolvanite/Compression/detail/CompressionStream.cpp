#include <Tolvanite/Compression/detail/CompressionStream.h>

#include <algorithm>
#include <cstring>

namespace tolvanite::detail {

CompressionStream::~CompressionStream() = default;

std::size_t CompressionStream::promisedSize() const { return 0; }

std::size_t CompressionStream::deliver(std::span<const std::byte> bytes) {
  const std::size_t count = std::min(bytes.size(), destination.size());
  if (count > 0) std::memcpy(destination.data(), bytes.data(), count);
  destination = destination.subspan(count);
  return count;
}

std::unique_ptr<CompressionStream> makeCompressionStream(CompressionOperation operation,
                                                         Compression compression) {
  switch (compression) {
    case Compression::lz4:
      return makeLz4Stream(operation);
    case Compression::zlib:
      return makeZlibStream(operation);
    case Compression::lzma:
      return makeLzmaStream(operation);
    case Compression::lzfse:
      return makeLzfseStream(operation);
  }
  return nullptr;
}

}  // namespace tolvanite::detail
