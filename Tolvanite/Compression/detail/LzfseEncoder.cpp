#include <Tolvanite/Compression/detail/LzfseEncoder.h>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

CompressionStream::Status Encoder::process(bool /*isFinal*/, ByteBuffer& result) {
  if (!matches_) matches_.emplace(source);
  if (delivered_ == block_.size()) {
    if (isEnded_) return Status::end;
    block_.clear();
    delivered_ = 0;
    makeBlock();
  }
  delivered_ += deliver(std::span<const std::byte>(block_).subspan(delivered_), result);
  return Status::ok;
}

void Encoder::makeBlock() {
  writer_.start(source.data());
  bool hasRoom = writer_.add(rest_);
  while (hasRoom && !matches_->isFinished()) {
    matches_->next(rest_);
    hasRoom = writer_.add(rest_);
  }
  if (!writer_.isEmpty()) {
    source = source.subspan(writer_.plainSize());
    writer_.write(block_);
    if (writer_.literalCost() > 0) matches_->setLiteralCost(writer_.literalCost());
  }
  isEnded_ = hasRoom;
  if (isEnded_) {
    block_.resize(block_.size() + 4);
    storeLittle(block_.data() + block_.size() - 4, endMagic);
  }
}

}  // namespace tolvanite::detail::lzfse
