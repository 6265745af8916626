#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include <lz4.h>

#include <Tolvanite/Compression/detail/CompressionStream.h>
#include <Tolvanite/Compression/detail/LittleEndian.h>

// LZ4 blocks in frames. A block is its magic, the number of plain bytes, for "bv41" the number of
// compressed bytes, and the bytes; "bv4$" ends the stream. Matches may reach 64 KiB back into the
// blocks before.
namespace tolvanite::detail {

namespace {

using Bytes = std::span<const std::byte>;

constexpr std::uint32_t packedMagic = 0x31347662;
constexpr std::uint32_t storedMagic = 0x2d347662;
constexpr std::uint32_t endMagic = 0x24347662;

constexpr std::size_t historySize = 65536;
constexpr std::size_t encodedBlockSize = 65536;

// A byte of an LZ4 block stands for 255 at most.
constexpr std::size_t mostExpansion = 255;

struct Lz4Block {
  std::uint32_t magic = 0;
  std::size_t plainSize = 0;
  Bytes payload;
  std::size_t size = 0;  // in the stream
};

// The block at the start of `source`; false if there is no whole block of a known kind that could
// hold what it promises.
bool readBlock(Bytes source, Lz4Block& block) {
  if (source.size() < 4) return false;
  block = {};
  block.magic = loadLittle<std::uint32_t>(source.data());
  block.size = 4;
  if (block.magic == endMagic) return true;

  const std::size_t headerSize = block.magic == packedMagic ? 12 : 8;
  if (block.magic != packedMagic && block.magic != storedMagic) return false;
  if (source.size() < headerSize) return false;
  block.plainSize = loadLittle<std::uint32_t>(source.data() + 4);
  const std::size_t payloadSize =
      block.magic == packedMagic ? loadLittle<std::uint32_t>(source.data() + 8) : block.plainSize;
  if (payloadSize > source.size() - headerSize) return false;
  if (block.plainSize > LZ4_MAX_INPUT_SIZE && block.magic == packedMagic) return false;
  if (block.plainSize > payloadSize * mostExpansion) return false;
  block.payload = source.subspan(headerSize, payloadSize);
  block.size = headerSize + payloadSize;
  return true;
}

class Lz4Decoder final : public CompressionStream {
 public:
  Status process(bool /*isFinal*/, ByteBuffer& result) override {
    if (delivered_ == plain_.size()) {
      if (isEnded_) return Status::end;
      if (!decodeBlock()) return Status::error;
    }
    delivered_ += deliver(Bytes(plain_).subspan(delivered_), result);
    return Status::ok;
  }

  std::size_t promisedSize() const override {
    std::size_t result = 0;
    Lz4Block block;
    for (Bytes rest = source; readBlock(rest, block) && block.magic != endMagic;
         rest = rest.subspan(block.size)) {
      result += block.plainSize;
    }
    return result;
  }

 private:
  bool decodeBlock() {
    Lz4Block block;
    if (!readBlock(source, block)) return false;
    source = source.subspan(block.size);
    isEnded_ = block.magic == endMagic;
    if (isEnded_) return true;

    const std::size_t kept = std::min(plain_.size(), historySize);
    plain_.erase(plain_.begin(), plain_.end() - static_cast<std::ptrdiff_t>(kept));
    delivered_ = kept;
    if (block.magic == storedMagic) {
      plain_.insert(plain_.end(), block.payload.begin(), block.payload.end());
      return true;
    }
    plain_.resize(kept + block.plainSize);
    return LZ4_decompress_safe_usingDict(
               reinterpret_cast<const char*>(block.payload.data()),
               reinterpret_cast<char*>(plain_.data() + kept),
               static_cast<int>(block.payload.size()), static_cast<int>(block.plainSize),
               reinterpret_cast<const char*>(plain_.data()),
               static_cast<int>(kept)) == static_cast<int>(block.plainSize);
  }

  // What is left of the blocks before for matches to reach, and the block last read.
  std::vector<std::byte> plain_;
  std::size_t delivered_ = 0;
  bool isEnded_ = false;
};

// Writes blocks that do not reach into each other, which every reader of the form can read.
class Lz4Encoder final : public CompressionStream {
 public:
  Status process(bool isFinal, ByteBuffer& result) override {
    if (delivered_ == frame_.size()) {
      if (isEnded_) return Status::end;
      delivered_ = 0;
      frame_.clear();
      if (!source.empty()) {
        encodeBlock();
      } else if (isFinal) {
        frame_.resize(4);
        storeLittle(frame_.data(), endMagic);
        isEnded_ = true;
      }
    }
    delivered_ += deliver(Bytes(frame_).subspan(delivered_), result);
    return Status::ok;
  }

 private:
  void encodeBlock() {
    const Bytes plain = source.first(std::min(source.size(), encodedBlockSize));
    source = source.subspan(plain.size());

    const auto plainSize = static_cast<int>(plain.size());
    frame_.resize(12 + static_cast<std::size_t>(LZ4_compressBound(plainSize)));
    const auto packedSize = static_cast<std::size_t>(LZ4_compress_default(
        reinterpret_cast<const char*>(plain.data()), reinterpret_cast<char*>(frame_.data() + 12),
        plainSize, static_cast<int>(frame_.size() - 12)));
    const bool isStored = packedSize == 0 || packedSize + 4 >= plain.size();
    storeLittle(frame_.data(), isStored ? storedMagic : packedMagic);
    storeLittle(frame_.data() + 4, static_cast<std::uint32_t>(plain.size()));
    if (isStored) {
      std::ranges::copy(plain, frame_.begin() + 8);
      frame_.resize(8 + plain.size());
    } else {
      storeLittle(frame_.data() + 8, static_cast<std::uint32_t>(packedSize));
      frame_.resize(12 + packedSize);
    }
  }

  std::vector<std::byte> frame_;
  std::size_t delivered_ = 0;
  bool isEnded_ = false;
};

}  // namespace

std::unique_ptr<CompressionStream> makeLz4Stream(CompressionOperation operation) {
  if (operation == CompressionOperation::encode) return std::make_unique<Lz4Encoder>();
  return std::make_unique<Lz4Decoder>();
}

}  // namespace tolvanite::detail
