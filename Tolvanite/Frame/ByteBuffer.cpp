#include <Tolvanite/Frame/ByteBuffer.h>

#include <ostream>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

std::size_t checkedLength(Int count) {
  if (count < 0) fatalFailure("Negative number of bytes: " + std::to_string(count));
  return static_cast<std::size_t>(count);
}

}  // namespace

ByteBuffer::ByteBuffer(std::initializer_list<std::uint8_t> bytes) {
  append(std::as_bytes(std::span(bytes.begin(), bytes.size())));
}

void ByteBuffer::append(std::span<const std::byte> bytes) {
  if (bytes.empty()) return;
  const std::less<const std::byte*> before;
  const bool isOwnPart =
      !before(bytes.data(), data()) && before(bytes.data(), data() + bytes_.size());
  if (!isOwnPart) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return;
  }
  const std::vector<std::byte> copy(bytes.begin(), bytes.end());
  bytes_.insert(bytes_.end(), copy.begin(), copy.end());
}

void ByteBuffer::resize(Int count) { bytes_.resize(checkedLength(count)); }

void ByteBuffer::reserve(Int count) { bytes_.reserve(checkedLength(count)); }

void ByteBuffer::removeFirst(Int count) {
  if (count < 0 || count > this->count()) fatalIndexOutOfRange(count, this->count());
  bytes_.erase(bytes_.begin(), bytes_.begin() + count);
}

std::size_t ByteBuffer::checkedIndex(Int index) const {
  if (index < 0 || index >= count()) fatalIndexOutOfRange(index, count());
  return static_cast<std::size_t>(index);
}

std::string ByteBuffer::description() const {
  return std::to_string(count()) + (count() == 1 ? " byte" : " bytes");
}

std::ostream& operator<<(std::ostream& out, const ByteBuffer& buffer) {
  return out << buffer.description();
}

}  // namespace tolvanite
