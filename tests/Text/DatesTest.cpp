#include <Tolvanite/Text/Dates.h>

#include <array>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Text/DateComponents.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;

AbsoluteTime utc(std::string_view text) {
  return DateFormatter::naiveISODateFormatter_withoutFractionalSeconds().parse(text).forced(text);
}

TimeZone zone(std::string_view name) { return TimeZone::named(name).forced(name); }

std::vector<std::string> isoTexts(const std::vector<AbsoluteTime>& times) {
  std::vector<std::string> result;
  for (const AbsoluteTime time : times) result.push_back(qIso_without(time));
  return result;
}

TEST(DatesTest, sharedFormatters) {
  const AbsoluteTime time(1517652000.1226);
  const struct {
    const DateFormatter& formatter;
    std::string text;
    double read;
  } cases[] = {
      {DateFormatter::naiveISODateFormatter_withFractionalSeconds(), "2018-02-03T10:00:00.123Z",
       1517652000.123},
      {DateFormatter::naiveISODateFormatter_withoutFractionalSeconds(), "2018-02-03T10:00:00Z",
       1517652000},
      {DateFormatter::tvJsonIsoDateFormatter(), "2018-02-03T10:00:00.123Z", 1517652000.123},
      {DateFormatter::sqliteDateFormatter(), "2018-02-03 10:00:00.123", 1517652000.123},
      {DateFormatter::utcDateFormatter(), "2018-02-03 10:00:00 UTC", 1517652000},
  };
  for (const auto& [formatter, text, read] : cases) {
    EXPECT_EQ(formatWith(time, formatter), text);
    EXPECT_EQ(formatter.parse(text), AbsoluteTime(read)) << text;
    EXPECT_FALSE(formatter.parse(text + "0x") || formatter.parse("x" + text)) << text;
    EXPECT_FALSE(formatter.parse(text.substr(0, text.size() - 5)).has_value()) << text;
  }
  EXPECT_EQ(qIso_with(time), cases[0].text);
  EXPECT_EQ(qIso_without(time), cases[1].text);
}

// Written and read by hand, the fixed forms give what the engine gives, which another locale uses.
RC_GTEST_PROP(DatesTest, fixedFormsAreThoseOfTheEngine, ()) {
  const DateFormatter* const fixed =
      *rc::gen::element(&DateFormatter::naiveISODateFormatter_withFractionalSeconds(),
                        &DateFormatter::naiveISODateFormatter_withoutFractionalSeconds(),
                        &DateFormatter::sqliteDateFormatter(), &DateFormatter::utcDateFormatter());
  const DateFormatter engine(fixed->formatString(), "en_US", TimeZone::utc());
  // Most lie in the years 1583 to 9999, some around the ends.
  const Int milliseconds =
      *rc::gen::oneOf(rc::gen::inRange<Int>(-12'300'000'000'000, 300'000'000'000'000),
                      rc::gen::inRange<Int>(-12'212'553'700'000, -12'212'553'500'000),
                      rc::gen::inRange<Int>(253'402'300'700'000, 253'402'300'900'000),
                      rc::gen::inRange<Int>(-100'000'000, 100'000'000));
  const AbsoluteTime time(static_cast<double>(milliseconds) / 1000);
  std::string text = fixed->format(time);
  RC_ASSERT(text == engine.format(time));
  RC_ASSERT(fixed->parse(text) == engine.parse(text));
  const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
  text[place] = *rc::gen::element('0', '1', '3', '9', ' ', '-', ':', '.', '/', '\xff');
  RC_ASSERT(fixed->parse(text) == engine.parse(text));
  text.erase(place, 1);
  RC_ASSERT(fixed->parse(text) == engine.parse(text));
}

TEST(DatesTest, timesBeyondTheFixedForms) {
  const struct {
    double seconds;
    std::string text;
  } cases[] = {{0.9996, "1970-01-01T00:00:01.000Z"},
               {-0.0004, "1970-01-01T00:00:00.000Z"},
               {253402300799.9996, "10000-01-01T00:00:00.000Z"},
               {-12219292800.001, "1582-10-04T23:59:59.999Z"},
               {1e300, "1e+300 s"},
               {-1e300, "-1e+300 s"},
               {std::numeric_limits<double>::infinity(), "inf s"},
               {std::numeric_limits<double>::quiet_NaN(), "nan s"}};
  for (const auto& [seconds, text] : cases) {
    EXPECT_EQ(qIso_with(AbsoluteTime(seconds)), text);
    static_cast<void>(beginningOfDayDate(AbsoluteTime(seconds)));
    static_cast<void>(tvIsTimeBetweenSlang(AbsoluteTime(seconds), 0, 2400));
  }
}

TEST(DatesTest, localForms) {
  const AbsoluteTime time(1517652000.5);
  const std::time_t seconds = 1517652000;
  const auto local = [&](const char* format) {
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    return std::string(text.data(), std::strftime(text.data(), text.size(), format, &parts));
  };
  EXPECT_EQ(qEasy(time), local("%Y-%m-%d_%H%M"));
  EXPECT_EQ(qEasyTime(time), local("%H-%M-%S"));
  EXPECT_EQ(qYyyyMmDdHhMmSs(time), local("%Y-%m-%d_%H-%M-%S"));
  for (const auto& [text, pattern] : {std::pair(tvNowString(), "yyyy-MM-dd_HH-mm"),
                                      std::pair(tvNowStringWithSeconds(), "yyyy-MM-dd_HH-mm-ss")}) {
    const auto now = DateFormatter(pattern).parse(text);
    ASSERT_TRUE(now) << text;
    EXPECT_LT(std::abs(*now - AbsoluteTime::now()), 120);
  }
  EXPECT_THAT(tvNowStringTime(), ::testing::MatchesRegex("[0-9]{2}-[0-9]{2}-[0-9]{2}"));
}

TEST(DatesTest, formattersByPatternAndByStyle) {
  DateFormatter formatter("EEEE, d. MMMM", "de_DE", TimeZone::secondsFromGmt(-3600));
  const DateFormatter copy = formatter;
  EXPECT_EQ(formatter.format(AbsoluteTime(0)), "Mittwoch, 31. Dezember");
  EXPECT_EQ(formatter.tvSetFormatString("HH 'é\xff' XXX").format(AbsoluteTime(0)),
            "23 é\uFFFD -01:00");
  EXPECT_EQ(copy.format(AbsoluteTime(0)), "Mittwoch, 31. Dezember");
  using Style = DateFormatter::Style;
  const auto styled = [](Style time, Style date) {
    return DateFormatter(time, date, TimeZone::utc()).format(AbsoluteTime(0));
  };
  EXPECT_EQ(styled(Style::none, Style::none), "");
  EXPECT_THAT(styled(Style::none, Style::fullStyle), ::testing::HasSubstr("1970"));
  EXPECT_NE(styled(Style::shortStyle, Style::none), styled(Style::longStyle, Style::none));
  EXPECT_EQ(styled(Style::shortStyle, Style::longStyle).find(styled(Style::none, Style::longStyle)),
            0U);
}

TEST(DatesTest, timeZones) {
  for (const auto& [seconds, name] : {std::pair<Int, const char*>(0, "GMT"),
                                      {-12600, "GMT-03:30"},
                                      {3601, "GMT+01:00:01"},
                                      {86399, "GMT+23:59:59"}}) {
    EXPECT_EQ(TimeZone::secondsFromGmt(seconds).name(), name);
    EXPECT_EQ(DateFormatter("HH:mm:ss", "", TimeZone::secondsFromGmt(seconds)).parse("00:00:00"),
              AbsoluteTime(static_cast<double>(-seconds)))
        << name;
  }
  for (const auto* name : {"", "Europe/Nowhere", "\xff", "Etc/Unknown"}) {
    EXPECT_FALSE(TimeZone::named(name)) << name;
  }
  EXPECT_DEATH(TimeZone::secondsFromGmt(-86400), "A time zone of -86400 seconds from GMT");
}

TEST(DatesTest, readsTheDatesOfMailsAndFeeds) {
  const std::pair<std::string, std::string> cases[] = {
      {"Sat, 3 Feb 2018 10:00:00 GMT", "2018-02-03T10:00:00Z"},
      {"sat, 3 feb 2018 10:00 gmt", "2018-02-03T10:00:00Z"},
      {"Sat, 03 Feb 2018 10:00:59", "2018-02-03T10:00:59Z"},
      {"Sat, 3 Feb 2018 10:00", "2018-02-03T10:00:00Z"},
      {"Mon, 3 Feb 2018 10:00 -0030", "2018-02-03T10:30:00Z"},
      {"3 Feb 2018 10:00:00 +0100 (CET, winter)", "2018-02-03T09:00:00Z"},
      {"3 Feb 2018 10:00:00 +01:00", "2018-02-03T09:00:00Z"},
      {"3 Feb 2018 10:00 GMT+1", "2018-02-03T09:00:00Z"},
      {"3 Jul 2018 10:00:00 est", "2018-07-03T15:00:00Z"},
      {"3 Jul 2018 10:00:00 PDT", "2018-07-03T17:00:00Z"},
      {"3 Feb 2018 10:00 CEST", "2018-02-03T08:00:00Z"},
      {"3 Feb 2018 10:00 Z", "2018-02-03T10:00:00Z"},
      {"3 Feb 2018 10:00 GMT+0100", "2018-02-03T09:00:00Z"},
      {"3 Feb 2018 10:00 utc-5:30\t", "2018-02-03T15:30:00Z"},
      {"3 Feb 2018 10:00:00\tCEST(summer (really)) \r\n", "2018-02-03T08:00:00Z"},
      {"3 Feb 2018 10:00 a", "2018-02-03T10:00:00Z"},
      {"3 Feb 2018 10:00:00", "2018-02-03T10:00:00Z"},
      {"3 Feb 2018 10:00", "2018-02-03T10:00:00Z"},
      {"3 Feb 18 10:00", "0018-02-03T10:00:00Z"},
  };
  for (const auto& [text, expected] : cases) {
    const auto time = dateFromRFC822String(text);
    ASSERT_TRUE(time) << text;
    EXPECT_EQ(qIso_without(*time), expected) << text;
  }
  for (const auto* text :
       {"", ",", "GMT", "3 Feb, 2018 10:00", "Sat 3 Feb 2018 10:00", "30 Feb 2018 10:00",
        "3 Feb 2018 24:00", "3 Feb 2018", "3 Feb 2018 10:00 J", "3 Feb 2018 10:00 XYZ",
        "3 Feb 2018 10:00:00 GMT x", "3 Feb 2018 10:00 GMT+", "3 Feb 2018 10:00 +0060", ")", " \t",
        "3 Feb 2018 10:00 \xff", "(", " ()", "\xc3, 3 Feb 2018 10:00"}) {
    EXPECT_FALSE(dateFromRFC822String(text)) << text;
  }
}

TEST(DatesTest, daysBeginWhereTheZoneSays) {
  const struct {
    const char* zoneName;
    const char* time;
    std::vector<std::string> expected;
  } cases[] = {
      {"GMT", "2024-03-01T23:59:59Z", {"2024-03-01T00:00:00Z", "2024-02-29T00:00:00Z"}},
      {"Europe/Berlin", "2018-03-25T22:30:00Z", {"2018-03-25T22:00:00Z", "2018-03-24T23:00:00Z"}},
      // Midnight is skipped, comes twice, and a whole day is skipped.
      {"America/Sao_Paulo", "2018-11-04T20:00:00Z", {"2018-11-04T03:00:00Z"}},
      {"America/Havana", "2018-11-04T20:00:00Z", {"2018-11-04T04:00:00Z"}},
      {"Pacific/Apia", "2011-12-30T20:00:00Z", {"2011-12-30T10:00:00Z", "2011-12-29T10:00:00Z"}},
  };
  for (const auto& [name, time, expected] : cases) {
    const auto count = static_cast<Int>(expected.size());
    EXPECT_EQ(isoTexts(TvDateUtils::beginningOfDayDatesBackwards(count, utc(time), zone(name))),
              expected)
        << name;
    EXPECT_EQ(qIso_without(beginningOfDayDate(utc(time), zone(name))), expected[0]) << name;
  }
  EXPECT_THAT(TvDateUtils::beginningOfDayDatesBackwards(0), ElementsAre());
  EXPECT_DEATH(TvDateUtils::beginningOfDayDatesBackwards(-1), "Negative number of days: -1");
  const AbsoluteTime today = beginningOfDayDate();
  EXPECT_FALSE(isLaterThan(today, AbsoluteTime::now()));
  EXPECT_TRUE(isEarlierThan(AbsoluteTime::now() - 25 * 3600.0, today));
  EXPECT_FALSE(isEarlierThan(today, today) || isLaterThan(today, today));
}

TEST(DatesTest, timesOfDay) {
  const struct {
    Int start, end;
    const char* time;
    bool isBetween;
  } cases[] = {{2200, 600, "23:00:00", true},  {2200, 600, "05:59:59", true},
               {2200, 600, "06:00:00", false}, {2200, 600, "21:59:59", false},
               {900, 1730, "09:00:00", true},  {900, 1730, "17:29:59", true},
               {900, 1730, "17:30:00", false}, {900, 1730, "08:59:59", false},
               {900, 900, "09:00:00", false},  {0, 2400, "23:59:59", true}};
  for (const auto& [start, end, time, isBetween] : cases) {
    const AbsoluteTime at = utc("2018-02-03T" + std::string(time) + "Z");
    EXPECT_EQ(tvIsTimeBetweenSlang(at, start, end, TimeZone::utc()), isBetween)
        << start << ' ' << end << ' ' << time;
    EXPECT_EQ(tvIsTimeBetweenSlang(at - 5400, start, end, TimeZone::secondsFromGmt(5400)),
              isBetween);
  }
}

TEST(DatesTest, formattersServeSeveralThreads) {
  const DateFormatter formatter("EEE, d MMM yyyy HH:mm:ss zzz", "en_US", zone("Europe/Berlin"));
  std::array<int, 4> wrong{};
  std::vector<std::jthread> threads;
  for (std::size_t i = 0; i < wrong.size(); ++i) {
    threads.emplace_back([&, i] {
      for (int day = 0; day < 200; ++day) {
        const AbsoluteTime time(86400.0 * (day + 1000.0 * static_cast<double>(i)));
        wrong[i] += formatter.parse(formatter.format(time)) == time ? 0 : 1;
        wrong[i] += dateFromRFC822String(formatter.format(time)) == time ? 0 : 1;
      }
    });
  }
  threads.clear();
  EXPECT_THAT(wrong, ::testing::Each(0));
}

TEST(DateComponentsTest, setUnits) {
  using enum CalendarUnit;
  const DateComponents date({2024, 2, 3}, {year, month, month});
  EXPECT_EQ(date.value(year), 2024);
  EXPECT_EQ(date.value(month), 3);
  EXPECT_FALSE(date.value(yearForWeekOfYear));
  EXPECT_EQ(DateComponents(2, hour), DateComponents({2}, {hour}));
  EXPECT_NE(DateComponents(2, hour), DateComponents(2, day));
  EXPECT_DEATH(DateComponents({1, 2}, {day}), "2 values for 1 units");
}

}  // namespace
