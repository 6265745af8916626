#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <malloc.h>

#include "Harness.h"
#include "Workload.h"

// JSON: reading, walking, writing, copying and looking into documents. One document is made here;
// canada.json and citm_catalog.json are read from the folder that TOLVANITE_JSON_DATA names.
//
// A contender is a class that is copied deeply, with
//
//   explicit Document(const std::string& text)
//   void walk(Walk&) const
//   std::string pretty() const, compact() const       where its library can
//   Document copied() const                           where its library can
//   double lookup(std::string_view pointer) const     the number behind a JSON pointer
namespace bench {

// What a walk over all nodes counts.
struct Walk {
  std::uint64_t nulls = 0, truths = 0, numbers = 0, texts = 0, lists = 0, objects = 0;
  std::uint64_t textBytes = 0;
  double sum = 0;

  void text(std::string_view text) {
    ++texts;
    textBytes += text.size();
  }
  void key(std::string_view key) { textBytes += key.size(); }
  void number(double value) {
    ++numbers;
    sum += value;
  }
  std::uint32_t check() const {
    OrderHash hash;
    for (const auto count : {nulls, truths, numbers, texts, lists, objects, textBytes}) {
      hash.add(count * 2);
    }
    // Writers and parsers may be off in the last digit, which an addition of so many hides.
    return folded(hash.value());
  }
};

struct JsonText {
  std::string name;
  std::string text;
  std::vector<std::string> pointers;
};

inline std::string recordsText(std::size_t size) {
  SplitMix64 random(0xD1);
  std::string text = "[";
  for (std::size_t id = 0; text.size() < size; ++id) {
    const Item item = makeItem(random);
    const double x = random.unit() * 2000 - 1000;
    const double y = random.unit() * 2000 - 1000;
    const std::string& name = item.name;
    char record[512];
    const int length = std::snprintf(
        record, sizeof record,
        R"(%s{"id":%zu,"key":"%016llx","name":"%s","rank":%.17g,"group":%lld,"active":%s,)"
        R"("note":null,"tags":["%s","%s","%s"],"pos":{"x":%.17g,"y":%.17g}})",
        id == 0 ? "" : ",", id, static_cast<unsigned long long>(item.key), name.c_str(), item.rank,
        static_cast<long long>(item.group), item.group % 2 != 0 ? "true" : "false",
        name.substr(0, 4).c_str(), name.substr(4, 5).c_str(), name.substr(9, 6).c_str(), x, y);
    text.append(record, static_cast<std::size_t>(length));
  }
  return text + "]";
}

inline std::vector<std::string> citmPointers(const std::string& text) {
  std::vector<std::string> pointers;
  // The events, whose keys are also their ids, and the performances.
  const std::size_t events = text.find("\"events\"");
  const std::size_t end = text.find("\"performances\"");
  for (std::size_t at = text.find("\"id\":", events); at < end; at = text.find("\"id\":", at + 1)) {
    const std::size_t from = text.find_first_of("0123456789", at);
    const std::size_t to = text.find_first_not_of("0123456789", from);
    pointers.push_back("/events/" + text.substr(from, to - from) + "/id");
  }
  std::size_t index = 0;
  for (std::size_t at = text.find("\"eventId\"", end); at != std::string::npos;
       at = text.find("\"eventId\"", at + 1)) {
    pointers.push_back("/performances/" + std::to_string(index++) + "/eventId");
  }
  SplitMix64 random(0xD2);
  for (std::size_t i = 0; i < pointers.size(); ++i) {
    std::swap(pointers[i], pointers[i + random.below(pointers.size() - i)]);
  }
  return pointers;
}

inline const std::vector<JsonText>& jsonTexts() {
  static const std::vector<JsonText> texts = [] {
    std::vector<JsonText> result;
    JsonText records{"records50MB", recordsText(50'000'000), {}};
    SplitMix64 random(0xD3);
    for (int i = 0; i < 1000; ++i) {
      records.pointers.push_back("/" + std::to_string(random.below(200'000)) + "/pos/x");
    }
    result.push_back(std::move(records));
    const char* folder = std::getenv("TOLVANITE_JSON_DATA");
    if (folder == nullptr) return result;
    for (const auto& [name, file] :
         {std::pair("canada", "/canada.json"), std::pair("citm", "/citm_catalog.json")}) {
      std::ifstream stream(std::string(folder) + file, std::ios::binary);
      if (!stream) continue;
      JsonText text{name, {std::istreambuf_iterator<char>(stream), {}}, {}};
      if (text.name == "citm") text.pointers = citmPointers(text.text);
      result.push_back(std::move(text));
    }
    return result;
  }();
  return texts;
}

inline double heapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

template <class Document>
std::uint32_t walked(const Document& document) {
  Walk walk;
  document.walk(walk);
  return walk.check();
}

template <class Document>
void parseJson(benchmark::State& state, const JsonText& text) {
  // What a parser keeps from one text to the next settles first.
  for (int i = 0; i < 2; ++i) benchmark::DoNotOptimize(Document(text.text));
  const double before = heapInUse();
  std::uint32_t check = 0;
  {
    const Document document(text.text);
    state.counters["heap_per_byte"] =
        (heapInUse() - before) / static_cast<double>(text.text.size());
    check = walked(document);
  }
  for ([[maybe_unused]] auto once : state) {
    Document document(text.text);
    benchmark::DoNotOptimize(document);
  }
  report(state, text.text.size(), check);
}

template <class Document>
void walkJson(benchmark::State& state, const JsonText& text) {
  const Document document(text.text);
  std::uint32_t check = 0;
  for ([[maybe_unused]] auto once : state) check = walked(document);
  report(state, text.text.size(), check);
}

template <class Document, class Write>
void writeJson(benchmark::State& state, const JsonText& text, Write write) {
  const Document document(text.text);
  const std::string first = write(document);
  const std::uint32_t check = walked(Document(first));
  for ([[maybe_unused]] auto once : state) {
    std::string written = write(document);
    benchmark::DoNotOptimize(written);
  }
  report(state, first.size(), check);
}

template <class Document>
void copyJson(benchmark::State& state, const JsonText& text) {
  const Document document(text.text);
  const std::uint32_t check = walked(document.copied());
  for ([[maybe_unused]] auto once : state) {
    Document copy = document.copied();
    benchmark::DoNotOptimize(copy);
  }
  report(state, 1, check);
}

template <class Document>
void lookupJson(benchmark::State& state, const JsonText& text) {
  const Document document(text.text);
  double sum = 0;
  for ([[maybe_unused]] auto once : state) {
    sum = 0;
    for (const std::string& pointer : text.pointers) sum += document.lookup(pointer);
    benchmark::DoNotOptimize(sum);
  }
  report(state, text.pointers.size(), folded(static_cast<std::uint64_t>(std::abs(sum))));
}

template <class Document>
bool registerJson(const std::string& peer) {
  using State = benchmark::State;
  for (const JsonText& text : jsonTexts()) {
    const auto add = [&](const std::string& row, auto body) {
      benchmark::RegisterBenchmark((peer + "/" + row + "/" + text.name).c_str(), [&text, body](
                                                                                     State& state) {
        body(state, text);
      })->Unit(benchmark::kMillisecond);
    };
    add("parse", parseJson<Document>);
    add("walk", walkJson<Document>);
    if constexpr (requires(const Document& document) { document.pretty(); }) {
      add("write_pretty", [](State& state, const JsonText& json) {
        writeJson<Document>(state, json,
                            [](const Document& document) { return document.pretty(); });
      });
    }
    if constexpr (requires(const Document& document) { document.compact(); }) {
      add("write_compact", [](State& state, const JsonText& json) {
        writeJson<Document>(state, json,
                            [](const Document& document) { return document.compact(); });
      });
    }
    if constexpr (requires(const Document& document) { document.copied(); }) {
      add("copy", copyJson<Document>);
    }
    if (!text.pointers.empty()) add("lookup", lookupJson<Document>);
  }
  return true;
}

}  // namespace bench
