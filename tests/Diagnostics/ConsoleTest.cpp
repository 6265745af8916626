#include <Tolvanite/Diagnostics/Console.h>

#include <cstdio>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
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

const CallerPosition place("/src/app/Foo.old.ext", 12, "run()", 3);

TEST(ConsoleTest, linesWithTheirPosition) {
  const auto printAll = [] {
    qfilelog("x", place);
    qdebuglog(true, "x", place);
    qlinelog("x", place);
    qflow("x", place);
    qflow(true, "", place);
    dmprint(true, "x");
    // A flag that is not set silences.
    qdebuglog(false, "x", place);
    dmprint(false, "x");
    qflow(false, "x", place);
  };
  EXPECT_EQ(outputOf(printAll),
            "🔀MT Foo.old@12: x\n"
            "🔀MT Foo.old@12: x\n"
            "🔀MT \"Foo.old.ext\"@12: run()x\n"
            "🍇🍇🍇Foo.old.run() Line:12 [MT]: x\n"
            "🍇🍇🍇Foo.old.run() Line:12 [MT]\n"
            "🔀MT x\n");
  EXPECT_EQ(outputOf([&] { std::jthread{printAll}; }),
            "🔀 Foo.old@12: x\n"
            "🔀 Foo.old@12: x\n"
            "🔀 \"Foo.old.ext\"@12: run()x\n"
            "🍇🍇🍇Foo.old.run() Line:12 : x\n"
            "🍇🍇🍇Foo.old.run() Line:12 \n"
            "🔀 x\n");
}

template <typename T>
concept Flag = requires(T value) { dmprint(value, "x"), qdebuglog(value, "x"); };
static_assert(Flag<bool> && !Flag<const char*>, "a text in the place of the flag is no flag");

TEST(ConsoleTest, positionIsTheCallersUnlessGiven) {
  EXPECT_EQ(outputOf([] { qfilelog(); }), fmt::format("🔀MT ConsoleTest@{}: \n", __LINE__));
  EXPECT_EQ(outputOf([] { qdebuglog(true); }), fmt::format("🔀MT ConsoleTest@{}: \n", __LINE__));
  EXPECT_THAT(outputOf([] { qflow("no flag"); }),
              ::testing::MatchesRegex(
                  fmt::format("🍇🍇🍇ConsoleTest\\..* Line:{} \\[MT\\]: no flag\n", __LINE__ - 2)));
  EXPECT_EQ(qCurrentFilename(), __FILE__);
}

TEST(ConsoleTest, shortFileNames) {
  EXPECT_EQ(outputOf([] {
              for (const auto* file : {"Foo.ext", "a/Foo", "a/Foo.ext//", ".hidden", ""}) {
                qfilelog("", CallerPosition(file, 1));
              }
            }),
            "🔀MT Foo@1: \n🔀MT Foo@1: \n🔀MT Foo@1: \n🔀MT .hidden@1: \n🔀MT @1: \n");
}

TEST(ConsoleTest, theSystemLogStampsAndReadsDirectives) {
  const CapturedOutput captured(stderr);
  qnsflow("100%% %s %n%", place);
  EXPECT_THAT(captured.text(), ::testing::MatchesRegex(
                                   "[0-9-]{10} [0-9:]{8}\\.[0-9]{3} [^ ]+\\[[0-9]+:[0-9]+\\] "
                                   "🍇🍇🍇Foo\\.old\\.run\\(\\) Line:12 \\[MT\\]: 100% %s %n%\n"));
}

// What `testOutput` of a style prints: each colour in its order, then the three grades. `codes` are
// separated by blanks, as many as there are lines.
std::string stylePrint(std::string_view before, std::string_view codes, std::string_view after) {
  std::istringstream words(
      "red green blue lightRed lightGreen lightBlue yellow purple lightPurple brown cyan lightCyan "
      "darkGray lightGray error warning warning");
  std::istringstream sequences{std::string(codes)};
  std::string result;
  for (std::string word, code; words >> word;) {
    sequences >> code;
    result += fmt::format("{}{}{}{}\n", before, code, word, after);
  }
  return result;
}

TEST(ConsoleTest, everyStyleHasItsSequences) {
  EXPECT_EQ(outputOf([] { QLogging::testOutput(); }),
            "red\ngreen\nblue\nlightRed\nlightGreen\nlightBlue\nyellow\npurple\nlightPurple\n"
            "brown\ncyan\nlightCyan\ndarkGray\nlightGray\n"
            "Error:error\nSevere:warning\nWarning:warning\n");
  EXPECT_EQ(outputOf([] { qlog::testOutput(); }),
            stylePrint("\x1b[",
                       "fg255,0,0; fg0,255,0; fg0,0,255; fg255,0,0; fg0,255,0; fg0,0,255; "
                       "fg255,255,0; fg255,0,255; fg255,0,255; fg139,69,19; fg0,255,255; "
                       "fg0,255,255; fg40,40,40; fgb0,b0,b0; fg255,0,0; fg255,0,255; fg255,255,0;",
                       "\x1b[;"));
  EXPECT_EQ(outputOf([] { qansilog::testOutput(); }),
            stylePrint("\x1b[",
                       "0;31m 0;32m 0;34m 1;31m 1;32m 1;34m 1;33m 0;35m 1;35m 0;33m 0;36m 1;36m "
                       "1;30m 0;37m 0;31m 0;35m 1;33m",
                       "\x1b[0m"));
}

TEST(ConsoleTest, errorsAreTestedAndReportedAtOnce) {
  const Error error("broken");
  EXPECT_EQ(outputOf([&] {
              QLogging::error("text");
              QLogging::error(std::string_view("Load"), error);
              QLogging::error(error);
              qansilog::error(std::nullopt, error);
              EXPECT_FALSE(qlog::iferror("x", std::nullopt));
              EXPECT_FALSE(qlog::iferror("x", Optional<Error>()));
              EXPECT_FALSE(qlog::iferror("x", nullptr));
              EXPECT_TRUE(QLogging::iferror("x", error));
              EXPECT_TRUE(QLogging::iferror(std::nullopt, &error));
              EXPECT_TRUE(QLogging::iferror("y", std::optional(std::runtime_error("z"))));
            }),
            "Error:text\nError:Load:broken\nError:Error:broken\n\x1b[0;31mError:broken\x1b[0m\n"
            "Error:x:broken\nError:Error:broken\nError:y:z\n");
}

// Overrides two operations that others rest on.
class Shouting : public QlogStyle {
 protected:
  void lightGreenText(std::string_view text) const override { printLine(std::string(text) + "!"); }
  void errorText(std::string_view text) const override { printLine("ERR " + std::string(text)); }
};

const Shouting shouting;

struct shoutlog : LoggingClass<shoutlog> {
  static const LoggingStyle& style() { return shouting; }
};

TEST(ConsoleTest, aClassIsHeldAsAValueAndMayBeTheHosts) {
  EXPECT_EQ(outputOf([] {
              for (const auto* log : {&QLogging::style(), &qansilog::style()}) {
                log->red(Optional<int>());
              }
              const LoggingStyle& log = shoutlog::style();
              log.green(1.5);
              log.iferror("a", std::runtime_error("b"));
              shoutlog::green("c");
              QLogging::red(shoutlog());
            }),
            "nil\n\x1b[0;31mnil\x1b[0m\n1.5!\nERR a:b\nc!\n(anonymous namespace)::shoutlog\n");
}

TEST(ConsoleTest, colouredTexts) {
  EXPECT_EQ(cc("t", ConsoleColor::red), "\x1b[0;31mt\x1b[0m");
  EXPECT_EQ(cc("t", Optional(ConsoleColor::white)) + cc("t", std::nullopt), "\x1b[0;97mt\x1b[0mt");
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
  EXPECT_EQ(textForm(ConsoleModifier::inversed | ConsoleModifier::bold), "[bold, inversed]");
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
  std::istringstream read(text);
  std::map<std::string, int> lines;
  for (std::string line; std::getline(read, line);) ++lines[line];
  EXPECT_THAT(lines, ::testing::UnorderedElementsAre(std::pair(std::string(9000, 'a'), 300),
                                                     std::pair(std::string(9000, 'b'), 300),
                                                     std::pair(std::string(9000, 'c'), 300)));
}

}  // namespace
