#include <Tolvanite/Json/JsonWriter.h>

#include <chrono>
#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Json/JsonStringEncoding.h>
#include <Tolvanite/Json/JsonValueMapping.h>

namespace tolvanite {
namespace {

using Case = JsonWriter::Errur::Case;

std::string compact(const ManagedObject& object) { return JsonWriter(std::nullopt).string(object); }

Case errorOf(JsonWriter& writer, const ManagedObject& object) {
  try {
    writer.string(object);
  } catch (const JsonWriter::Errur& errur) {
    return errur.errorCase();
  }
  throw std::logic_error("no error");
}

TEST(JsonWriter, LaysTextOut) {
  const ManagedObject object =
      ManagedDictionary{{"c", "x"}, {"a", ManagedArray{1, ManagedDictionary{{"b", nullptr}}}}};
  EXPECT_EQ(JsonWriter::stringFrom(object),
            "{\n\t\"a\" : [\n\t\t1,\n\t\t{\n\t\t\t\"b\" : null\n\t\t}\n\t],\n\t\"c\" : \"x\"\n}\n");
  EXPECT_EQ(compact(object), "{\"a\":[1,{\"b\":null}],\"c\":\"x\"}\n");
  EXPECT_EQ(JsonWriter("").string(object),
            "{\n\"a\" : [\n1,\n{\n\"b\" : null\n}\n],\n\"c\" : \"x\"\n}\n");
  EXPECT_EQ(JsonWriter::stringFrom(ManagedArray{ManagedArray(), ManagedDictionary()}),
            "[\n\t[\n\t],\n\t{\n\t}\n]\n");
  EXPECT_EQ(compact(ManagedArray{ManagedArray(), ManagedDictionary()}), "[[],{}]\n");
  EXPECT_EQ(
      compact(ManagedArray{true, false, 1, -0.5, 1e300, NumberValue::decimal("1.50").forced("")}),
      "[true,false,1,-0.5,1e+300,1.5]\n");
  EXPECT_EQ(JsonWriter::dataFrom(object), ByteBuffer(JsonWriter::stringFrom(object)));
}

TEST(JsonWriter, IndentsEveryDepth) {
  const std::string indent = "<- an indent of more than sixteen bytes ->";
  ManagedObject object = ManagedArray{7};
  std::string inner = "7";
  for (int depth = 99; depth >= 0; --depth) {
    std::string outer;
    for (int i = 0; i < depth; ++i) outer += indent;
    inner = "[\n" + outer + indent + inner + "\n" + outer + "]";
    if (depth > 0) object = ManagedArray{object};
  }
  EXPECT_EQ(JsonWriter(indent).string(object), inner + "\n");
}

TEST(JsonWriter, OrdersKeys) {
  const ManagedObject object =
      ManagedDictionary{{"z", 1}, {"b", 2}, {"a", 3}, {"a long key, and more", 4}};
  EXPECT_EQ(compact(object), "{\"a\":3,\"a long key, and more\":4,\"b\":2,\"z\":1}\n");
  EXPECT_EQ(JsonWriter(std::nullopt, true, JsonWriter::SortKeyOrder{"z", "q", "b"}).string(object),
            "{\"z\":1,\"b\":2,\"a\":3,\"a long key, and more\":4}\n");
  const auto unsorted = JsonWriter::make(std::nullopt, false, JsonWriter::SortKeyOrder{"a"});
  EXPECT_EQ(unsorted->string(object), "{\"z\":1,\"b\":2,\"a\":3,\"a long key, and more\":4}\n");
  EXPECT_EQ(unsorted->sortKeyOrder_customOrderDictionary()->at("a"), 0);
  EXPECT_DEATH(JsonWriter("", true, JsonWriter::SortKeyOrder{"a", "b", "a"}), "\"a\" stands twice");
  EXPECT_EQ(Json(object).makeStringJsonWriter(" ", JsonWriter::SortKeyOrder{"b"}).substr(0, 10),
            "{\n \"b\" : 2");
}

TEST(JsonWriter, WritesAListElementByElement) {
  // Each element is gone before the next one, so that their keys may lie at the same place.
  JsonWriter writer(std::nullopt, true, JsonWriter::SortKeyOrder{"z"});
  JsonWriter::List list(writer);
  std::string wanted = "[";
  for (int i = 0; i < 40; ++i) {
    ManagedDictionary element;
    std::string rest;
    for (int key = 0; key <= i % 7; ++key) {
      element.set(std::to_string(i) + "," + std::to_string(key), key);
      rest += ",\"" + std::to_string(i) + "," + std::to_string(key) + "\":" + std::to_string(key);
    }
    element.set("z", i);
    list.append(element);
    wanted += (i > 0 ? ",{\"z\":" : "{\"z\":") + std::to_string(i) + rest + "}";
  }
  list.end();
  EXPECT_EQ(writer.dest(), wanted + "]\n");
}

TEST(JsonWriter, ReportsWhatItCannotWriteAndGoesOnFromThere) {
  const ManagedObject numbered = ManagedObject::from(std::map<int, int>{{1, 2}});
  JsonWriter writer;
  EXPECT_EQ(errorOf(writer, 5), Case::invalidRootObject);
  EXPECT_EQ(errorOf(writer, "text"), Case::invalidRootObject);
  EXPECT_EQ(writer.dest(), "");
  EXPECT_EQ(errorOf(writer, ManagedArray{1, ManagedObject::wrapping(AbsoluteTime())}),
            Case::invalidValue);
  EXPECT_EQ(writer.dest(), "[\n\t1,\n\t");
  EXPECT_EQ(writer.depth(), 1);
  EXPECT_EQ(writer.linePrefix(), "\t");
  EXPECT_EQ(writer.string(ManagedArray{2}), "[\n\t1,\n\t[\n\t\t2\n\t]\n");
  EXPECT_EQ(errorOf(writer, numbered), Case::dictionaryWithNoStringKey);
  EXPECT_TRUE(writer.dest().ends_with("]\n{\n"));
  EXPECT_EQ(writer.depth(), 2);
  JsonWriter twice{std::nullopt};
  twice.string(ManagedArray{1});
  EXPECT_EQ(twice.string(ManagedArray{2}), "[1]\n[2]\n");
}

TEST(JsonWriter, EscapesSevenCharactersInTextsAndNoneInKeys) {
  using namespace std::string_literals;
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ""},
      {"a\tb", "a\\tb"},
      {"\"\\\b\f\n\r", R"(\"\\\u0008\u000c\n\r)"},
      {"\0\x01\x1f\x7f/"s, "\0\x01\x1f\x7f/"s},
      {"a\r\nb", "a\r\nb"},
      {"\r\r\n\n", "\\r\r\n\\n"},
      {"\n\r", "\\n\\r"},
      // A quote and a combining mark are one character, and so is what is put before it.
      {"\"\u0301x\"", "\"\u0301x\\\""},
      {"\\\u200d", "\\\u200d"},
      {"\u0600\"", "\u0600\""},
      {"\u0600\n", "\u0600\\n"},
      {"é\"é", "é\\\"é"},
      {"я\"я", "я\\\"я"},
      {"😀\"😀", "😀\\\"😀"},
      {"\"\xcc", "\\\"\xcc"},
      {"\x81\"", "\x81\\\""},
      {"\xff\"\xff", "\xff\\\"\xff"},
  };
  for (const auto& [text, encoded] : cases) {
    // At every place of a block.
    for (std::size_t shift = 0; shift < 34; ++shift) {
      const std::string before(shift, 'x');
      EXPECT_EQ(stringEncodedForJson(before + text), before + encoded);
      EXPECT_EQ(compact(ManagedArray{before + text, "y"}),
                "[\"" + before + encoded + "\",\"y\"]\n");
    }
  }
  EXPECT_EQ(compact(ManagedDictionary{{"a\n\"", 1}}), "{\"a\n\"\":1}\n");
}

struct Track {
  std::string title;
  std::optional<int> year;
  ManagedObject jsonObjectValue() const {
    return ManagedDictionary{{"title", title}, {"year", year}};
  }
};

struct Unmappable {};

TEST(JsonValueMapping, MapsEveryKind) {
  using Clock = std::chrono::system_clock;
  using Value = std::variant<std::string, Int, std::uint64_t, double, bool, AbsoluteTime,
                             FileLocation, NullMarker, std::vector<std::optional<int>>,
                             std::map<std::string, std::optional<bool>>, std::shared_ptr<Track>,
                             Clock::time_point>;
  const std::map<std::string, std::optional<Value>> values = {
      {"a", "text"},
      {"b", Int{-1}},
      {"c", std::uint64_t{1} << 63},
      {"d", 0.5},
      {"e", true},
      {"f", AbsoluteTime(0.5)},
      {"g", FileLocation("/x y")},
      {"h", NullMarker()},
      {"i", std::vector<std::optional<int>>{1, {}, 3}},
      {"j", std::map<std::string, std::optional<bool>>{{"k", {}}, {"l", false}}},
      {"m", std::nullopt},
      {"n", std::make_shared<Track>(Track{"t", {}})},
      {"o", std::shared_ptr<Track>()},
      {"q", Clock::time_point(std::chrono::milliseconds(1))}};
  const std::string head =
      R"({"a":"text","b":-1,"c":9223372036854775808,"d":0.5,"e":true,"f":"1970-01-01T00:00:00.500Z",)"
      R"("g":"file:///x%20y","h":null,)";
  const std::string tail = "\"q\":\"1970-01-01T00:00:00.001Z\"}\n";
  EXPECT_EQ(
      compact(makeJsonNsDictionary(values)),
      head +
          R"("i":[1,null,3],"j":{"k":null,"l":false},"m":null,"n":{"title":"t","year":null},"o":null,)" +
          tail);
  EXPECT_EQ(compact(makeJsonNsDictionary(values, true)),
            head + R"("i":[1,3],"j":{"l":false},"n":{"title":"t","year":null},)" + tail);
}

TEST(JsonValueMapping, MapsNestedContainersAndSequencesOfAllKinds) {
  const std::vector<std::map<std::string, std::list<std::optional<std::string>>>> nested = {
      {{"x", {"a", std::nullopt}}}, {}};
  EXPECT_EQ(compact(makeJsonNsArray(nested)), "[{\"x\":[\"a\",null]},{}]\n");
  EXPECT_EQ(makeJsonText(nested), JsonWriter::stringFrom(makeJsonNsArray(nested)));
  EXPECT_EQ(makeJsonText(std::vector<std::optional<int>>{{}, 1, {}}, true, std::nullopt), "[1]\n");
  EXPECT_EQ(makeJsonText(std::vector<int>()), "[\n]\n");
  EXPECT_EQ(makeJson(nested, true), Json::parseString(R"([{"x":["a"]},{}])"));
  EXPECT_EQ(makeJson(std::vector<bool>{true, false}), Json(ManagedArray{true, false}));
  EXPECT_EQ(makeJson(std::vector<Track>{{"t", 1}})[0]["year"], Json(1));
  EXPECT_EQ(makeJson(std::vector<std::unique_ptr<int>>(1)), Json(ManagedArray{nullptr}));
  EXPECT_EQ(makeJson(std::vector<std::filesystem::path>{"/p"}), Json(ManagedArray{"file:///p"}));
  EXPECT_EQ(makeJson(std::vector<Json>{ManagedArray{1}}), Json(ManagedArray{ManagedArray{1}}));
  EXPECT_EQ(jsonObjectValue(std::vector{1, 2}), ManagedObject(ManagedArray{1, 2}));
}

// Gives elements of every build, of which it keeps some.
struct Varied {
  int number = 0;
  std::vector<ManagedObject>* kept = nullptr;

  ManagedObject jsonObjectValue() const {
    if (number == failing) throw std::runtime_error("no value");
    const std::string name = "a name of some length, number " + std::to_string(number);
    static const ManagedObject shared = ManagedDictionary{{"shared", ManagedArray{"by all"}}};
    ManagedDictionary grown{{"name", name}, {"number", number}};
    if (number % 3 == 0) grown.set("a key that is long " + std::to_string(number % 5), name);
    if (number % 4 == 0) grown.set("shared", shared);
    if (number % 6 == 0) {
      Json json = std::exchange(grown, {});
      json["a key by a path, long too"] = number;
      grown = *std::exchange(json, {}).dictionaryObject();
    }
    if (number % 5 == 0) grown.set("decimal", NumberValue::decimal("0.1"));
    grown.set("list", makeJsonNsArray(std::vector<std::string>(std::size_t(number % 130), name)));
    if (number % 7 == 0) return ManagedArray{name, grown, ManagedDictionary{{"inner", grown}}};
    if (number % 11 == 0) {
      ManagedObject deep = name;
      for (int i = 0; i < 20; ++i) deep = ManagedArray{std::move(deep)};
      return deep;
    }
    if (kept != nullptr && number % 50 == 0) kept->push_back(grown);
    return grown;
  }

  static inline int failing = -1;
};

TEST(JsonValueMapping, MapsManyValuesAsEachAlone) {
  std::vector<ManagedObject> kept;
  std::vector<Varied> values;
  for (int i = 0; i < 1500; ++i) values.push_back({i, &kept});
  ManagedArray mapped = makeJsonNsArray(values);
  ManagedArray alone;  // after the others, so that these are the first to have the keys
  for (int i = 0; i < 1500; ++i) alone.append(Varied{i}.jsonObjectValue());
  EXPECT_EQ(mapped, alone);
  const ManagedArray copy = mapped;
  const std::string text = JsonWriter::stringFrom(mapped);
  EXPECT_EQ(text, JsonWriter::stringFrom(alone));
  EXPECT_EQ(makeJsonText(values), text);

  Json json = mapped;
  json[1]["name"] = "new";
  mapped.set(2, 5);
  mapped.append(nullptr);
  EXPECT_EQ(json[1]["name"], Json("new"));
  EXPECT_EQ(JsonWriter::stringFrom(copy), text);
  const ManagedObject last = copy[1499];
  json = mapped = {};
  Varied::failing = 700;
  EXPECT_THROW(makeJsonNsArray(values), std::runtime_error);
  EXPECT_THROW(makeJsonText(values), std::runtime_error);
  Varied::failing = -1;
  EXPECT_EQ(std::ssize(kept), 2 * 23 + 2 * 11);
  for (const ManagedObject& object : kept) {
    const auto number = static_cast<int>(object.find("number")->number()->integerValue());
    EXPECT_EQ(object, Varied{number}.jsonObjectValue());
  }
  EXPECT_EQ(last, alone[1499]);
}

TEST(JsonValueMapping, StopsAtContainersThatCannotBeMapped) {
  const std::vector<std::vector<Unmappable>> lists(1);
  EXPECT_DEATH(makeJson(lists), "Bad Array!!! type \"std::vector<.*Unmappable>\":");
  const std::vector<std::map<int, int>> maps = {{{1, 2}}};
  EXPECT_DEATH(makeJson(maps), "Bad Dictionary!!! type \"std::map<int, int.*>\":\\[1: 2\\]: ");
  const std::map<std::string, std::map<std::string, Unmappable>> inner = {{"a", {}}};
  EXPECT_DEATH(makeJson(inner), "Bad Dictionary!!! type \"");
}

}  // namespace
}  // namespace tolvanite
