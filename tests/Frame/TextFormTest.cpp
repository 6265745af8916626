#include <Tolvanite/Frame/TextForm.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/Error.h>

namespace {

using namespace tolvanite;

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
  EXPECT_EQ(textForm('A') + textForm(true), "Atrue");
  EXPECT_EQ(textForm(0.1F), "0.1") << "as a float, not as the double nearest to it";
  EXPECT_EQ(textForm("a \"b\""), "a \"b\"") << "a text alone has no quotes";
  EXPECT_EQ(textForm(Described{"d"}), "Described d");
  EXPECT_EQ(textForm(Streamed{4}), "#4");
  EXPECT_EQ(textForm(Error("out of paper")), "out of paper");
  EXPECT_EQ(textForm(std::runtime_error("jammed")), "jammed");
}

TEST(TextFormTest, containers) {
  EXPECT_EQ(textForm(std::vector<bool>{true, false}), "[true, false]");
  EXPECT_EQ(textForm(std::vector<std::string>{"a", ""}), R"(["a", ""])");
  EXPECT_EQ(textForm(std::set<std::vector<int>>{{}, {1, 2}}), "[[], [1, 2]]");
  EXPECT_EQ(textForm(std::vector{Described{"x"}}), "[Described x]") << "only texts are quoted";
  EXPECT_EQ(textForm(std::map<std::string, std::vector<int>>{{"k", {1}}}), R"(["k": [1]])");
  EXPECT_EQ(textForm(std::make_pair("one", 1)), R"(("one", 1))");
  EXPECT_EQ(textForm(std::tuple<>()), "()");
}

TEST(TextFormTest, absentAndPointedTo) {
  EXPECT_EQ(textForm(std::optional<std::string>("t")), "t");
  EXPECT_EQ(textForm(std::vector<std::optional<std::string>>{"t", std::nullopt}), R"(["t", nil])");
  EXPECT_EQ(textForm(std::vector<const char*>{"a", nullptr}), R"(["a", nil])");
  EXPECT_EQ(textForm(static_cast<const char*>(nullptr)) + textForm(nullptr), "nilnil");
  EXPECT_EQ(textForm(std::make_shared<Described>(Described{"p"})), "Described p");
  EXPECT_EQ(textForm(std::vector{std::make_shared<int>(3), std::shared_ptr<int>()}), "[3, nil]");
}

TEST(TextFormTest, whoHasOne) {
  EXPECT_FALSE(HasTextForm<Silent> || HasTextForm<std::optional<std::vector<Silent>>>);
  EXPECT_FALSE((HasTextForm<std::map<int, Silent>> || HasTextForm<std::shared_ptr<Silent>>));
  // A path is a range of paths; its text form must not descend forever.
  EXPECT_TRUE(HasTextForm<std::filesystem::path>);
  EXPECT_EQ(tolvanite::detail::textFormOrTypeName(std::vector<Silent>()),
            typeName<std::vector<Silent>>());
}

TEST(TextFormTest, typesAreNamedAsTheyAreWritten) {
  EXPECT_EQ(typeName<std::string>(), "std::string");
  EXPECT_EQ((typeName<std::pair<std::vector<std::vector<bool>>, std::string_view>>()),
            "std::pair<std::vector<std::vector<bool>>, std::string_view>");
}

}  // namespace
