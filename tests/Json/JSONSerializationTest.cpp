#include <Tolvanite/Json/JSONSerialization.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include <Tolvanite/Json/Json.h>

// Reading of texts sentence by sentence of RFC 8259, and the plain writer.

namespace tolvanite {
namespace {

using namespace std::string_view_literals;
using Errur = JSONSerialization::Errur;
using Kind = NumberValue::Kind;

ManagedObject read(std::string_view text) {
  return JSONSerialization::JSONObjectWithData(text,
                                               JSONSerialization::ReadingOptions::allowFragments);
}

// The offset of the error that a text gives; -1 without one.
Int offsetOfError(std::string_view text) {
  try {
    read(text);
    return -1;
  } catch (const Errur& errur) {
    EXPECT_EQ(errur.errorCase(), Errur::Case::malformedText);
    EXPECT_THAT(
        errur.description(),
        testing::StartsWith("Malformed JSON at byte " + std::to_string(errur.byteOffset()) + ": "));
    return errur.byteOffset();
  }
}

std::string nested(std::size_t depth) {
  return std::string(depth, '[') + "0" + std::string(depth, ']');
}

TEST(JSONSerialization, ReadsWhatIsWellFormed) {
  const ManagedObject emptyList = ManagedArray();
  const ManagedObject emptyDictionary = ManagedDictionary();
  const std::vector<std::pair<std::string_view, ManagedObject>> cases = {
      {"null", nullptr},
      {"true", true},
      {" \t\n\r false \r\n\t ", false},
      {"\xef\xbb\xbf 7", 7},
      {"[]", emptyList},
      {"{}", emptyDictionary},
      {"[ ]", emptyList},
      {"{\n}", emptyDictionary},
      {"[[],{}]", ManagedArray{emptyList, emptyDictionary}},
      {"[1,\"a\",null]", ManagedArray{1, "a", nullptr}},
      {R"({"a":{"b":[true]},"":1})",
       ManagedDictionary{{"a", ManagedDictionary{{"b", ManagedArray{true}}}}, {"", 1}}},
      // Of a repeated key the last value counts, in small and in large objects.
      {R"({"a":1,"b":2,"a":3})", ManagedDictionary{{"a", 3}, {"b", 2}}},
      {R"([{"a":1,"a":2},{"a":3,"a":4},{"a":5,"b":6}])",
       ManagedArray{ManagedDictionary{{"a", 2}}, ManagedDictionary{{"a", 4}},
                    ManagedDictionary{{"a", 5}, {"b", 6}}}},
      {R"({"1":1,"2":1,"3":1,"4":1,"5":1,"6":1,"7":1,"8":1,"9":1,"0":1,"a":1,"b":1,"c":1,"d":1,"3":2})",
       ManagedDictionary{{"1", 1},
                         {"2", 1},
                         {"3", 2},
                         {"4", 1},
                         {"5", 1},
                         {"6", 1},
                         {"7", 1},
                         {"8", 1},
                         {"9", 1},
                         {"0", 1},
                         {"a", 1},
                         {"b", 1},
                         {"c", 1},
                         {"d", 1}}},
      // Numbers.
      {"-0", 0},
      {"-0.0", 0},
      {"0.5e1", 5},
      {"1E+2", 100},
      {"25e-1", 2.5},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
      {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
      {"9223372036854775808", std::uint64_t{1} << 63},
      {"1e-400", 0},
      {"-1e-999999999999999999999", 0},
      {"0e999999999999999999999", 0},
      // Read by the plain reader, because of the integer.
      {"[1e-999999999999999999999,18446744073709551616]", ManagedArray{0, 0x1p64}},
      {"[1e-400,4e-320,18446744073709551616]", ManagedArray{0, 4e-320, 0x1p64}},
      {"[18446744073709551616]", ManagedArray{0x1p64}},
      {"4.9406564584124654e-324", 5e-324},
      {"1.7976931348623157e308", std::numeric_limits<double>::max()},
      // Texts.
      {R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
      {R"("\u0041\u00e9\u20AC\ud83d\uDE00")", "Aé€😀"},
      {R"("\u0000")", "\0"sv},
      {"\"\x7f é€😀\"", "\x7f é€😀"},
      {R"("fifteen letters" )", "fifteen letters"},
      {R"(["sixteen letters!","\u0073ixteen letters!"])",
       ManagedArray{"sixteen letters!", "sixteen letters!"}},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(read(text), value) << text;
}

TEST(JSONSerialization, KeepsTheKindOfNumbers) {
  const std::vector<std::pair<std::string_view, Kind>> cases = {
      {"true", Kind::boolean},
      {"1", Kind::signedInteger},
      {"9223372036854775808", Kind::unsignedInteger},
      {"1.0", Kind::real},
      {"1e2", Kind::real},
      {"18446744073709551616", Kind::decimal},
      {"-9223372036854775809", Kind::decimal},
  };
  for (const auto& [text, kind] : cases) EXPECT_EQ(read(text).number()->kind(), kind) << text;
  const std::string digits = "12345678901234567890123456789012345678";
  EXPECT_EQ(read(digits).number()->stringValue(), digits);
}

TEST(JSONSerialization, SaysWhereATextIsMalformed) {
  const std::vector<std::pair<std::string, Int>> cases = {
      {"", 0},
      {"  ", 2},
      {"\xef\xbb\xbf", 3},
      {"\xef\xbb\xbf\xef\xbb\xbf"
       "1",
       3},
      {"1 2", 2},
      {"[1]]", 3},
      {"[1,2,}", 5},
      {"[1,]", 3},
      {"[,1]", 1},
      {"[1 2]", 3},
      {"[1", 2},
      {"{\"a\" 1}", 5},
      {"{\"a\":}", 5},
      {"{\"a\":1,}", 7},
      {"{a:1}", 1},
      {"{1:1}", 1},
      {"{\"a\":1 \"b\":2}", 7},
      {"[1}", 2},
      {"nul", 0},
      {"nulll", 4},
      {"True", 0},
      {"NaN", 0},
      {"Infinity", 0},
      {"'a'", 0},
      {"// c\n1", 0},
      {"\f1", 0},
      {"\u00a0"
       "1",
       0},
      // Numbers.
      {"01", 1},
      {"-", 0},
      {"+1", 0},
      {".5", 0},
      {"[1.]", 1},
      {"1.e5", 0},
      {"1e", 0},
      {"1e+", 0},
      {"0x1", 1},
      {"-01", 2},
      {"[1e400]", 1},
      {"1e999999999999999999999", 0},
      {"[-1e400]", 1},
      {"1" + std::string(400, '0'), 0},
      // Texts.
      {"\"a", 0},
      {"\"a\\", 2},
      {"\"a\nb\"", 2},
      {"\"\x1f\"", 1},
      {"\"\\x\"", 1},
      {"\"\\u12\"", 1},
      {"\"\\u12g4\"", 1},
      {"\"\\ud800\"", 1},
      {"\"a\\udc00\"", 2},
      {"\"\\ud800\\u0041\"", 1},
      {"\"\\ud800\\ud800\"", 1},
      // UTF-8: cut short, overlong, a surrogate, beyond the last character, never a byte of it.
      {"\"\x80\"", 1},
      {"\"\xc3\"", 1},
      {"\"\xc0\xaf\"", 1},
      {"\"\xe0\x80\xaf\"", 1},
      {"\"\xed\xa0\x80\"", 1},
      {"\"\xf0\x80\x80\xaf\"", 1},
      {"\"\xf4\x90\x80\x80\"", 1},
      {"\"\xf5\x80\x80\x80\"", 1},
      {"\"ab\xff\"", 3},
      {"[1,2] \xff", 6},
      // UTF-16.
      {std::string("\xff\xfe"
                   "1\0",
                   4),
       0},
      {std::string("1\0", 2), 1},
      {nested(513), 512},
      {std::string(513, '[') + std::string(513, ']'), 512},
      {std::string(512, '[') + "{}" + std::string(512, ']'), 512},
      {std::string(100'000, '['), 512},
  };
  for (const auto& [text, offset] : cases) {
    EXPECT_EQ(offsetOfError(text), offset) << text.substr(0, 40);
    // Blanks behind it, so that the text is long enough for whole blocks, do not hide anything.
    if (offset < static_cast<Int>(text.size())) {
      EXPECT_EQ(offsetOfError(text + std::string(100, ' ')), offset) << text.substr(0, 40);
    }
  }
  EXPECT_EQ(offsetOfError(nested(512)), -1);

  const std::string whole = R"({"k":[1,-2.5e3,"x\u00e9\n",true,null,{"z":{}}]})";
  EXPECT_EQ(offsetOfError(whole), -1);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_GE(offsetOfError(whole.substr(0, length)), 0) << length;
  }
}

TEST(JSONSerialization, TakesScalarsOnlyWhenAsked) {
  EXPECT_THROW(JSONSerialization::JSONObjectWithData(" 1"), Errur);
  EXPECT_THROW(JSONSerialization::text(1), Errur);
  EXPECT_EQ(JSONSerialization::text("a", JSONSerialization::WritingOptions::fragmentsAllowed),
            "\"a\"");
  EXPECT_EQ(JSONSerialization::JSONObjectWithData("[1]"), ManagedObject(ManagedArray{1}));
}

TEST(JSONSerialization, ReadsAtTheEndOfAPageAndLargeTexts) {
  // Texts of all places relative to a page, so that some end with it.
  std::string room(3 * 4096, ' ');
  for (std::size_t end = 4096; end < 2 * 4096 + 8; ++end) {
    std::copy_n("[12]", 4, room.data() + end - 4);
    const std::string_view text(room.data() + end - 4, 4);
    ASSERT_EQ(read(text), ManagedObject(ManagedArray{12}));
  }
  std::string large = "[";
  for (int i = 0; i < 400'000; ++i) large += R"({"key":"some longer text","n":1.5},)";
  large.back() = ']';
  const ManagedArray list = *read(large).list();
  EXPECT_EQ(list.count(), 400'000);
  EXPECT_EQ(JSONSerialization::text(list), large);
}

TEST(JSONSerialization, WritesWhatReadsBackAsTheSame) {
  const ManagedObject value = ManagedDictionary{
      {"b", ManagedArray{1, -2.5, true, nullptr, ManagedArray(), ManagedDictionary()}},
      {"a\n\"\\", "\x01\x1f\b\f/é😀"}};
  const std::string compact =
      JSONSerialization::text(value, JSONSerialization::WritingOptions::sortedKeys);
  EXPECT_EQ(compact, R"({"a\n\"\\":"\u0001\u001f\b\f/é😀","b":[1,-2.5,true,null,[],{}]})");
  EXPECT_EQ(read(compact), value);
  EXPECT_EQ(
      Json(value).makeStringSystem(),
      "{\n  \"a\\n\\\"\\\\\" : \"\\u0001\\u001f\\b\\f/é😀\",\n  \"b\" : [\n    1,\n    -2.5,\n"
      "    true,\n    null,\n    [],\n    {}\n  ]\n}");
}

TEST(JSONSerialization, RefusesToWriteWhatJsonCannotHold) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const ManagedObject& bad :
       {ManagedObject(infinity), ManagedObject(-infinity),
        ManagedObject(std::numeric_limits<double>::quiet_NaN()), ManagedObject("\xff"),
        ManagedObject::wrapping(AbsoluteTime())}) {
    EXPECT_THROW(JSONSerialization::text(ManagedArray{1, bad}), Errur) << bad;
  }
  EXPECT_THROW(Json(ManagedObject::wrapping(AbsoluteTime())).makeData(), Errur);
}

// Objects of random keys, many alike and many not, against plain ones.
TEST(JSONSerialization, FindsEveryKeyOfRandomObjects) {
  std::mt19937 random(7);
  std::string text = "[";
  std::vector<std::vector<std::pair<std::string, int>>> objects(500);
  for (auto& object : objects) {
    text += "{";
    const std::size_t count = random() % 4 == 0 ? random() % 60 : random() % 4;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string key = std::string(random() % 3 * 7, 'k') + std::to_string(random() % 40);
      const int value = static_cast<int>(random() % 1000);
      text += (i == 0 ? "\"" : ",\"") + key + "\":" + std::to_string(value);
      object.emplace_back(key, value);
    }
    text += "},";
  }
  text.back() = ']';
  const ManagedArray list = *read(text).list();
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const ManagedDictionary dictionary = *list[static_cast<Int>(i)].dictionary();
    std::map<std::string, int> wanted;
    for (const auto& [key, value] : objects[i]) wanted[key] = value;
    ASSERT_EQ(dictionary.count(), static_cast<Int>(wanted.size()));
    for (const auto& [key, value] : wanted) {
      ASSERT_NE(dictionary.find(key), nullptr) << key;
      EXPECT_EQ(*dictionary.find(key), ManagedObject(value)) << key;
    }
    EXPECT_EQ(dictionary.find("kk"), nullptr);
  }
}

}  // namespace
}  // namespace tolvanite
