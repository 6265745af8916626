#include <algorithm>
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
    {"AEDT", "+1100"}, {"NZST", "+1200"}, {"NZDT", "+1300"}, {"SGT", "+0800"},  {"PKT", "+0500"},
    {"BRT", "-0300"},  {"ART", "-0300"},  {"WAT", "+0100"},  {"CAT", "+0200"},  {"EAT", "+0300"},
};

constexpr std::string_view blanks = " \t\r\n";

void removeBlanksAtEnd(std::string& text) { text.resize(text.find_last_not_of(blanks) + 1); }

// The offset that a zone means; empty for one that is left to the engine.
std::string_view offsetOf(std::string_view zone) {
  if (zone.size() == 1 && zone[0] >= 'A' && zone[0] <= 'Y' && zone[0] != 'J') return "+0000";
  for (const auto& [name, offset] : zoneOffsets) {
    if (name == zone) return offset;
  }
  // "GMT+0100": the engine knows it without the name only, but "GMT+1:00" with the name only.
  if (zone.find(':') != std::string_view::npos) return {};
  for (const std::string_view name : {"GMT", "UTC", "UT"}) {
    const std::string_view offset = zone.substr(std::min(name.size(), zone.size()));
    if (zone.starts_with(name) && (offset.starts_with('+') || offset.starts_with('-'))) {
      return offset;
    }
  }
  return {};
}

// The text without blanks and a comment at its end, and with an offset for the name of a zone.
std::string withOffset(std::string text) {
  removeBlanksAtEnd(text);
  if (text.ends_with(')')) {
    text.resize(std::min(text.find('('), text.size()));
    removeBlanksAtEnd(text);
  }
  const std::size_t zone = text.find_last_of(blanks) + 1;  // 0 if there is no blank
  const std::string offset(offsetOf(std::string_view(text).substr(zone)));
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
