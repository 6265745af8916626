#include <array>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/Dates.h>

namespace tolvanite {

namespace {

// The names of zones, with their offsets. Those of the RFC, and common ones that mean one zone
// only.
constexpr std::pair<std::string_view, std::string_view> zoneOffsets[] = {
    {"UT", "+0000"},   {"UTC", "+0000"},  {"GMT", "+0000"},  {"Z", "+0000"},    {"EST", "-0500"},
    {"EDT", "-0400"},  {"CST", "-0600"},  {"CDT", "-0500"},  {"MST", "-0700"},  {"MDT", "-0600"},
    {"PST", "-0800"},  {"PDT", "-0700"},  {"AKST", "-0900"}, {"AKDT", "-0800"}, {"HST", "-1000"},
    {"NST", "-0330"},  {"NDT", "-0230"},  {"WET", "+0000"},  {"WEST", "+0100"}, {"BST", "+0100"},
    {"CET", "+0100"},  {"CEST", "+0200"}, {"MET", "+0100"},  {"MEST", "+0200"}, {"EET", "+0200"},
    {"EEST", "+0300"}, {"MSK", "+0300"},  {"SAST", "+0200"}, {"HKT", "+0800"},  {"JST", "+0900"},
    {"KST", "+0900"},  {"AWST", "+0800"}, {"ACST", "+0930"}, {"ACDT", "+1030"}, {"AEST", "+1000"},
    {"AEDT", "+1100"}, {"NZST", "+1200"}, {"NZDT", "+1300"},
};

// The offset that a zone name stands for; empty for what is none of them.
std::string_view offsetOf(std::string_view name) {
  if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'Y' && name[0] != 'J') return "+0000";
  for (const auto& [known, offset] : zoneOffsets) {
    if (known == name) return offset;
  }
  return {};
}

// The text without a comment at its end, and with an offset for the name of a zone.
std::string withOffset(std::string text) {
  if (text.ends_with(')')) {
    const std::size_t comment = text.find(" (");
    if (comment != std::string::npos) text.resize(comment);
  }
  const std::size_t zone = text.rfind(' ') + 1;  // 0 if there is no space
  const std::string_view offset = offsetOf(std::string_view(text).substr(zone));
  if (!offset.empty()) text.replace(zone, std::string::npos, offset);
  return text;
}

using Formatters = std::array<DateFormatter, 4>;

DateFormatter utcFormatter(std::string_view pattern) {
  return DateFormatter(pattern, "en_US_POSIX", TimeZone::utc());
}

}  // namespace

Optional<AbsoluteTime> dateFromRFC822String(std::string_view text) {
  static const Formatters withWeekday = {
      utcFormatter("EEE, d MMM yyyy HH:mm:ss zzz"), utcFormatter("EEE, d MMM yyyy HH:mm zzz"),
      utcFormatter("EEE, d MMM yyyy HH:mm:ss"), utcFormatter("EEE, d MMM yyyy HH:mm")};
  static const Formatters withoutWeekday = {
      utcFormatter("d MMM yyyy HH:mm:ss zzz"), utcFormatter("d MMM yyyy HH:mm zzz"),
      utcFormatter("d MMM yyyy HH:mm:ss"), utcFormatter("d MMM yyyy HH:mm")};
  constexpr std::size_t longest = 1000;
  if (text.size() > longest) return {};
  const std::string upper = withOffset(uppercased(text));
  for (const DateFormatter& formatter :
       upper.find(',') != std::string::npos ? withWeekday : withoutWeekday) {
    if (const auto time = formatter.parse(upper)) return time;
  }
  return {};
}

}  // namespace tolvanite
