#include <Tolvanite/Frame/TextEncoding.h>

#include <array>
#include <memory>
#include <ostream>

#include <unicode/ucnv.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

constexpr std::array<const char*, 11> names = {
    "UTF-8",    "US-ASCII", "ISO-8859-1", "windows-1252", "macintosh", "UTF-16",
    "UTF-16LE", "UTF-16BE", "UTF-32",     "UTF-32LE",     "UTF-32BE",
};

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

// A converter that stops at the first fault, in both directions.
Converter strictConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter result(ucnv_open(name, &status), ucnv_close);
  ucnv_setToUCallBack(result.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  ucnv_setFromUCallBack(result.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
  if (U_FAILURE(status)) {
    fatalFailure(std::string("Can't open the converter ") + name + ": " + u_errorName(status));
  }
  return result;
}

// The converted bytes, or absent at the first fault.
Optional<std::string> converted(std::string_view source, const char* from, const char* to) {
  const Converter fromConverter = strictConverter(from);
  const Converter toConverter = strictConverter(to);
  std::string result;
  std::array<char, 4096> block;
  std::array<UChar, 1024> pivot;
  UChar* pivotSource = pivot.data();
  UChar* pivotTarget = pivot.data();
  const char* place = source.data();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  for (bool isFirst = true; status == U_BUFFER_OVERFLOW_ERROR; isFirst = false) {
    status = U_ZERO_ERROR;
    char* blockEnd = block.data();
    ucnv_convertEx(toConverter.get(), fromConverter.get(), &blockEnd, block.data() + block.size(),
                   &place, source.data() + source.size(), pivot.data(), &pivotSource, &pivotTarget,
                   pivot.data() + pivot.size(), isFirst, true, &status);
    result.append(block.data(), blockEnd);
  }
  if (U_FAILURE(status)) return {};
  return result;
}

}  // namespace

std::string_view TextEncoding::name() const noexcept { return names[index_]; }

Optional<ByteBuffer> TextEncoding::encode(std::string_view text) const {
  if (!isValidUtf8(text)) return {};
  if (*this == utf8) return ByteBuffer(text);
  const Optional<std::string> bytes = converted(text, names[utf8.index_], names[index_]);
  if (!bytes) return {};
  return ByteBuffer(*bytes);
}

Optional<std::string> TextEncoding::decode(std::span<const std::byte> bytes) const {
  const std::string_view source(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (*this == utf8) {
    if (!isValidUtf8(source)) return {};
    return std::string(source);
  }
  if (source.empty()) return std::string();
  return converted(source, names[index_], names[utf8.index_]);
}

std::ostream& operator<<(std::ostream& out, TextEncoding encoding) {
  return out << encoding.name();
}

}  // namespace tolvanite
