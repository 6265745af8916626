#include <optional>

#include <any>
#include <concepts>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/OptionalCast.h>

#include <tests/Support/CapturedOutput.h>

namespace {

using tolvanite::Optional;
using tolvanite::optionalCast;
using tolvanite::testing::CapturedOutput;
using Truths = std::vector<bool>;
using Texts = std::vector<std::string>;

const auto aborts = testing::KilledBySignal(SIGABRT);

std::string fatal(const std::string& message) {
  return "^Fatal error: " + message + ": file " __FILE__ ", line [0-9]+\n$";
}

struct Base {
  virtual ~Base() = default;
};
struct Derived : Base {};
struct OtherDerived : Base {};

struct OnlyLess {
  int value;
  bool operator<(const OnlyLess& other) const { return value < other.value; }
};

TEST(OptionalTest, convertsFromAndToTheStandardOptional) {
  const Optional<int> ours = 1;
  const std::optional<int> standard = 2;
  std::optional<int> intoStandard = ours;
  EXPECT_EQ(intoStandard, 1);
  Optional<int> intoOurs(standard);
  intoStandard = intoOurs;
  EXPECT_EQ(intoStandard, 2);
  intoOurs = std::optional<int>();
  EXPECT_EQ(intoOurs, std::nullopt);
  intoOurs = 7;
  intoOurs = {};
  EXPECT_TRUE(intoOurs.isNone());

  Optional<std::string> text = "a";
  text = std::optional<const char*>("b");
  EXPECT_EQ(text, "b");
  text = {};
  EXPECT_TRUE(text.isNone());
  std::optional<std::unique_ptr<int>> owner = std::make_unique<int>(3);
  const Optional<std::unique_ptr<int>> moved = std::move(owner);
  EXPECT_EQ(*moved.forced("just moved"), 3);

  static_assert(std::same_as<decltype(Optional(std::optional(5))), Optional<int>>);
  static_assert(std::same_as<decltype(Optional(ours)), Optional<int>>);
  static_assert(std::is_trivially_copyable_v<Optional<int>>);
}

// A truth value and std::any can be made from an optional itself, which must not happen.
TEST(OptionalTest, isNeverTakenForItsOwnValue) {
  const Optional<bool> no = false;
  const std::optional<bool> direct(no);
  EXPECT_EQ(direct, std::optional(false));
  EXPECT_EQ(Optional<bool>(direct), no);

  Optional<std::any> any = std::any(5);
  Optional<std::any> copy = any;
  copy = any;
  EXPECT_EQ(copy.forcedCast<int>(), 5);
}

TEST(OptionalTest, comparesHashesAndSwapsAsTheStandardOptional) {
  const std::vector<std::optional<int>> values{std::nullopt, 1, 2};
  for (const auto& a : values) {
    for (const auto& b : values) {
      const Optional<int> ours = a;
      const Optional<int> other = b;
      EXPECT_EQ((Truths{ours == other, ours == b, a == other}), Truths(3, a == b));
      EXPECT_EQ((Truths{ours != other, ours < b, a < other}), (Truths{a != b, a < b, a < b}));
      EXPECT_EQ(ours <=> other, a <=> b);
    }
  }
  EXPECT_LT(Optional<OnlyLess>(OnlyLess{1}), Optional<OnlyLess>(OnlyLess{2}));
  EXPECT_EQ(Optional<std::string>("a"), "a");
  EXPECT_LT(Optional<int>(), 0);

  EXPECT_EQ((std::unordered_set<Optional<int>>{1, 2, std::nullopt, 2}).size(), 3U);
  Optional<int> left = 1;
  Optional<int> right;
  std::swap(left, right);
  EXPECT_EQ(right, 1);
}

TEST(OptionalTest, textForms) {
  const Optional<std::string> empty = "";
  const Optional<int> five = 5;
  const Optional<int> none;
  EXPECT_EQ((Texts{empty.q(), five.q(), none.q()}), (Texts{"", "5", "nil"}));
  EXPECT_EQ((Texts{empty.qq(), five.qq(), none.qq()}), (Texts{"\"\"", "\"5\"", "nil"}));
  EXPECT_EQ((Texts{empty.q2(), five.q2(), none.q2()}), (Texts{"", "5", ""}));
  EXPECT_EQ(Optional<bool>(true).toString("y", "n", "?"), "y");
  EXPECT_EQ(Optional<bool>(false).toString("y", "n", "?"), "n");
  EXPECT_EQ(Optional<bool>().toString("y", "n", "?"), "?");
}

TEST(OptionalDeathTest, forcedAndCasts) {
  EXPECT_EQ(Optional<int>(3).forced([]() -> std::string { throw std::logic_error("asked"); }), 3);
  EXPECT_EXIT(Optional<int>().forced("no width"), aborts, fatal("Optional.forced: no width"));
  const Optional<std::string> absent;
  EXPECT_EXIT(absent.forced([] { return "late"; }), aborts, fatal("Optional.forced: late"));
  EXPECT_EXIT(absent.forcedCast<int>(), aborts, fatal("Cannot cast nil to int."));
  EXPECT_EXIT(Optional<int>(5).forcedCast<double>(), aborts, fatal("Cannot cast 5 to double."));
}

TEST(OptionalDeathTest, castsGoByTheDynamicType) {
  Derived derived;
  const Optional<Base*> pointer = &derived;
  EXPECT_EQ(pointer.forcedCast<Derived*>(), &derived);
  EXPECT_EXIT(optionalCast<OtherDerived*>(pointer), aborts,
              fatal(R"(optionalCast<\(anonymous namespace\)::OtherDerived\*>\(instanceSome\))"
                    R"( failed\. Is of type: \(anonymous namespace\)::Derived)"));

  const Optional<std::shared_ptr<Base>> shared = std::make_shared<Derived>();
  EXPECT_EQ(optionalCast<std::shared_ptr<Derived>>(shared), *shared);
  const Optional<std::shared_ptr<Base>> empty = nullptr;
  EXPECT_EXIT(optionalCast<std::shared_ptr<Derived>>(empty), aborts,
              "Is of type: std::shared_ptr<\\(anonymous namespace\\)::Base>: file");

  const std::optional<std::any> any = std::any(7);
  EXPECT_EQ(optionalCast<int>(any), 7);
  EXPECT_EXIT(optionalCast<float>(any), aborts,
              fatal(R"(optionalCast<float>\(instanceSome\) failed\. Is of type: int)"));
  const Optional<std::variant<int, bool>> either = std::variant<int, bool>(true);
  EXPECT_EQ(either.forcedCast<bool>(), true);
  EXPECT_EXIT(optionalCast<int>(either), aborts,
              fatal(R"(optionalCast<int>\(instanceSome\) failed\. Is of type: bool)"));
  EXPECT_EQ(optionalCast<std::string>(Optional<std::any>()), std::nullopt);
}

TEST(OptionalTest, replacesAndFilters) {
  const Optional<int> some = 4;
  const Optional<int> none;
  const auto unexpected = []() -> int { throw std::logic_error("called"); };

  EXPECT_EQ(some.whenNil(unexpected), 4);
  EXPECT_EQ(some.mapNil(unexpected), 4);
  EXPECT_EQ(some.flatMapNil(unexpected), 4);
  EXPECT_EQ(none.whenNil([] { return 9; }), 9);
  EXPECT_EQ(none.mapNil([] { return 9; }), 9);
  EXPECT_EQ(none.flatMapNil([] { return Optional<int>(); }), std::nullopt);
  EXPECT_EQ(none.flatMapNil([] { return std::optional<int>(8); }), 8);
  EXPECT_EQ(some.filter([](int i) { return i > 3; }), 4);
  EXPECT_EQ(some.filter([](int i) { return i > 4; }), std::nullopt);
  EXPECT_EQ(none.filter([&](int) { return unexpected() > 0; }), std::nullopt);
  EXPECT_EQ(some.maybe("none", [](int i) { return std::to_string(i); }), "4");
  EXPECT_EQ(none.maybe("none", [](int i) { return std::to_string(i); }), "none");

  std::string calls;
  some.then([&](int) { calls += "then "; });
  none.then([&](int) { calls += "wrong "; });
  some.onSome([&](int) { calls += "some "; }).onNone([&] { calls += "wrong "; });
  none.onSome([&](int) { calls += "wrong "; }).onNone([&] { calls += "none"; });
  EXPECT_EQ(calls, "then some none");
}

TEST(OptionalTest, chainsNeitherCopyNorDangle) {
  const CapturedOutput captured;
  const Optional<int> named = 1;
  EXPECT_EQ(&named.onNone([] {}).onSome([](const auto&) {}).nilPrint("present"), &named);
  EXPECT_EQ(Optional<int>().nilPrint("the width"), std::nullopt);
  auto owner = Optional<std::unique_ptr<int>>(std::make_unique<int>(6))
                   .onSome([](const auto&) {})
                   .onNone([] {})
                   .nilPrint("owner")
                   .filter([](const auto& held) { return *held == 6; })
                   .mapNil([] { return nullptr; });
  EXPECT_EQ(*std::move(owner).forced("owner"), 6);
  EXPECT_EQ(captured.text(), "❌❌❌ Optional.supposed: \"the width\" ❌❌❌\n");
  using NumberOrOwner = std::variant<int, std::unique_ptr<int>>;
  Optional<NumberOrOwner> either = NumberOrOwner(std::make_unique<int>(7));
  EXPECT_EQ(*std::move(either).forcedCast<std::unique_ptr<int>>(), 7);
}

}  // namespace
