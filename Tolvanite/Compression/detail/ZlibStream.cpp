#include <algorithm>
#include <array>
#include <limits>

#include <zlib.h>

#include <Tolvanite/Compression/detail/CompressionStream.h>

namespace tolvanite::detail {

namespace {

constexpr int level = 5;
constexpr int rawDeflate = -15;  // the widest window, and no header
constexpr int memoryLevel = 8;   // zlib's usual

using Function = int (*)(z_stream*, int);

// inflate and deflate differ only in how they are started and ended.
class ZlibStream final : public CompressionStream {
 public:
  explicit ZlibStream(CompressionOperation operation)
      : isEncoder_(operation == CompressionOperation::encode) {
    const int answer = isEncoder_ ? deflateInit2(&stream_, level, Z_DEFLATED, rawDeflate,
                                                 memoryLevel, Z_DEFAULT_STRATEGY)
                                  : inflateInit2(&stream_, rawDeflate);
    isUsable_ = answer == Z_OK;
  }
  ZlibStream(const ZlibStream&) = delete;
  ZlibStream& operator=(const ZlibStream&) = delete;
  ~ZlibStream() override {
    if (isUsable_) isEncoder_ ? deflateEnd(&stream_) : inflateEnd(&stream_);
  }

  bool isUsable() const { return isUsable_; }

  Status process(bool isFinal, ByteBuffer& result) override {
    // zlib counts what it is given in 32 bits.
    constexpr std::size_t most = std::numeric_limits<uInt>::max();
    const std::size_t given = std::min(source.size(), most);
    // Without ZLIB_CONST the source is no const pointer, but it is only read.
    stream_.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(source.data()));
    stream_.avail_in = static_cast<uInt>(given);
    stream_.next_out = reinterpret_cast<Bytef*>(piece_.data());
    stream_.avail_out = static_cast<uInt>(piece_.size());

    const bool isLast = isFinal && given == source.size();
    const Function run = isEncoder_ ? deflate : inflate;
    const int answer = run(&stream_, isLast ? Z_FINISH : Z_NO_FLUSH);

    source = source.subspan(given - stream_.avail_in);
    deliver(std::span(piece_).first(piece_.size() - stream_.avail_out), result);
    if (answer == Z_STREAM_END) return Status::end;
    // Z_BUF_ERROR, which is that nothing could be done, stands for a source that ended too early.
    return answer == Z_OK ? Status::ok : Status::error;
  }

 private:
  bool isEncoder_;
  bool isUsable_ = false;
  z_stream stream_{};
  std::array<std::byte, pieceSize> piece_;
};

}  // namespace

std::unique_ptr<CompressionStream> makeZlibStream(CompressionOperation operation) {
  auto result = std::make_unique<ZlibStream>(operation);
  if (!result->isUsable()) return nullptr;
  return result;
}

}  // namespace tolvanite::detail
