#include <Tolvanite/Frame/TextForm.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/Error.h>

namespace {

using tolvanite::HasTextForm;
using tolvanite::textForm;

struct Described {
  std::string name;
  std::string description() const { return "Described " + name; }
};
// A description goes before a stream form.
[[maybe_unused]] std::ostream& operator<<(std::ostream& out, const Described&) {
  return out << "streamed";
}

struct Streamed {
  int x = 0;
};
std::ostream& operator<<(std::ostream& out, const Streamed& value) { return out << '#' << value.x; }

struct Silent {};

TEST(TextFormTest, valuesAlone) {
  EXPECT_EQ(textForm(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(textForm(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
  EXPECT_EQ(textForm(std::int8_t{65}), "65") << "a small integer is no character";
  EXPECT_EQ(textForm('A'), "A");
  EXPECT_EQ(textForm(true), "true");
  EXPECT_EQ(textForm(0.1F), "0.1") << "as a float, not as the double nearest to it";
  EXPECT_EQ(textForm(1e300), "1e+300");
  EXPECT_EQ(textForm("a \"b\""), "a \"b\"") << "a text alone has no quotes";
  EXPECT_EQ(textForm(std::string_view("")), "");
  EXPECT_EQ(textForm(Described{"d"}), "Described d");
  EXPECT_EQ(textForm(Streamed{4}), "#4");
  EXPECT_EQ(textForm(tolvanite::Error("out of paper")), "out of paper");
}

TEST(TextFormTest, containers) {
  EXPECT_EQ(textForm(std::vector<int>{}), "[]");
  EXPECT_EQ(textForm(std::vector<bool>{true, false}), "[true, false]");
  EXPECT_EQ(textForm(std::vector<std::string>{"a", ""}), R"(["a", ""])");
  EXPECT_EQ(textForm(std::set<std::vector<int>>{{}, {1, 2}}), "[[], [1, 2]]");
  EXPECT_EQ(textForm(std::vector{Described{"x"}}), "[Described x]") << "only texts are quoted";
  EXPECT_EQ(textForm(std::map<std::string, std::vector<int>>{{"k", {1}}}), R"(["k": [1]])");
  EXPECT_EQ(textForm(std::make_pair("one", 1)), R"(("one", 1))");
  EXPECT_EQ(textForm(std::tuple<>()), "()");
}

TEST(TextFormTest, absentAndPointedTo) {
  EXPECT_EQ(textForm(std::optional<int>()), "nil");
  EXPECT_EQ(textForm(std::optional<std::string>("t")), "t");
  EXPECT_EQ(textForm(std::vector<std::optional<std::string>>{"t", std::nullopt}), R"(["t", nil])");
  EXPECT_EQ(textForm(std::shared_ptr<int>()), "nil");
  EXPECT_EQ(textForm(std::make_shared<Described>(Described{"p"})), "Described p");
  EXPECT_EQ(textForm(std::vector{std::make_shared<int>(3), std::shared_ptr<int>()}), "[3, nil]");
}

TEST(TextFormTest, whoHasOne) {
  EXPECT_FALSE(HasTextForm<Silent>);
  EXPECT_FALSE(HasTextForm<std::vector<Silent>>);
  EXPECT_FALSE((HasTextForm<std::map<int, Silent>>));
  EXPECT_FALSE((HasTextForm<std::pair<int, Silent>>));
  EXPECT_FALSE(HasTextForm<std::optional<Silent>>);
  EXPECT_FALSE(HasTextForm<std::shared_ptr<Silent>>);
  // A path is a range of paths; its text form must not descend forever.
  EXPECT_TRUE(HasTextForm<std::filesystem::path>);
  EXPECT_EQ(tolvanite::detail::textFormOrTypeName(std::vector<Silent>()),
            tolvanite::typeName<std::vector<Silent>>());
}

}  // namespace
