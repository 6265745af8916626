// A music collection as a JSON document: read, looked into, changed, and stored again; and types of
// a host that go into JSON and come back.
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/JsonValueMapping.h>
#include <Tolvanite/Json/JsonWriter.h>
#include <Tolvanite/Json/Jsonable.h>

namespace {

using tolvanite::Int;
using tolvanite::Json;
using tolvanite::JsonWriter;
using tolvanite::ManagedArray;
using tolvanite::ManagedDictionary;
using tolvanite::ManagedObject;
using tolvanite::Optional;

// What a mapping to JSON takes: a type with `jsonObjectValue`.
struct Track {
  std::string title;
  std::optional<Int> seconds;

  ManagedObject jsonObjectValue() const {
    return ManagedDictionary{{"title", title}, {"seconds", seconds}};
  }
};

// A type that goes into JSON and comes back by itself.
struct Place {
  double x = 0;
  double y = 0;

  Json asJson() const { return {{"x", x}, {"y", y}}; }
  static Optional<Place> fromJson(const Json& json) {
    if (json["x"].number().isNone() || json["y"].number().isNone()) return {};
    return Place{json["x"].doubleValue(), json["y"].doubleValue()};
  }
  friend bool operator==(const Place&, const Place&) = default;
};

// One that needs the document around it: labels are stored by their numbers.
struct Labelled {
  using JsonContext = std::vector<std::string>;
  std::string label;

  Json asJson(JsonContext& labels) const {
    labels.push_back(label);
    return static_cast<Int>(labels.size()) - 1;
  }
  static Optional<Labelled> fromJson(const Json& json, JsonContext& labels) {
    const Optional<Int> number = json.asInt();
    if (number.isNone() || *number < 0 || *number >= static_cast<Int>(labels.size())) return {};
    return Labelled{labels[static_cast<std::size_t>(*number)]};
  }
  friend bool operator==(const Labelled&, const Labelled&) = default;
};

// And one whose name is the key under which it stands.
struct Setting {
  struct JsonContext {
    int version = 2;
  };
  std::string name;
  bool isOn = false;

  Json asJson(std::string_view /*key*/, JsonContext& context) const {
    return {{"on", isOn}, {"version", context.version}};
  }
  static Optional<Setting> fromJson(const Json& json, std::string_view key, JsonContext& context) {
    if (json["version"].intValue() > context.version) return {};
    return Setting{std::string(key), json["on"].boolValue()};
  }
  friend bool operator==(const Setting&, const Setting&) = default;
};

static_assert(tolvanite::Jsonable<Place> && !tolvanite::Jsonable2<Place>);
static_assert(tolvanite::Jsonable2<Labelled> && !tolvanite::Jsonable3<Labelled>);
static_assert(tolvanite::Jsonable3<Setting> && !tolvanite::Jsonable<Setting>);

// Through the text that would be stored.
Json storedAndRead(const ManagedObject& document) {
  return Json::parseString(JsonWriter::stringFrom(document));
}

void readAndChange() {
  Json collection = Json::parseString(R"({
    "owner": {"name": "Ann", "since": "2019-05-04T10:00:00.000Z"},
    "discs": [{"title": "Blue", "year": 1971}, {"title": "Hejira", "year": "1976"}]
  })");
  std::cout << collection["discs"][0]["title"].stringValue() << ", "
            << collection["discs"][1]["year"].intValue() << '\n';
  std::cout << "since " << *collection["owner"]["since"].date() << '\n';

  const Json missing = collection["discs"][7]["title"];
  std::cout << "a missing disc: \"" << missing.stringValue() << "\", " << missing.error().q()
            << '\n';

  const Json before = collection;  // shares everything, and costs a reference
  collection["discs"][1]["year"] = 1976;
  collection[{"owner", "name"}] = "Bea";
  collection["owner"].merge(Json{{"city", "Rome"}});
  std::cout << before["owner"]["name"].stringValue() << " became "
            << collection["owner"]["name"].stringValue() << '\n';
  std::cout << collection.makeStringJsonWriter("  ", JsonWriter::SortKeyOrder{"title"});

  try {
    Json::parseString("{\"discs\": [1, 2,]}");
  } catch (const tolvanite::Error& error) {
    std::cout << error.description() << '\n';
  }
}

void mapValues() {
  const std::vector<Track> tracks = {{"All I Want", 212}, {"Carey", {}}};
  std::cout << tolvanite::makeJsonText(tracks);
  const std::map<std::string, std::vector<std::optional<Int>>> marks = {{"a", {5, {}, 4}}};
  std::cout << JsonWriter(std::nullopt).string(tolvanite::makeJsonNsDictionary(marks, true));
}

void goThereAndBack() {
  const Place place{1.5, -2};
  const Json read = storedAndRead(place.asJson().managedJsonObject());
  std::cout << std::boolalpha << (*Place::fromJson(read) == place);

  std::vector<std::string> labels;
  const Json numbers =
      ManagedArray{Labelled{"jazz"}.asJson(labels), Labelled{"folk"}.asJson(labels)};
  const Json readNumbers = storedAndRead(numbers.managedJsonObject());
  std::cout << ' ' << (*Labelled::fromJson(readNumbers[1], labels) == Labelled{"folk"});

  Setting::JsonContext context;
  const Setting setting{"shuffle", true};
  const Json settings = {{setting.name, setting.asJson(setting.name, context)}};
  for (const auto& [key, value] : storedAndRead(settings.managedJsonObject())) {
    std::cout << ' ' << (*Setting::fromJson(value, key, context) == setting) << '\n';
  }
}

}  // namespace

int main() {
  readAndChange();
  mapValues();
  goThereAndBack();
}
