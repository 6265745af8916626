#include <Tolvanite/Frame/Assertions.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/FileManager.h>
#include <Tolvanite/Frame/Q.h>
#include <Tolvanite/Frame/Sleep.h>
#include <Tolvanite/Frame/ValueRange.h>

#include <tests/Support/CapturedOutput.h>
#include <tests/Support/TemporaryFolder.h>

namespace {

using namespace tolvanite;
using tolvanite::testing::CapturedOutput;

const auto aborts = ::testing::KilledBySignal(SIGABRT);

std::string fatal(const std::string& messageWithColon) {
  return "^Fatal error" + messageWithColon + ": file " __FILE__ ", line [0-9]+\n$";
}

double secondsTaken(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(AssertionsTest, markersPrintTheirLines) {
  const CapturedOutput captured;
  TolvaniteCoding::importantLog("disk");
  TolvaniteCoding::notYetImplemented();
  EXPECT_EQ(captured.text(),
            "📛 IMPORTANT!! 📛 = disk\n📛📛📛📛📛 NYI NOT YET IMPLEMENTED 📛📛📛📛📛\n");
}

TEST(AssertionsDeathTest, unexpectedCodeLogsThenFails) {
  // The child's standard output is made its standard error, so that the order shows.
  const auto reach = [] {
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    TolvaniteCoding::unexpectedCodeReached("here");
  };
  EXPECT_EXIT(reach(), aborts,
              "^📛 IMPORTANT!! 📛 = Unexpected Code Reached: here\n"
              "Fatal error: Unexpected Code Reached: here: file " __FILE__ ", line [0-9]+\n$");
}

struct Localized : Error {
  Localized() : Error("plain") {}
  std::string localizedDescription() const override { return "for people"; }
};

TEST(AssertionsDeathTest, whenThrowingNamesTheError) {
  int calls = 0;
  whenThrowing("unused", [&] { ++calls; });
  EXPECT_EQ(calls, 1);
  EXPECT_EXIT(whenThrowing("Load", [] { throw Localized(); }), aborts, fatal(": Load: for people"));
  EXPECT_EXIT(whenThrowing("Load", [] { throw std::runtime_error("broken"); }), aborts,
              fatal(": Load: broken"));
  EXPECT_EXIT(whenThrowing("Load", [] { throw 5; }), aborts,
              fatal(": Load: Unknown error of type int"));
}

TEST(AssertionsTest, rangesIncludeTheirBounds) {
  EXPECT_TRUE(tvIfValueWithin(1, 1, 1) && tvIfValueWithin(0, 0.5, 1));
  EXPECT_FALSE(tvIfValueWithin(2, 1, 3) || tvIfValueWithin(1, 4, 3));
  EXPECT_FALSE(tvIfValueWithin(0.0, std::nan(""), 1.0));
  EXPECT_EQ(tvLimitValue(5, 7, 9), 7);
  EXPECT_EQ(tvLimitValue(5, 7, 3), 3);
  EXPECT_EQ(tvLimitValue(std::string("m"), "a", "z") + tvLimitValue(std::string("zz"), "a", "z"),
            "mz");
  EXPECT_EQ(tvLimitValue(std::int64_t{1} << 40, 0, 79), 79);
  static_assert(!BoundOf<double, int>, "0.5 would become 0");
}

TEST(AssertionsTest, sleepsForTheirUnits) {
  EXPECT_GE(secondsTaken([] { qsleep(1); }), 0.1);
  EXPECT_GE(secondsTaken([] { qsleepSeconds(0.02); }), 0.02);
  EXPECT_GE(secondsTaken([] { q::sleep(0.02); }), 0.02);
  const auto atOnce = [] {
    qsleepSeconds(-0.0000009);
    q::sleep(-1);
    q::sleep(std::nan(""));
  };
  EXPECT_LT(secondsTaken(atOnce), 5);
}

TEST(AssertionsDeathTest, sleepsOutOfRangeAreFatal) {
  EXPECT_EXIT(qsleep(42950), aborts, fatal(""));
  EXPECT_EXIT(qsleep(4294968), aborts, fatal(""));
  for (const double seconds :
       {-0.000001, 4294.967296, std::nan(""), std::numeric_limits<double>::infinity(), 1e308}) {
    EXPECT_EXIT(qsleepSeconds(seconds), aborts, fatal("")) << seconds;
  }
}

TEST(AssertionsTest, aTracedProcessKnowsIt) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool before = tvAmIBeingDebugged();
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::_exit(tvAmIBeingDebugged() && !before ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST(AssertionsTest, foldersAreMadeWithThoseAbove) {
  const tolvanite::testing::TemporaryFolder folder;
  Fm.createDirectory(folder / "a/b");
  Fm.createDirectory(folder / "a/b");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));
  try {
    Fm.createDirectory("/proc/self/status/below");
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(),
              "Cannot create the folder \"/proc/self/status/below\": Not a directory");
  }
}

}  // namespace
