#include <array>
#include <cstdint>

#include <lzma.h>

#include <Tolvanite/Compression/detail/CompressionStream.h>

namespace tolvanite::detail {

namespace {

constexpr std::uint32_t level = 6;

// The largest dictionary of the usual levels takes 64 MiB. A few bytes can ask for 4 GiB.
constexpr std::uint64_t mostMemory = std::uint64_t{1} << 30;

class LzmaStream final : public CompressionStream {
 public:
  explicit LzmaStream(CompressionOperation operation) {
    const lzma_ret answer = operation == CompressionOperation::encode
                                ? lzma_easy_encoder(&stream_, level, LZMA_CHECK_CRC64)
                                : lzma_stream_decoder(&stream_, mostMemory, 0);
    isUsable_ = answer == LZMA_OK;
  }
  LzmaStream(const LzmaStream&) = delete;
  LzmaStream& operator=(const LzmaStream&) = delete;
  ~LzmaStream() override { lzma_end(&stream_); }

  bool isUsable() const { return isUsable_; }

  Status process(bool isFinal, ByteBuffer& result) override {
    stream_.next_in = reinterpret_cast<const std::uint8_t*>(source.data());
    stream_.avail_in = source.size();
    stream_.next_out = reinterpret_cast<std::uint8_t*>(piece_.data());
    stream_.avail_out = piece_.size();
    const lzma_ret answer = lzma_code(&stream_, isFinal ? LZMA_FINISH : LZMA_RUN);
    source = source.last(stream_.avail_in);
    deliver(std::span(piece_).first(piece_.size() - stream_.avail_out), result);
    if (answer == LZMA_STREAM_END) return Status::end;
    // A source that ended too early is LZMA_BUF_ERROR on the second call without progress.
    return answer == LZMA_OK ? Status::ok : Status::error;
  }

 private:
  lzma_stream stream_ = LZMA_STREAM_INIT;
  std::array<std::byte, pieceSize> piece_;
  bool isUsable_ = false;
};

}  // namespace

std::unique_ptr<CompressionStream> makeLzmaStream(CompressionOperation operation) {
  auto result = std::make_unique<LzmaStream>(operation);
  if (!result->isUsable()) return nullptr;
  return result;
}

}  // namespace tolvanite::detail
