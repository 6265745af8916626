#include <Tolvanite/Compression/Compression.h>

#include <algorithm>
#include <cstddef>
#include <ostream>

#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Platform/MemoryHints.h>

namespace tolvanite {

namespace {

using detail::CompressionOperation;
using detail::CompressionStream;

// What headers promise is believed up to this size, and beyond it as far as text usually shrinks.
// Otherwise the result grows as it comes, so that a small source can't make it claim much.
constexpr std::size_t believedSize = std::size_t{4} << 20;
constexpr std::size_t believedExpansion = 16;

Optional<ByteBuffer> processed(const ByteBuffer& source, Compression compression,
                               CompressionOperation operation,
                               const CompressionProgress& progress) {
  if (source.isEmpty()) return {};
  const auto stream = detail::makeCompressionStream(operation, compression);
  if (!stream) return {};

  stream->source = source;
  const std::size_t expected =
      std::min(stream->promisedSize(), std::max(source.size() * believedExpansion, believedSize));
  ByteBuffer result;
  result.reserve(static_cast<Int>(expected));
  preferLargePages(result.data(), expected);
  while (true) {
    switch (stream->process(operation == CompressionOperation::encode, result)) {
      case CompressionStream::Status::ok:
        if (progress) progress(source.count() - static_cast<Int>(stream->source.size()));
        break;
      case CompressionStream::Status::end:
        return result;
      case CompressionStream::Status::error:
        return {};
    }
  }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, Compression compression) {
  switch (compression) {
    case Compression::lz4:
      return out << "lz4";
    case Compression::zlib:
      return out << "zlib";
    case Compression::lzma:
      return out << "lzma";
    case Compression::lzfse:
      return out << "lzfse";
  }
  return out << "Compression(" << static_cast<int>(compression) << ")";
}

Optional<ByteBuffer> uncompressed(const ByteBuffer& source, Compression compression,
                                  const CompressionProgress& progress) {
  return processed(source, compression, CompressionOperation::decode, progress);
}

Optional<ByteBuffer> compressed(const ByteBuffer& source, Compression compression,
                                const CompressionProgress& progress) {
  return processed(source, compression, CompressionOperation::encode, progress);
}

}  // namespace tolvanite
