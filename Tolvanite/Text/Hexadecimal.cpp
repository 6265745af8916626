#include <Tolvanite/Text/Hexadecimal.h>

#include <algorithm>

#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Text/Splitting.h>
#include <Tolvanite/Text/detail/WholeNumber.h>

namespace tolvanite {

namespace {

void appendNumber(std::string& text, std::uint64_t number, std::size_t digits, bool uppercase) {
  const char* const symbols = uppercase ? "0123456789ABCDEF" : "0123456789abcdef";
  std::size_t needed = 1;
  for (std::uint64_t rest = number / 16; rest != 0; rest /= 16) ++needed;
  digits = std::max(digits, needed);
  text.append(digits, '0');
  for (std::size_t place = text.size() - 1; number != 0; --place, number /= 16) {
    text[place] = symbols[number % 16];
  }
}

// Numbers written one behind the other.
class Writer {
 public:
  Writer(const HexadecimalForm& form, std::size_t digits) : form_(form), digits_(digits) {}

  void add(std::uint64_t number) {
    if (!text_.empty()) text_ += form_.separator;
    text_ += form_.prefix;
    appendNumber(text_, number, digits_, form_.uppercase);
  }

  std::string text() && { return std::move(text_); }

 private:
  const HexadecimalForm& form_;
  std::size_t digits_;
  std::string text_;
};

}  // namespace

std::string utf8HexStringRepresentation(std::string_view text, const HexadecimalForm& form) {
  Writer writer(form, 2);
  for (const char byte : text) writer.add(static_cast<unsigned char>(byte));
  return std::move(writer).text();
}

std::string utf16HexStringRepresentation(std::string_view text, const HexadecimalForm& form) {
  Writer writer(form, 4);
  detail::visitScalars(text, [&](char32_t scalar) {
    if (scalar < 0x10000) return writer.add(scalar);
    writer.add(0xD800 + ((scalar - 0x10000) >> 10U));
    writer.add(0xDC00 + ((scalar - 0x10000) & 0x3FFU));
  });
  return std::move(writer).text();
}

std::string scalarsHexRepresentation(std::string_view text, const HexadecimalForm& form) {
  Writer writer(form, 4);
  detail::visitScalars(text, [&](char32_t scalar) { writer.add(scalar); });
  return std::move(writer).text();
}

std::string asScalarsHexString(std::string_view text, const HexadecimalForm& form) {
  return scalarsHexRepresentation(text, form);
}

Optional<std::vector<std::uint32_t>> uint32sFromHexString(std::string_view text,
                                                          std::string_view separator,
                                                          std::string_view prefix) {
  std::vector<std::uint32_t> result;
  if (text.empty()) return result;
  for (std::string_view piece : split(text, separator)) {
    if (piece.starts_with(prefix)) piece.remove_prefix(prefix.size());
    const auto number = detail::wholeNumber<std::uint32_t>(piece, 16);
    if (!number) return {};
    result.push_back(*number);
  }
  return result;
}

Optional<std::string> fromUint32s(const std::vector<std::uint32_t>& list,
                                  std::string_view separator) {
  std::string result;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!detail::isScalar(list[i])) return {};
    if (i != 0) result += separator;
    detail::appendScalar(result, static_cast<char32_t>(list[i]));
  }
  return result;
}

Optional<std::string> stringFromScalarsHexString(std::string_view text, std::string_view separator,
                                                 std::string_view prefix) {
  const auto numbers = uint32sFromHexString(text, separator, prefix);
  return numbers ? fromUint32s(*numbers) : std::nullopt;
}

std::string stringWithOffset(Int offset, Int length, bool uppercase) {
  std::string result = "0x";
  const auto digits = static_cast<std::size_t>(std::max<Int>(length, 1));
  appendNumber(result, static_cast<std::uint64_t>(offset), digits, uppercase);
  return result;
}

std::string stringWithAddress(Int address, bool uppercase) {
  return stringWithOffset(address, 16, uppercase);
}

std::string stringWithAscii(std::uint8_t ascii) {
  std::string result;
  detail::appendScalar(result, ascii);
  return result;
}

}  // namespace tolvanite
