#include <Tolvanite/Compression/detail/LzfseDecoder.h>

#include <algorithm>
#include <cstring>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// Room for what matches reach, and for three times as much until that has to be moved. It fits the
// second-level cache of most machines.
constexpr std::size_t windowSize = std::size_t{1} << 20;

// What the block at the start of `stream` takes there and gives; false if it can't be told.
bool readBlockSizes(Bytes stream, std::uint64_t& blockSize, std::uint64_t& plainSize) {
  if (stream.size() < lzvnHeaderSize) return false;
  plainSize = loadLittle<std::uint32_t>(stream.data() + 4);
  switch (loadLittle<std::uint32_t>(stream.data())) {
    case storedMagic:
      blockSize = storedHeaderSize + plainSize;
      return true;
    case lzvnMagic:
      blockSize = lzvnHeaderSize + std::uint64_t{loadLittle<std::uint32_t>(stream.data() + 8)};
      return true;
    case plainTablesMagic:
    case codedTablesMagic:
      return readSizes(stream, blockSize, plainSize);
    default:
      return false;
  }
}

}  // namespace

Decoder::Decoder()
    : window_(std::make_unique_for_overwrite<std::byte[]>(windowSize)),
      delivered_(window_.get()),
      written_(window_.get()) {}

CompressionStream::Status Decoder::process(bool /*isFinal*/, ByteBuffer& result) {
  if (delivered_ == written_) {
    if (kind_ == Kind::end) return Status::end;
    if (kind_ == Kind::none ? !openBlock() : !writeOn()) return Status::error;
  }
  delivered_ += deliver({delivered_, written_}, result);
  return Status::ok;
}

std::size_t Decoder::promisedSize() const {
  std::uint64_t result = 0;
  std::uint64_t blockSize = 0;
  std::uint64_t plainSize = 0;
  Bytes rest = source;
  while (readBlockSizes(rest, blockSize, plainSize) && blockSize <= rest.size()) {
    result += plainSize;
    rest = rest.subspan(blockSize);
  }
  return result;
}

bool Decoder::openBlock() {
  if (source.size() < 4) return false;
  switch (loadLittle<std::uint32_t>(source.data())) {
    case endMagic:
      source = source.subspan(4);
      kind_ = Kind::end;
      return true;
    case storedMagic:
      return openStored();
    case plainTablesMagic:
      return openMatches(false);
    case codedTablesMagic:
      return openMatches(true);
    case lzvnMagic:
      return openLzvn();
    default:
      return false;
  }
}

bool Decoder::openStored() {
  if (source.size() < storedHeaderSize) return false;
  const auto size = loadLittle<std::uint32_t>(source.data() + 4);
  if (size > source.size() - storedHeaderSize) return false;
  stored_ = source.subspan(storedHeaderSize, size);
  source = source.subspan(storedHeaderSize + size);
  kind_ = Kind::stored;
  return true;
}

bool Decoder::openMatches(bool hasCodedTables) {
  if (hasCodedTables ? !readCodedTablesHeader(source, header_)
                     : !readPlainTablesHeader(source, header_)) {
    return false;
  }
  // Another block has to follow, and words are read beyond the end of this one.
  if (source.size() - header_.blockSize() < 4) return false;
  if (!matches_.open(header_, source)) return false;
  source = source.subspan(header_.blockSize());
  kind_ = Kind::matches;
  return true;
}

bool Decoder::openLzvn() {
  if (source.size() < lzvnHeaderSize) return false;
  const auto plainSize = loadLittle<std::uint32_t>(source.data() + 4);
  const auto payloadSize = loadLittle<std::uint32_t>(source.data() + 8);
  if (payloadSize > source.size() - lzvnHeaderSize) return false;
  if (!lzvn_.open(source.subspan(lzvnHeaderSize, payloadSize), plainSize)) return false;
  source = source.subspan(lzvnHeaderSize + payloadSize);
  kind_ = Kind::lzvn;
  return true;
}

// Writes a part of the block that is as large as the window has room for.
bool Decoder::writeOn() {
  moveWindow();
  const std::byte* const limit = window_.get() + windowSize;
  bool isGood = true;
  bool isFinished = true;
  if (kind_ == Kind::stored) {
    isFinished = writeStored(limit);
  } else if (kind_ == Kind::matches) {
    isGood = matches_.write(window_.get(), written_, limit);
    isFinished = matches_.isFinished();
  } else {
    isGood = lzvn_.write(window_.get(), written_, limit);
    isFinished = lzvn_.isFinished();
  }
  if (isFinished) kind_ = Kind::none;
  return isGood;
}

bool Decoder::writeStored(const std::byte* limit) {
  const std::size_t count = std::min(stored_.size(), static_cast<std::size_t>(limit - written_));
  std::memcpy(written_, stored_.data(), count);
  written_ += count;
  stored_ = stored_.subspan(count);
  return stored_.empty();
}

// Makes room when the window is nearly full. All of it is delivered then.
void Decoder::moveWindow() {
  std::byte* const start = window_.get();
  if (static_cast<std::size_t>(start + windowSize - written_) >= BlockDecoder::mostStep) return;
  std::memmove(start, written_ - mostD, mostD);
  written_ = delivered_ = start + mostD;
}

}  // namespace tolvanite::detail::lzfse
