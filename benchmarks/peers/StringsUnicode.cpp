#include "../StringsDriver.h"

#if defined(TOLVANITE_PEER_UTF8PROC)
#include <utf8proc.h>
#endif
#if defined(TOLVANITE_PEER_ICU)
#include <unicode/brkiter.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#endif

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace bench {
namespace {

#if defined(TOLVANITE_PEER_UTF8PROC)
struct Utf8proc {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }
  static std::size_t graphemes(const Text& text) {
    const auto* place = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    auto left = static_cast<utf8proc_ssize_t>(text.size());
    std::size_t count = left > 0 ? 1 : 0;
    utf8proc_int32_t before = 0, next = 0, state = 0;
    for (bool isFirst = true; left > 0; isFirst = false) {
      const utf8proc_ssize_t length = utf8proc_iterate(place, left, &next);
      if (!isFirst && utf8proc_grapheme_break_stateful(before, next, &state) != 0) ++count;
      before = next;
      place += length;
      left -= length;
    }
    return count;
  }
};
const bool utf8procRegistered = registerStrings<Utf8proc>("utf8proc");
#endif

#if defined(TOLVANITE_PEER_ICU)
icu::BreakIterator& breaks() {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> all(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  return *all;
}

std::size_t countBreaks() {
  std::size_t count = 0;
  while (breaks().next() != icu::BreakIterator::DONE) ++count;
  return count;
}

struct IcuUtf16 {
  using Text = icu::UnicodeString;
  static Text prepared(std::string_view text) {
    return Text::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  }
  static std::size_t graphemes(const Text& text) {
    breaks().setText(text);
    return countBreaks();
  }
};

struct IcuUtf8 {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }
  static std::size_t graphemes(const Text& text) {
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    breaks().setText(&source, status);
    const std::size_t count = countBreaks();
    utext_close(&source);
    return count;
  }
};
const bool icuRegistered =
    registerStrings<IcuUtf16>("icu_utf16") && registerStrings<IcuUtf8>("icu_utf8");
#endif

}  // namespace
}  // namespace bench
