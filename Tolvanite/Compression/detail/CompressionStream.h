#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <Tolvanite/Compression/Compression.h>

namespace tolvanite::detail {

enum class CompressionOperation : int { encode, decode };

// One run of an algorithm over a source that is given whole. Made by `makeCompressionStream`, gone
// with its destruction.
class CompressionStream {
 public:
  enum class Status : int { ok = 0, end = 1, error = -1 };

  CompressionStream() = default;
  CompressionStream(const CompressionStream&) = delete;
  CompressionStream& operator=(const CompressionStream&) = delete;
  virtual ~CompressionStream();

  // Takes from the front of `source`, which shrinks by that, and appends a piece to the result, of
  // no more than `pieceSize` bytes. `ok` when something was got on with, `end` when all is written,
  // `error` when the source can't be read or ends too early. So a caller that goes on while it is
  // `ok` gets to an end or an error.
  virtual Status process(bool isFinal, ByteBuffer& result) = 0;

  // How many bytes the headers in `source` promise, 0 if the form has no such headers. Only a hint:
  // a source can promise anything.
  virtual std::size_t promisedSize() const;

  std::span<const std::byte> source;

 protected:
  static constexpr std::size_t pieceSize = 4096;

  // Appends a piece from the front of `bytes` and gives its size, 0 if there are none.
  static std::size_t deliver(std::span<const std::byte> bytes, ByteBuffer& result);
};

// Null when the algorithm can't be started.
std::unique_ptr<CompressionStream> makeCompressionStream(CompressionOperation operation,
                                                         Compression compression);

// The algorithms, each in a file of its own.
std::unique_ptr<CompressionStream> makeLz4Stream(CompressionOperation operation);
std::unique_ptr<CompressionStream> makeZlibStream(CompressionOperation operation);
std::unique_ptr<CompressionStream> makeLzmaStream(CompressionOperation operation);
std::unique_ptr<CompressionStream> makeLzfseStream(CompressionOperation operation);

}  // namespace tolvanite::detail
