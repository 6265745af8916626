#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Compression/detail/LzfseDecoder.h>

namespace tolvanite::detail {

std::unique_ptr<CompressionStream> makeLzfseStream(CompressionOperation operation) {
  if (operation == CompressionOperation::encode) return nullptr;
  return std::make_unique<lzfse::Decoder>();
}

}  // namespace tolvanite::detail
