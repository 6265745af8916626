#include <Tolvanite/Text/detail/UtcForm.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <utility>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

namespace {

using namespace std::chrono;

constexpr int firstYear = 1583;  // The first whole one of the Gregorian calendar.
constexpr int lastYear = 9999;
constexpr Int millisecondsOfDay = 86'400'000;

constexpr double millisecondsBefore(int yearNumber) {
  const sys_days start = year(yearNumber) / January / 1;
  return static_cast<double>(start.time_since_epoch().count()) * double{millisecondsOfDay};
}

// The two digits of each number below 100.
constexpr std::array<char, 200> digitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

char* writePair(char* out, unsigned number, char behind) {
  out[0] = digitPairs[std::size_t{2} * number];
  out[1] = digitPairs[std::size_t{2} * number + 1];
  out[2] = behind;
  return out + 3;
}

// Reads `count` digits; sets `isWrong` when one is none.
unsigned readDigits(const char* text, int count, bool& isWrong) {
  unsigned number = 0;
  for (int i = 0; i < count; ++i) {
    const unsigned digit = static_cast<unsigned char>(text[i]) - unsigned{'0'};
    isWrong |= digit > 9;
    number = number * 10 + digit;
  }
  return number;
}

}  // namespace

Optional<UtcForm> UtcForm::ofPattern(std::string_view pattern) {
  static constexpr std::pair<std::string_view, UtcForm> forms[] = {
      {"yyyy-MM-dd'T'HH:mm:ss.SSS'Z'", {'T', true, "Z"}},
      {"yyyy-MM-dd'T'HH:mm:ss'Z'", {'T', false, "Z"}},
      {"yyyy-MM-dd' 'HH:mm:ss.SSS", {' ', true, ""}},
      {"yyyy-MM-dd HH:mm:ss 'UTC'", {' ', false, " UTC"}},
  };
  for (const auto& [known, form] : forms) {
    if (known == pattern) return form;
  }
  return {};
}

Optional<std::string> UtcForm::write(double milliseconds) const {
  // Written so that what is no number fails, too.
  if (!(milliseconds >= millisecondsBefore(firstYear) &&
        milliseconds < millisecondsBefore(lastYear + 1))) {
    return {};
  }
  const Int whole = static_cast<Int>(milliseconds);
  const Int day = (whole < 0 ? whole - (millisecondsOfDay - 1) : whole) / millisecondsOfDay;
  const auto rest = static_cast<unsigned>(whole - day * millisecondsOfDay);
  const year_month_day date{sys_days(days(static_cast<int>(day)))};
  const auto yearNumber = static_cast<unsigned>(static_cast<int>(date.year()));

  std::array<char, 32> text;
  char* out = writePair(text.data(), yearNumber / 100, '-') - 1;
  out = writePair(out, yearNumber % 100, '-');
  out = writePair(out, static_cast<unsigned>(date.month()), '-');
  out = writePair(out, static_cast<unsigned>(date.day()), separator);
  out = writePair(out, rest / 3'600'000, ':');
  out = writePair(out, rest / 60'000 % 60, ':');
  out = writePair(out, rest / 1000 % 60, '.');
  if (hasMilliseconds) {
    *out++ = static_cast<char>('0' + rest % 1000 / 100);
    out = writePair(out, rest % 100, '.');
  }
  std::string result;
  result.reserve(static_cast<std::size_t>(out - text.data()) + suffix.size());
  result.append(text.data(), out - 1);
  result += suffix;
  return result;
}

Optional<AbsoluteTime> UtcForm::read(std::string_view text) const {
  constexpr std::size_t toSeconds = 19, toMilliseconds = 23;
  const std::size_t end = hasMilliseconds ? toMilliseconds : toSeconds;
  if (text.size() != end + suffix.size() || text.substr(end) != suffix) return {};
  const char* at = text.data();
  if (at[4] != '-' || at[7] != '-' || at[10] != separator || at[13] != ':' || at[16] != ':') {
    return {};
  }
  bool isWrong = hasMilliseconds && at[toSeconds] != '.';
  const unsigned yearNumber = readDigits(at, 4, isWrong);
  const unsigned monthNumber = readDigits(at + 5, 2, isWrong);
  const unsigned dayNumber = readDigits(at + 8, 2, isWrong);
  const unsigned hour = readDigits(at + 11, 2, isWrong);
  const unsigned minute = readDigits(at + 14, 2, isWrong);
  const unsigned second = readDigits(at + 17, 2, isWrong);
  const unsigned fraction = hasMilliseconds ? readDigits(at + 20, 3, isWrong) : 0;
  if (isWrong || hour > 23 || minute > 59 || second > 59) return {};
  const year_month_day date(year(static_cast<int>(yearNumber)), month(monthNumber), day(dayNumber));
  if (yearNumber < unsigned{firstYear} || !date.ok()) return {};
  const Int days = sys_days(date).time_since_epoch().count();
  const Int seconds = ((days * 24 + hour) * 60 + minute) * 60 + second;
  return AbsoluteTime(static_cast<double>(seconds * 1000 + fraction) / 1000);
}

}  // namespace tolvanite::detail
