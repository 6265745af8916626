#include <Tolvanite/Frame/Fatal.h>

#include <csignal>
#include <cstdint>
#include <limits>
#include <source_location>
#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace {

using tolvanite::checkedAdd;
using tolvanite::checkedMultiply;
using tolvanite::checkedSubtract;
using tolvanite::Int;

constexpr Int most = std::numeric_limits<Int>::max();
constexpr Int least = std::numeric_limits<Int>::min();

// The whole report, as the end of standard error, with the line given.
std::string report(const std::string& message, std::uint_least32_t line) {
  return fmt::format("^Fatal error{}: file {}, line {}\n$", message, __FILE__, line);
}

const auto aborts = testing::KilledBySignal(SIGABRT);

TEST(FatalDeathTest, namesMessageAndCaller) {
  EXPECT_EXIT(tolvanite::fatalFailure("no such row"), aborts, report(": no such row", __LINE__));
  EXPECT_EXIT(tolvanite::fatalFailure(""), aborts, report("", __LINE__));
  EXPECT_EXIT(tolvanite::fatalIndexOutOfRange(-1, 3), aborts,
              report(": Index -1 out of range, 3 elements", __LINE__ - 1));
}

TEST(FatalDeathTest, overflowEndsTheProcess) {
  EXPECT_EQ(checkedAdd(most - 1, Int{1}), most);
  EXPECT_EQ(checkedSubtract(least + 1, Int{1}), least);
  EXPECT_EQ(checkedMultiply(least / 2, Int{2}), least);
  EXPECT_EXIT(checkedAdd(most, Int{1}), aborts, report(": Arithmetic overflow", __LINE__));
  EXPECT_EXIT(checkedSubtract(least, Int{1}), aborts, report(": Arithmetic overflow", __LINE__));
  EXPECT_EXIT(checkedMultiply(least, Int{-1}), aborts, report(": Arithmetic overflow", __LINE__));
  EXPECT_EXIT(checkedAdd<std::uint8_t>(255, 1), aborts, report(": Arithmetic overflow", __LINE__));
}

}  // namespace
