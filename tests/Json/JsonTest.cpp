#include <Tolvanite/Json/Json.h>

#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace tolvanite {
namespace {

using testing::UnorderedElementsAre;
using Path = std::vector<JsonKey>;

struct Unknown {};

// Steps of a host's own types.
struct Column {
  JsonKey jsonKey() const { return "a key that is no short text"; }
};
struct Row {
  JsonKey key;
  const JsonKey& jsonKey() const { return key; }
};

Json sample() {
  return Json::parseString(R"({"a":[1,{"b":"x"},null],"t":true,"s":"text that is not short"})");
}
Json unknown() { return ManagedObject::wrapping(Unknown()); }

TEST(Json, ClassifiesWhatItIsGiven) {
  const std::vector<std::pair<Json, JsonType>> cases = {
      {1, JsonType::number},
      {true, JsonType::boolean},
      {1.5, JsonType::number},
      {"a", JsonType::string},
      {nullptr, JsonType::null},
      {NullMarker(), JsonType::null},
      {ManagedArray{1}, JsonType::array},
      {ManagedDictionary(), JsonType::dictionary},
      {Json{{"a", 1}}, JsonType::dictionary},
      {std::optional<int>(), JsonType::null},
      {ManagedObject::wrapping(std::optional<Unknown>()), JsonType::null},
      {NumberValue(false), JsonType::boolean},
      {ManagedObject::from(std::map<int, int>{{1, 1}}), JsonType::unknown},
      {unknown(), JsonType::unknown}};
  for (const auto& [json, type] : cases) {
    EXPECT_EQ(json.type(), type);
    EXPECT_EQ(json.error().isSome(), type == JsonType::unknown);
    EXPECT_TRUE(json.exists());
  }
  EXPECT_EQ(jsonType(6), JsonType::unknown);
  EXPECT_TRUE(jsonType(7).isNone() && jsonType(-1).isNone());
  EXPECT_TRUE(Json::null(JsonError::notUtf8Encoded).exists());
  EXPECT_DEATH(Json::object(), "Fatal error: who uses this: ");
}

TEST(Json, ReadsNeverFailAndTellWhy) {
  const Json doc = sample();
  const std::vector<std::pair<Path, Optional<JsonError>>> cases = {
      {{}, {}},
      {{"a", 0}, {}},
      {{"a", 1, "b"}, {}},
      {{"a", 3}, JsonError::indexOutOfBounds},
      {{"a", -1}, JsonError::indexOutOfBounds},
      {{"a", "b"}, JsonError::invalidType},
      {{0}, JsonError::invalidType},
      {{"z"}, JsonError::notExist},
      {{"z", 0}, JsonError::invalidType},
      {{"a", 9, "b", 1}, JsonError::invalidType},
      {{"s", "length"}, JsonError::invalidType}};
  for (const auto& [path, error] : cases) {
    EXPECT_EQ(doc[path].error(), error);
    EXPECT_EQ(doc[path].exists(), error.isNone());
  }
  EXPECT_EQ((doc[{"a", 1, "b"}].stringValue()), "x");
  EXPECT_EQ(doc["a"][1]["b"].stringValue(), "x");
}

TEST(Json, ConvertsByTheValueAccessorsOnly) {
  struct Case {
    Json json;
    bool truth;
    std::string text;
    NumberValue number;
  };
  const std::vector<Case> cases = {
      {"TRUE", true, "TRUE", 0},      {"Y", true, "Y", 0},        {"t", true, "t", 0},
      {"yes", false, "yes", 0},       {"1", false, "1", 1},       {"1.5", false, "1.5", 1.5},
      {"1.5x", false, "1.5x", 0},     {2, true, "2", 2},          {0.5, true, "0.5", 0.5},
      {true, true, "true", 1},        {false, false, "false", 0}, {nullptr, false, "", 0.0},
      {ManagedArray{1}, false, "", 0}};
  for (const Case& each : cases) {
    EXPECT_EQ(each.json.boolValue(), each.truth) << each.json;
    EXPECT_EQ(each.json.stringValue(), each.text);
    EXPECT_EQ(each.json.numberValue(), each.number) << each.json;
    const bool isNumber =
        each.json.type() == JsonType::number || each.json.type() == JsonType::boolean;
    EXPECT_EQ(each.json.asDouble().isSome(), isNumber);
    EXPECT_EQ(each.json.uInt8().isSome(), isNumber);
    EXPECT_EQ(each.json.asBool().isSome(), each.json.type() == JsonType::boolean);
  }
  EXPECT_EQ(Json("abc").numberValue().kind(), NumberValue::Kind::decimal);
  EXPECT_EQ(Json().numberValue().kind(), NumberValue::Kind::real);
  EXPECT_EQ(Json(true).number()->kind(), NumberValue::Kind::signedInteger);
  EXPECT_EQ(Json(300).uInt8Value(), 44);
  EXPECT_EQ(Json(300.7).int8(), Optional<std::int8_t>(127));
}

TEST(Json, WritesOnlyWhatIsWrittenTo) {
  Json doc = sample();
  const Json before = doc;
  const Json part = doc["a"];
  doc["a"][1]["b"] = "y";
  doc[{"a", 0}] = doc["t"];
  doc["new"] = ManagedArray{"n"};
  doc["new"][0] = doc["new"];
  doc[Path{"s"}] = unknown();  // a path stores null instead
  doc[Path{}] = 5;             // no step, nothing to write
  EXPECT_EQ(doc,
            Json::parseString(R"({"a":[true,{"b":"y"},null],"t":true,"s":null,"new":[["n"]]})"));
  EXPECT_EQ(before, sample());
  EXPECT_EQ(part, sample()["a"]);
  auto kept = doc["a"];
  doc["a"] = 1;
  EXPECT_EQ(kept[0], Json(true));
}

TEST(Json, TakesStepsOfOtherTypes) {
  Json doc = ManagedArray{ManagedDictionary{{"a key that is no short text", 1}}};
  EXPECT_EQ((std::as_const(doc)[{Row{0}, Column()}]), Json(1));
  doc[Row{0}][Column()] = 2;
  EXPECT_EQ(doc[0][Column()], Json(2));
  doc[{Row{0}, Column()}] = 3;
  EXPECT_EQ(doc, Json(ManagedArray{ManagedDictionary{{"a key that is no short text", 3}}}));
}

TEST(Json, StopsAtWritesThatCannotBe) {
  Json doc = sample();
  EXPECT_DEATH(doc["a"][3] = 1, "Json.subscript\\(index:3 set out of bounds: 3: ");
  EXPECT_DEATH(doc["a"][-1] = 1, "Index -1 out of range, 3 elements");
  EXPECT_DEATH(doc["a"][0] = unknown(), "Json.subscript\\(index:0 set out of bounds: 3: ");
  EXPECT_DEATH(doc["t"][0] = 1, "Json.subscript\\(index:0 set on type bool: ");
  EXPECT_DEATH(doc["a"]["k"] = 1, "Json.subscript\\(key:\"k\"\\) on type array: ");
  EXPECT_DEATH(doc["k"] = unknown(), "Json.subscript\\(key:\"k\"\\) on type dictionary: ");
  EXPECT_DEATH((doc[{"z", "b"}] = 1), "Json.subscript\\(key:\"b\"\\) on type null: ");
  EXPECT_DEATH(doc["z"][1]["b"][2] = 1, "Json.subscript\\(index:2 set on type null: ");
  EXPECT_DEATH((doc[{"a", 3, 4}] = 1), "Json.subscript\\(index:4 set on type null: ");
  Json scalar = unknown();
  EXPECT_DEATH(scalar["b"] = 1, "on type unknown: ");
}

// Random writes to several documents that share content, against plain values.
TEST(Json, KeepsValuesApartThatShareContent) {
  std::mt19937 random(3);
  std::vector<Json> documents(6, Json(ManagedArray{}));
  std::vector<std::vector<std::map<std::string, int>>> models(6);
  ManagedArray rows;
  for (int i = 0; i < 5; ++i) rows.append(ManagedDictionary{{"a", i}});
  documents[0] = rows;
  for (int i = 0; i < 5; ++i) models[0].push_back({{"a", i}});
  for (int round = 0; round < 20'000; ++round) {
    const std::size_t from = random() % 6;
    const std::size_t to = random() % 6;
    if (random() % 8 == 0 && !models[from].empty()) {
      documents[to] = documents[from];
      models[to] = models[from];
    } else if (!models[to].empty()) {
      const std::size_t row = random() % models[to].size();
      const std::string key = "key" + std::to_string(random() % 30);
      const int value = static_cast<int>(random());
      documents[to][row][key] = value;
      models[to][row][key] = value;
    }
  }
  for (std::size_t i = 0; i < documents.size(); ++i) {
    EXPECT_EQ(documents[i], Json(ManagedArray(models[i])));
  }
}

TEST(Json, FillsAMillionElementsThroughAPath) {
  // A copy of the list for each element would take hours.
  ManagedArray zeros;
  for (int i = 0; i < 1'000'000; ++i) zeros.append(0);
  Json doc = {{"list", zeros}};
  zeros = ManagedArray();
  for (int i = 0; i < 1'000'000; ++i) doc["list"][i] = i;
  EXPECT_EQ((doc[{"list", 999'999}]), Json(999'999));
  for (int i = 0; i < 200'000; ++i) doc["list"].merge(ManagedArray{i});
  EXPECT_EQ(doc["list"].arrayObject()->count(), 1'200'000);
  Json deep;
  for (int i = 0; i < 1'000'000; ++i) deep = Json(ManagedArray{deep});
  deep = 1;  // no recursion a million deep
}

TEST(Json, ComparesByTypeAndValue) {
  const double notANumber = std::nan("");
  EXPECT_TRUE(Json(1) == Json(1.0) && Json(1) < Json(1.5) && Json(2) >= Json(1));
  EXPECT_TRUE(Json("a") < Json("b") && Json("b") > Json("a") && Json("a") <= Json("a"));
  EXPECT_TRUE(Json(false) <= Json(false) && !(Json(false) < Json(true)) &&
              !(Json(false) <= Json(true)));
  EXPECT_TRUE(Json() == Json() && Json() <= Json() && !(Json() < Json()));
  for (const Json& other : {Json("1"), Json(true), Json(), unknown(), Json(ManagedArray{1})}) {
    EXPECT_FALSE(Json(1) == other || Json(1) <= other || Json(1) >= other);
  }
  EXPECT_FALSE(unknown() == unknown());
  // Inside of containers truth values are numbers.
  EXPECT_EQ(Json(ManagedArray{1, true}), Json(ManagedArray{true, 1.0}));
  EXPECT_EQ((Json{{"a", 1}, {"b", 2}}), (Json{{"b", 2.0}, {"a", 1}}));
  EXPECT_EQ(std::hash<Json>()(Json{{"a", 1}, {"b", 2}}),
            std::hash<Json>()(Json{{"b", 2.0}, {"a", 1}}));
  EXPECT_NE((Json{{"a", 1}}), (Json{{"b", 1}}));
  EXPECT_FALSE(Json(ManagedArray{1}) < Json(ManagedArray{2}));
  EXPECT_EQ(Json(notANumber), Json(notANumber));
}

TEST(Json, MergesInDepth) {
  Json doc = Json::parseString(R"({"a":{"b":1,"c":[1]},"d":"x"})");
  doc.merge(Json::parseString(R"({"a":{"c":[2],"e":null},"d":5,"f":{}})"));
  EXPECT_EQ(doc, Json::parseString(R"({"a":{"b":1,"c":[1,2],"e":null},"d":5,"f":{}})"));
  EXPECT_EQ(Json(ManagedArray{1}).merged(ManagedArray{2}), Json(ManagedArray{1, 2}));
  EXPECT_EQ(Json(1).merged(2.5), Json(2.5));
  Json number = 1;
  try {
    number.merge("x");
    FAIL();
  } catch (const JsonFailure& failure) {
    EXPECT_EQ(failure.error(), JsonError::invalidType);
  }
  EXPECT_EQ(number, Json(1));
  number.merge("x", false);
  EXPECT_EQ(number, Json("x"));
  const Json before = doc;
  doc["a"].merge(Json{{"b", 2}, {"u", ManagedObject::wrapping(Unknown())}});
  EXPECT_EQ((before[{"a", "b"}]), Json(1));
  EXPECT_THROW(doc["a"].merge(ManagedArray()), JsonFailure);
  doc["z"].merge(nullptr);
  EXPECT_TRUE(doc["z"].exists());
  EXPECT_EQ((doc[{"a", "b"}]), Json(2));
  EXPECT_EQ((doc[{"a", "u"}].type()), JsonType::null);
  doc.merge(doc);
  EXPECT_EQ((doc[{"a", "c"}].arrayValue().size()), 4U);
}

TEST(Json, IsACollectionOfPairs) {
  std::vector<std::string> seen;
  for (const auto& [key, value] : sample()["a"])
    seen.push_back(key + std::string(nameOf(value.type())));
  EXPECT_THAT(seen, testing::ElementsAre("0number", "1dictionary", "2null"));
  Set<std::string> keys;
  for (const auto& [key, value] : sample()) keys.insert(key);
  EXPECT_THAT(keys, UnorderedElementsAre("a", "t", "s"));
  EXPECT_EQ(Json(5).startIndex(), Json(5).endIndex());
  EXPECT_LT(Json::Index::array(1), Json::Index::array(2));
  EXPECT_FALSE(Json::Index::null() < Json::Index::array(2));
  EXPECT_EQ(Json()[Json::Index::null()].first, "");
}

TEST(Json, SumsUpItsShape) {
  EXPECT_THAT(sample().collectKeyPaths(),
              UnorderedElementsAre(".a.array#3", ".t.bool", ".s.string"));
  EXPECT_THAT(collectKeyPaths(std::vector<Json>{{{"a", 1}}, Json()}),
              UnorderedElementsAre(".a.number", ".null"));
  EXPECT_DEATH(unknown().collectKeyPaths(), "Fatal error: .unknown: ");
}

TEST(Json, DescribesItself) {
  EXPECT_EQ(Json("a\"b").description(), "Json(type=string, content=a\"b)");
  EXPECT_EQ(Json({{"k\"", "a\"\\\n"}}).makeStringPlain(), "{\"k\"\": \"a\\\"\\\\\n\"}");
  EXPECT_EQ(Json(ManagedArray{1, 1.5, true, nullptr, ManagedArray(), ManagedDictionary()})
                .makeStringPlain(),
            "[1,1.5,true,null,[],{}]");
  EXPECT_THAT(*Json({{"a", 1}, {"b", "c"}}).makeStringPlain(),
              testing::AnyOf("{\"a\": 1,\"b\": \"c\"}", "{\"b\": \"c\",\"a\": 1}"));
  EXPECT_TRUE(Json(ManagedArray{ManagedObject::wrapping(Unknown())}).makeStringPlain().isNone());
  EXPECT_EQ(sample().debugDescription(), "Json(type=dictionary)");
  EXPECT_DEATH(Json(ManagedArray{ManagedObject::wrapping(5)}).description(),
               "Cannot makeString\\(\\) of \\[5\\]: ");
}

TEST(Json, TakesWrappedValuesApart) {
  const ManagedObject inner = ManagedObject::wrapping(Json(ManagedObject::wrapping(Json(7))));
  const ManagedObject nested =
      ManagedObject::wrapping(Json{{"x", ManagedObject::wrapping(Json(7))}});
  EXPECT_EQ(Json::unwrap(ManagedArray{1, nested}),
            Json(ManagedArray{1, ManagedDictionary{{"x", 7}}}));
  EXPECT_EQ(Json::unwrap(inner), Json());  // an unknown Json gives null
  EXPECT_EQ(Json(nested).type(), JsonType::unknown);
  const ManagedObject mixed =
      ManagedDictionary{{"when", ManagedObject::wrapping(AbsoluteTime(0.5))},
                        {"where", ManagedArray{ManagedObject::from(FileLocation("/a b"))}},
                        {"json", nested}};
  EXPECT_EQ(Json::joWithAdditions(mixed),
            Json::parseString(R"({"when":"1970-01-01T00:00:00.500Z","where":["file:///a%20b"],)"
                              R"("json":{"x":7}})"));
}

TEST(Json, ReadsTimes) {
  const std::vector<std::pair<const char*, double>> good = {
      {"1970-01-01T00:00:00.500Z", 0.5},
      {"2000-02-29T23:59:59.999Z", 951868799.999},
      {"0001-01-01T00:00:00.000Z", -62135596800}};
  for (const auto& [text, seconds] : good) {
    EXPECT_EQ(Json(text).date(), AbsoluteTime(seconds)) << text;
    EXPECT_EQ(Json::joWithAdditions(ManagedObject::from(AbsoluteTime(seconds))), Json(text));
  }
  for (const char* text :
       {"1970-01-01T00:00:00Z", "2001-02-29T00:00:00.000Z", "2024-02-30T00:00:00.000Z",
        "2024-13-01T00:00:00.000Z", "2024-00-01T00:00:00.000Z", "2024-01-01T25:00:00.000Z",
        "2024-01-01T00:60:00.000Z", "2024-01-01 00:00:00.000Z", "2024-01-01T00:00:00.000",
        " 2024-01-01T00:00:00.000Z", "+024-01-01T00:00:00.000Z", ""}) {
    EXPECT_TRUE(Json(text).date().isNone()) << text;
    EXPECT_EQ(Json(text).dateValue(), AbsoluteTime(0)) << text;
  }
  EXPECT_TRUE(Json(5).date().isNone());
  // The nearest millisecond, also across seconds and before 1970.
  const auto text = [](double seconds) {
    return Json::joWithAdditions(ManagedObject::from(AbsoluteTime(seconds))).stringValue();
  };
  EXPECT_EQ(text(0.9996), "1970-01-01T00:00:01.000Z");
  EXPECT_EQ(text(-0.0004), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(text(-0.001), "1969-12-31T23:59:59.999Z");
  EXPECT_EQ(text(std::nan("")), "1970-01-01T00:00:00.000Z");
  EXPECT_FALSE(text(1e300).empty());
}

TEST(Json, ReadsFileLocations) {
  const std::vector<std::pair<const char*, const char*>> good = {
      {"file:///a b", "/a b"}, {"file:///a%20b", "/a b"}, {"/x/y", "/x/y"},
      {"file:///a%2", "/a%2"}, {"/é?#", "/é?#"},          {"file://localhost/%C3%A9", "/é"}};
  for (const auto& [text, wanted] : good) {
    ASSERT_TRUE(Json(text).url().isSome()) << text;
    EXPECT_EQ(Json(text).url()->path(), wanted);
  }
  EXPECT_THAT(Json("a b").url()->absoluteString(), testing::EndsWith("/a%20b"));
  EXPECT_THAT(Json("a%20b").url()->absoluteString(), testing::EndsWith("/a%20b"));
  EXPECT_THAT(Json("a%2").url()->absoluteString(), testing::EndsWith("/a%252"));
  for (const char* text : {"", "http://x/y", "a%20b c", "file://host/x"}) {
    EXPECT_TRUE(Json(text).url().isNone()) << text;
  }
  EXPECT_TRUE(Json(5).url().isNone());
}

TEST(Json, ReportsTextThatIsNotUtf8) {
  EXPECT_EQ(Json::parseString("12"), Json(12));
  EXPECT_THROW(Json::parseString("{"), JSONSerialization::Errur);
  EXPECT_THROW(Json::parseString("\"\xff\""), JsonFailure);
  EXPECT_THROW(Json::fromData(ByteBuffer("\"\xff\"")), JSONSerialization::Errur);
  EXPECT_THROW(Json::fromData(ByteBuffer("1"), Json::ReadingOptions::none),
               JSONSerialization::Errur);
}

TEST(ManagedDictionary, ChangesInPlaceAndApart) {
  ManagedDictionary dictionary;
  for (int i = 0; i < 1000; ++i) dictionary.set("key number " + std::to_string(i), i);
  const ManagedDictionary copy = dictionary;
  for (int i = 0; i < 1000; i += 2)
    EXPECT_TRUE(dictionary.remove("key number " + std::to_string(i)));
  EXPECT_FALSE(dictionary.remove("key number 0"));
  EXPECT_EQ(dictionary.count(), 500);
  EXPECT_EQ(copy.count(), 1000);
  for (int i = 0; i < 1000; ++i) {
    const std::string key = "key number " + std::to_string(i);
    EXPECT_EQ(dictionary.contains(key), i % 2 == 1);
    EXPECT_EQ(copy[key], ManagedObject(i));
  }
  ManagedArray list{1, 2, 3};
  const ManagedArray other = list;
  list.remove(0);
  list.set(0, "x");
  EXPECT_EQ(list, (ManagedArray{"x", 3}));
  EXPECT_EQ(other, (ManagedArray{1, 2, 3}));
  EXPECT_DEATH(list.set(2, 1), "Index 2 out of range, 2 elements");
}

}  // namespace
}  // namespace tolvanite
