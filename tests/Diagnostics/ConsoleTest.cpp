#include <Tolvanite/Diagnostics/Console.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Frame/Error.h>

#include <tests/Support/CapturedOutput.h>

namespace {

using namespace tolvanite;
using tolvanite::testing::CapturedOutput;

std::string outputOf(const auto& work) {
  const CapturedOutput captured;
  work();
  return captured.text();
}

std::string outputOnAnotherThread(const auto& work) {
  return outputOf([&] { std::jthread{work}; });
}

const CallerPosition place("/src/app/Foo.old.ext", 12, "run()", 3);

TEST(ConsoleTest, linesWithTheirPosition) {
  const auto file = [] { qfilelog("x", place); };
  EXPECT_EQ(outputOf(file), "🔀MT Foo.old@12: x\n");
  EXPECT_EQ(outputOnAnotherThread(file), "🔀 Foo.old@12: x\n");

  const auto line = [] { qlinelog("x", place); };
  EXPECT_EQ(outputOf(line), "🔀MT \"Foo.old.ext\"@12: run()x\n");
  EXPECT_EQ(outputOnAnotherThread(line), "🔀 \"Foo.old.ext\"@12: run()x\n");

  const auto flow = [] { qflow("x", place); };
  EXPECT_EQ(outputOf(flow), "🍇🍇🍇Foo.old.run() Line:12 [MT]: x\n");
  EXPECT_EQ(outputOnAnotherThread(flow), "🍇🍇🍇Foo.old.run() Line:12 : x\n");
  const auto silentFlow = [] { qflow("", place); };
  EXPECT_EQ(outputOf(silentFlow), "🍇🍇🍇Foo.old.run() Line:12 [MT]\n");
  EXPECT_EQ(outputOnAnotherThread(silentFlow), "🍇🍇🍇Foo.old.run() Line:12 \n");

  const auto debug = [] { dmprint(true, "x"); };
  EXPECT_EQ(outputOf(debug), "🔀MT x\n");
  EXPECT_EQ(outputOnAnotherThread(debug), "🔀 x\n");
}

TEST(ConsoleTest, flagsSilence) {
  EXPECT_EQ(outputOf([] {
              qdebuglog(false, "x", place);
              dmprint(false, "x");
              qflow(false, "x", place);
            }),
            "");
  EXPECT_EQ(outputOf([] {
              qdebuglog(true, "x", place);
              qflow(true, "", place);
            }),
            "🔀MT Foo.old@12: x\n🍇🍇🍇Foo.old.run() Line:12 [MT]\n");
}

TEST(ConsoleTest, positionIsTheCallersUnlessGiven) {
  EXPECT_EQ(outputOf([] { qfilelog(); }), fmt::format("🔀MT ConsoleTest@{}: \n", __LINE__));
  EXPECT_EQ(outputOf([] { qdebuglog(true); }), fmt::format("🔀MT ConsoleTest@{}: \n", __LINE__));
  const std::string flow = outputOf([] { qflow("a text is no flag"); });
  EXPECT_THAT(flow, ::testing::StartsWith("🍇🍇🍇ConsoleTest."));
  EXPECT_THAT(flow,
              ::testing::EndsWith(fmt::format(" Line:{} [MT]: a text is no flag\n", __LINE__ - 3)));
  EXPECT_EQ(qCurrentFilename(), __FILE__);
  EXPECT_EQ(qCurrentFilename("a/b.c"), "a/b.c");
}

TEST(ConsoleTest, shortFileNames) {
  const auto named = [](std::string_view file) {
    return outputOf([&] { qfilelog("", CallerPosition(file, 1)); });
  };
  EXPECT_EQ(named("Foo.ext"), "🔀MT Foo@1: \n");
  EXPECT_EQ(named("a/Foo"), "🔀MT Foo@1: \n");
  EXPECT_EQ(named("a/Foo.ext//"), "🔀MT Foo@1: \n");
  EXPECT_EQ(named(".hidden"), "🔀MT .hidden@1: \n");
  EXPECT_EQ(named(""), "🔀MT @1: \n");
}

TEST(ConsoleTest, theSystemLogStampsAndReadsDirectives) {
  const CapturedOutput captured(stderr);
  qnsflow("100%% %s %n%", place);
  EXPECT_THAT(captured.text(), ::testing::MatchesRegex(
                                   "[0-9-]{10} [0-9:]{8}\\.[0-9]{3} [^ ]+\\[[0-9]+:[0-9]+\\] "
                                   "🍇🍇🍇Foo\\.old\\.run\\(\\) Line:12 \\[MT\\]: 100% %s %n%\n"));
}

// What `testOutput` of a style prints, colour by colour in its order, then the three grades.
std::string stylePrint(std::string_view before, const std::vector<std::string>& codes,
                       std::string_view after) {
  const std::vector<std::string> words{
      "red",      "green",     "blue",        "lightRed", "lightGreen", "lightBlue",
      "yellow",   "purple",    "lightPurple", "brown",    "cyan",       "lightCyan",
      "darkGray", "lightGray", "error",       "warning",  "warning"};
  std::string result;
  for (std::size_t i = 0; i < words.size(); ++i) {
    result += fmt::format("{}{}{}{}\n", before, codes.at(i), words.at(i), after);
  }
  return result;
}

TEST(ConsoleTest, everyStyleHasItsSequences) {
  std::vector<std::string> plain(14);
  plain.insert(plain.end(), {"Error:", "Severe:", "Warning:"});
  EXPECT_EQ(outputOf([] { QLogging::testOutput(); }), stylePrint("", plain, ""));

  const std::vector<std::string> fg{"fg255,0,0;",   "fg0,255,0;",   "fg0,0,255;",   "fg255,0,0;",
                                    "fg0,255,0;",   "fg0,0,255;",   "fg255,255,0;", "fg255,0,255;",
                                    "fg255,0,255;", "fg139,69,19;", "fg0,255,255;", "fg0,255,255;",
                                    "fg40,40,40;",  "fgb0,b0,b0;",  "fg255,0,0;",   "fg255,0,255;",
                                    "fg255,255,0;"};
  EXPECT_EQ(outputOf([] { qlog::testOutput(); }), stylePrint("\x1b[", fg, "\x1b[;"));

  const std::vector<std::string> ansi{"0;31m", "0;32m", "0;34m", "1;31m", "1;32m", "1;34m",
                                      "1;33m", "0;35m", "1;35m", "0;33m", "0;36m", "1;36m",
                                      "1;30m", "0;37m", "0;31m", "0;35m", "1;33m"};
  EXPECT_EQ(outputOf([] { qansilog::testOutput(); }), stylePrint("\x1b[", ansi, "\x1b[0m"));
}

TEST(ConsoleTest, errorsAreTestedAndReportedAtOnce) {
  const Error error("broken");
  EXPECT_EQ(outputOf([&] {
              QLogging::error("text");
              QLogging::error("Load", error);
              QLogging::error(error);
              qansilog::error(std::nullopt, error);
            }),
            "Error:text\nError:Load:broken\nError:Error:broken\n"
            "\x1b[0;31mError:broken\x1b[0m\n");

  EXPECT_EQ(outputOf([&] {
              EXPECT_FALSE(qlog::iferror("x", std::nullopt));
              EXPECT_FALSE(qlog::iferror("x", Optional<Error>()));
              EXPECT_FALSE(qlog::iferror("x", nullptr));
            }),
            "");
  EXPECT_EQ(outputOf([&] {
              EXPECT_TRUE(QLogging::iferror("x", error));
              EXPECT_TRUE(QLogging::iferror(std::nullopt, &error));
              EXPECT_TRUE(QLogging::iferror("y", std::optional(std::runtime_error("z"))));
            }),
            "Error:x:broken\nError:Error:broken\nError:y:z\n");
}

// Overrides two operations that others rest on.
class Shouting : public QlogStyle {
 protected:
  void lightGreenText(std::string_view text) const override { printLine(std::string(text) + "!"); }
  void errorText(std::string_view text) const override { printLine("ERR " + std::string(text)); }
};

struct shoutlog : LoggingClass<shoutlog> {
  static const LoggingStyle& style() {
    static const Shouting instance;
    return instance;
  }
};

TEST(ConsoleTest, aClassIsHeldAsAValueAndMayBeTheHosts) {
  EXPECT_EQ(outputOf([] {
              const LoggingStyle* log = &QLogging::style();
              log->red(5);
              log = &qansilog::style();
              log->red(Optional<int>());
              log = &shoutlog::style();
              log->green(1.5);
              log->iferror("a", std::runtime_error("b"));
              shoutlog::green("c");
            }),
            "5\n\x1b[0;31mnil\x1b[0m\n1.5!\nERR a:b\nc!\n");
}

TEST(ConsoleTest, colouredTexts) {
  EXPECT_EQ(cc("t", ConsoleColor::red), "\x1b[0;31mt\x1b[0m");
  EXPECT_EQ(cc("t", Optional(ConsoleColor::white)), "\x1b[0;97mt\x1b[0m");
  EXPECT_EQ(cc("t", std::nullopt), "t");
  EXPECT_EQ(cc("t", ConsoleColor::red, {}), "\x1b[31mt\x1b[0m");
  EXPECT_EQ(cc("t", ConsoleColor::cyan, ConsoleModifier::inversed | ConsoleModifier::bold),
            "\x1b[1;7;36mt\x1b[0m");
  EXPECT_EQ(cc("t", ConsoleColor::cyan, ConsoleModifier(-1)), "\x1b[1;5;7;4;36mt\x1b[0m");

  EXPECT_EQ(textForm(ConsoleColor::all()),
            "[black, red, green, brown, blue, purple, cyan, lightGray, darkGray, lightRed, "
            "lightGreen, yellow, lightBlue, lightPurple, lightCyan, white]");
  for (const ConsoleColor& color : ConsoleColor::all()) {
    EXPECT_EQ(ConsoleColor::fromRawValue(color.rawValue()), color);
  }
  EXPECT_EQ(ConsoleColor::fromRawValue("38").q(), "nil");
  EXPECT_EQ(ConsoleColor::yellow.rawValue(), "93");
}

TEST(ConsoleTest, linesOfTwoThreadsDoNotMix) {
  const std::string text = outputOf([] {
    std::vector<std::jthread> threads;
    for (const char letter : {'a', 'b', 'c'}) {
      threads.emplace_back([letter] {
        for (int i = 0; i < 300; ++i) printLine(std::string(9000, letter));
      });
    }
  });
  std::set<std::string> lines;
  std::size_t count = 0;
  for (std::size_t start = 0; start < text.size(); ++count) {
    const std::size_t end = text.find('\n', start);
    lines.insert(text.substr(start, end - start));
    start = end + 1;
  }
  EXPECT_EQ(count, 900U);
  EXPECT_EQ(lines.size(), 3U);
}

}  // namespace
