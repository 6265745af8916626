#include <Tolvanite/Text/DateFormatter.h>

#include <cmath>
#include <limits>
#include <mutex>
#include <utility>

#include <fmt/format.h>
#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Text/detail/UtcForm.h>

namespace tolvanite {

namespace {

constexpr const char* neutralLocale = "en_US_POSIX";

icu::Locale icuLocale(const std::string& name) {
  return name.empty() ? icu::Locale::getDefault() : icu::Locale(name.c_str());
}

icu::DateFormat::EStyle icuStyle(DateFormatter::Style style) {
  switch (style) {
    case DateFormatter::Style::none:
      return icu::DateFormat::kNone;
    case DateFormatter::Style::shortStyle:
      return icu::DateFormat::kShort;
    case DateFormatter::Style::mediumStyle:
      return icu::DateFormat::kMedium;
    case DateFormatter::Style::longStyle:
      return icu::DateFormat::kLong;
    case DateFormatter::Style::fullStyle:
      return icu::DateFormat::kFull;
  }
  return icu::DateFormat::kNone;
}

// The pattern of the usual forms of the current language.
std::string patternOf(DateFormatter::Style timeStyle, DateFormatter::Style dateStyle) {
  using Style = DateFormatter::Style;
  if (timeStyle == Style::none && dateStyle == Style::none) return "";
  const std::unique_ptr<icu::DateFormat> format(
      timeStyle == Style::none ? icu::DateFormat::createDateInstance(icuStyle(dateStyle))
      : dateStyle == Style::none
          ? icu::DateFormat::createTimeInstance(icuStyle(timeStyle))
          : icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle)));
  const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
  if (simple == nullptr) throw Error("There are no date formats for the current locale");
  icu::UnicodeString pattern;
  std::string result;
  return simple->toPattern(pattern).toUTF8String(result);
}

}  // namespace

// What copies of a formatter share. ICU's formats may be used by several threads as long as only
// their constant functions are called: these work on a clone of the calendar.
class DateFormatter::Engine {
 public:
  Engine(std::string_view formatString, std::string_view localeName, TimeZone zone)
      : pattern(formatString), locale(localeName), timeZone(std::move(zone)) {
    if (locale == neutralLocale && timeZone == TimeZone::utc()) {
      utcForm_ = detail::UtcForm::ofPattern(pattern);
    }
    if (!utcForm_) format();  // So that a wrong pattern is known at once.
  }

  std::string textOf(AbsoluteTime time) const {
    // Where ICU's calendars end.
    constexpr double first = -184'303'902'528'000'000, last = 183'882'168'921'600'000;
    const double milliseconds = std::floor(time.secondsSinceEpoch() * 1000 + 0.5);
    if (utcForm_) {
      if (auto text = utcForm_->write(milliseconds)) return *std::move(text);
    }
    if (!(milliseconds >= first && milliseconds <= last)) {
      return fmt::format("{} s", time.secondsSinceEpoch());
    }
    icu::UnicodeString text;
    std::string result;
    return format().format(milliseconds, text).toUTF8String(result);
  }

  Optional<AbsoluteTime> timeOf(std::string_view text) const {
    if (utcForm_) {
      if (const auto time = utcForm_->read(text)) return time;
    }
    constexpr std::size_t longest = std::size_t{1} << 20;
    if (text.size() > longest) return {};
    const auto unicode = icu::UnicodeString::fromUTF8(text);
    icu::ParsePosition position(0);
    const UDate milliseconds = format().parse(unicode, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != unicode.length()) return {};
    return AbsoluteTime(milliseconds / 1000);
  }

  const std::string pattern;
  const std::string locale;
  const TimeZone timeZone;

 private:
  const icu::DateFormat& format() const {
    std::call_once(once_, [this] {
      UErrorCode status = U_ZERO_ERROR;
      format_ = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern),
                                                        icuLocale(locale), status);
      if (U_FAILURE(status)) {
        throw Error(fmt::format("No dates can be formatted by \"{}\" in the locale \"{}\": {}",
                                pattern, locale, u_errorName(status)));
      }
      format_->adoptTimeZone(
          icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone.name())));
      format_->setLenient(0);
    });
    return *format_;
  }

  Optional<detail::UtcForm> utcForm_;
  // Made at first use: the fixed forms seldom need it.
  mutable std::once_flag once_;
  mutable std::unique_ptr<icu::SimpleDateFormat> format_;
};

DateFormatter::DateFormatter(Style timeStyle, Style dateStyle, const TimeZone& timeZone)
    : DateFormatter(patternOf(timeStyle, dateStyle), "", timeZone) {}

DateFormatter::DateFormatter(std::string_view formatString, std::string_view locale,
                             const TimeZone& timeZone)
    : engine_(std::make_shared<const Engine>(formatString, locale, timeZone)) {}

DateFormatter& DateFormatter::tvSetFormatString(std::string_view formatString) {
  engine_ = std::make_shared<const Engine>(formatString, locale(), timeZone());
  return *this;
}

const std::string& DateFormatter::formatString() const noexcept { return engine_->pattern; }
const std::string& DateFormatter::locale() const noexcept { return engine_->locale; }
const TimeZone& DateFormatter::timeZone() const noexcept { return engine_->timeZone; }

std::string DateFormatter::format(AbsoluteTime time) const { return engine_->textOf(time); }

Optional<AbsoluteTime> DateFormatter::parse(std::string_view text) const {
  return engine_->timeOf(text);
}

const DateFormatter& DateFormatter::naiveISODateFormatter_withFractionalSeconds() {
  static const DateFormatter formatter("yyyy-MM-dd'T'HH:mm:ss.SSS'Z'", neutralLocale,
                                       TimeZone::utc());
  return formatter;
}

const DateFormatter& DateFormatter::naiveISODateFormatter_withoutFractionalSeconds() {
  static const DateFormatter formatter("yyyy-MM-dd'T'HH:mm:ss'Z'", neutralLocale, TimeZone::utc());
  return formatter;
}

const DateFormatter& DateFormatter::tvJsonIsoDateFormatter() {
  return naiveISODateFormatter_withFractionalSeconds();
}

const DateFormatter& DateFormatter::sqliteDateFormatter() {
  static const DateFormatter formatter("yyyy-MM-dd' 'HH:mm:ss.SSS", neutralLocale, TimeZone::utc());
  return formatter;
}

const DateFormatter& DateFormatter::utcDateFormatter() {
  static const DateFormatter formatter("yyyy-MM-dd HH:mm:ss 'UTC'", neutralLocale, TimeZone::utc());
  return formatter;
}

}  // namespace tolvanite
