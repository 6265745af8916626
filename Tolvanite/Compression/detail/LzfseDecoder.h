#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Compression/detail/LzfseBlockDecoder.h>
#include <Tolvanite/Compression/detail/LzfseHeader.h>
#include <Tolvanite/Compression/detail/LzvnBlock.h>

namespace tolvanite::detail::lzfse {

// Reads a stream block by block into a window, from which the output is delivered.
class Decoder final : public CompressionStream {
 public:
  Decoder();

  Status process(bool isFinal, ByteBuffer& result) override;
  std::size_t promisedSize() const override;

 private:
  enum class Kind { none, stored, matches, lzvn, end };

  bool openBlock();
  bool openStored();
  bool openMatches(bool hasCodedTables);
  bool openLzvn();
  bool writeOn();
  bool writeStored(const std::byte* limit);
  void moveWindow();

  // The output of before, as far as matches can reach, and what is not yet delivered.
  std::unique_ptr<std::byte[]> window_;
  std::byte* delivered_;
  std::byte* written_;

  Kind kind_ = Kind::none;
  std::span<const std::byte> stored_;
  BlockDecoder matches_;
  LzvnDecoder lzvn_;
  Header header_;
};

}  // namespace tolvanite::detail::lzfse
