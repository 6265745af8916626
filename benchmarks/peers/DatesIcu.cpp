#ifdef TOLVANITE_PEER_ICU

#include <string>

#include <unicode/smpdtfmt.h>

#include "../DatesDriver.h"

// ICU, by the pattern and with one format for all.
namespace bench {
namespace {

class Icu {
 public:
  Icu() {
    format_.adoptTimeZone(icu::TimeZone::createTimeZone("GMT"));
    format_.setLenient(false);
  }
  std::string write(std::int64_t milliseconds) {
    icu::UnicodeString text;
    std::string result;
    return format_.format(static_cast<UDate>(milliseconds), text).toUTF8String(result);
  }
  std::int64_t read(const std::string& text) {
    const auto unicode = icu::UnicodeString::fromUTF8(text);
    icu::ParsePosition position(0);
    const UDate time = format_.parse(unicode, position);
    return position.getIndex() == unicode.length() ? static_cast<std::int64_t>(time) : -1;
  }

 private:
  UErrorCode status_ = U_ZERO_ERROR;
  icu::SimpleDateFormat format_{u"yyyy-MM-dd'T'HH:mm:ss.SSS'Z'", icu::Locale("en_US_POSIX"),
                                status_};
};

const bool registered = registerDates<Icu>("icu");

}  // namespace
}  // namespace bench

#endif
