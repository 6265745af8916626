#include <Tolvanite/Json/Json.h>

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Json/JsonValueMapping.h>
#include <Tolvanite/Json/JsonWriter.h>

#include "JsonDriver.h"

namespace bench {
namespace {

using tolvanite::JsonWriter;
using tolvanite::ManagedDictionary;
using tolvanite::ManagedObject;

// A deep copy is a reference here: whoever writes to one of the two copies what it changes.
class Document {
 public:
  explicit Document(const std::string& text)
      : root_(tolvanite::Json::parseString(text).managedJsonObject()) {}

  void walk(Walk& walk) const { visit(walk, root_); }
  std::string pretty() const { return JsonWriter(std::string("    ")).string(root_); }
  std::string compact() const { return JsonWriter(std::nullopt).string(root_); }
  Document copied() const { return *this; }

  double lookup(std::string_view pointer) const {
    const ManagedObject* at = &root_;
    while (!pointer.empty()) {
      pointer.remove_prefix(1);
      const std::string_view token = pointer.substr(0, pointer.find('/'));
      pointer.remove_prefix(token.size());
      if (at->kind() == ManagedObject::Kind::list) {
        tolvanite::Int index = 0;
        std::from_chars(token.data(), token.data() + token.size(), index);
        at = at->find(index);
      } else {
        at = at->find(token);
      }
    }
    return at->number()->doubleValue();
  }

 private:
  static void visit(Walk& walk, const ManagedObject& object) {
    switch (object.kind()) {
      case ManagedObject::Kind::null:
        ++walk.nulls;
        break;
      case ManagedObject::Kind::text:
        walk.text(*object.textView());
        break;
      case ManagedObject::Kind::number: {
        const tolvanite::NumberValue number = *object.number();
        if (number.isBool()) {
          ++walk.truths;
        } else {
          walk.number(number.doubleValue());
        }
        break;
      }
      case ManagedObject::Kind::list:
        ++walk.lists;
        for (const ManagedObject& element : object.elements()) visit(walk, element);
        break;
      default:
        ++walk.objects;
        for (const auto& [key, value] : object.items()) {
          walk.key(key);
          visit(walk, value);
        }
    }
  }

  ManagedObject root_;
};

// A million values of a host type to text, beside writing the same text from a Json that is ready:
// `records_to_text` by the call that takes the values and gives the text, for which each is mapped,
// written and gone before the next; `records_as_tree_to_text` maps all of them to one raw list
// first and writes that, with the list's making and end in the time; `records_written` only writes.
struct Record {
  Item item;
  ManagedObject jsonObjectValue() const {
    return ManagedDictionary{
        {"key", item.key}, {"name", item.name}, {"rank", item.rank}, {"group", item.group}};
  }
};

std::vector<Record> records() {
  std::vector<Record> result;
  for (Item& item : makeItems(0xD4, 1'000'000)) result.push_back({std::move(item)});
  return result;
}

void recordsAsTreeToText(benchmark::State& state) {
  const std::vector<Record> values = records();
  std::size_t length = 0;
  for ([[maybe_unused]] auto once : state) {
    const std::string text = JsonWriter::stringFrom(tolvanite::makeJsonNsArray(values));
    length = text.size();
  }
  report(state, values.size(), folded(length));
}

void recordsToText(benchmark::State& state) {
  const std::vector<Record> values = records();
  std::size_t length = 0;
  for ([[maybe_unused]] auto once : state) {
    const std::string text = tolvanite::makeJsonText(values);
    length = text.size();
  }
  report(state, values.size(), folded(length));
}

void writeRecords(benchmark::State& state) {
  const tolvanite::Json ready = tolvanite::makeJson(records());
  std::size_t length = 0;
  for ([[maybe_unused]] auto once : state) {
    const std::string text = ready.makeStringJsonWriter();
    length = text.size();
  }
  report(state, 1'000'000, folded(length));
}

const bool registered = registerJson<Document>("tolvanite");
const auto* const asTree =
    benchmark::RegisterBenchmark("tolvanite/records_as_tree_to_text", recordsAsTreeToText)
        ->Unit(benchmark::kMillisecond);
const auto* const toText = benchmark::RegisterBenchmark("tolvanite/records_to_text", recordsToText)
                               ->Unit(benchmark::kMillisecond);
const auto* const written = benchmark::RegisterBenchmark("tolvanite/records_written", writeRecords)
                                ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
