#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Compression/detail/LzfseDecoder.h>
#include <Tolvanite/Compression/detail/LzfseEncoder.h>

namespace tolvanite::detail {

std::unique_ptr<CompressionStream> makeLzfseStream(CompressionOperation operation) {
  if (operation == CompressionOperation::encode) return std::make_unique<lzfse::Encoder>();
  return std::make_unique<lzfse::Decoder>();
}

}  // namespace tolvanite::detail
