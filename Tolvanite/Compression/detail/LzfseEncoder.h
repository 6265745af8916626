#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Compression/detail/LzfseBlockWriter.h>
#include <Tolvanite/Compression/detail/LzfseMatchFinder.h>

namespace tolvanite::detail::lzfse {

// Writes a stream, one block at a time. Looks for matches in the source where it lies, so the whole
// of it has to stay until the end.
class Encoder final : public CompressionStream {
 public:
  Status process(bool isFinal, ByteBuffer& result) override;

 private:
  void makeBlock();

  std::optional<MatchFinder> matches_;  // from the first call on
  Sequence rest_;                       // what did not fit into the block before
  BlockWriter writer_;
  std::vector<std::byte> block_;
  std::size_t delivered_ = 0;
  bool isEnded_ = false;
};

}  // namespace tolvanite::detail::lzfse
