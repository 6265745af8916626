#include <Tolvanite/Compression/detail/CompressionStream.h>

#include <algorithm>

namespace tolvanite::detail {

CompressionStream::~CompressionStream() = default;

std::size_t CompressionStream::promisedSize() const { return 0; }

std::size_t CompressionStream::deliver(std::span<const std::byte> bytes, ByteBuffer& result) {
  const auto piece = bytes.first(std::min(bytes.size(), pieceSize));
  result.append(piece);
  return piece.size();
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
