#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Harness.h"
#include "Workload.h"

// Texts: counting user-perceived characters, escaping for HTML and back, splitting, padding and
// replacing.
//
// A contender is a class with some of
//
//   using Text = ...; static Text prepared(std::string_view)    the form of its texts, not timed
//   static std::size_t graphemes(const Text&)
//   static auto escaped(const Text&), unescaped(const Text&)     a text, for & < > "
//   static auto splitViews(const Text&), splitOwned(const Text&) a vector of what has a size()
//   static auto padded(const Text&)                             40 wide, blanks behind
//   static auto replaced(const Text&, const Text& of, const Text& with)
//
// `miscountsEmoji` marks one whose count of characters is not that of the others.
namespace bench {

inline constexpr std::size_t graphemeTextSize = 1 << 20;
inline constexpr std::size_t largeTextSize = 10'000'000;
inline constexpr std::size_t padTextCount = 1'000'000;

using Parts = std::vector<std::string_view>;

inline std::string textOfParts(std::uint64_t seed, const Parts& parts, std::size_t size) {
  SplitMix64 random(seed);
  std::string text;
  while (text.size() < size) text += parts[random.below(parts.size())];
  return text;
}

inline std::string asciiText() {
  SplitMix64 random(0xE1);
  std::string text;
  while (text.size() < graphemeTextSize) text += random.word(1 + random.below(10)) + ' ';
  return text;
}

inline std::string europeanText() {
  return textOfParts(0xE2, {"straße ",
                            "über ",
                            "cafe\u0301 ",
                            "and ",
                            "the ",
                            "naïve ",
                            "mañana ",
                            "of ",
                            "garçon ",
                            "smörgåsbord ",
                            "people ",
                            "θάλασσα ",
                            "καλημέρα ",
                            "привет ",
                            "здравствуйте ",
                            "ещё ",
                            "z\u0307o\u0301łty ",
                            "within ",
                            "año, ",
                            "Ærø. "},
                     graphemeTextSize);
}

inline std::string cjkText() {
  return textOfParts(0xE3,
                     {"日本語", "中文", "漢字", "ひらがな", "カタカナ", "한국어", "안녕하세요",
                      "、", "。", "東京", "北京", "서울", "が", "ガ"},
                     graphemeTextSize);
}

inline std::string emojiText() {
  return textOfParts(0xE4,
                     {"👩‍👩‍👧", "🇩🇪", "👍🏽", "1️⃣", "🏴󠁧󠁢󠁥󠁮󠁧󠁿", "😀",
                      "❤️", "👨🏿‍🚀", "🇫🇷", " "},
                     graphemeTextSize);
}

inline std::string markupText() {
  SplitMix64 random(0xE5);
  std::string text = random.word(largeTextSize);
  for (char& byte : text) {
    if (random.below(100) < 2) byte = "&<>\""[random.below(4)];
  }
  return text;
}

inline std::string fieldsText() {
  SplitMix64 random(0xE6);
  std::string text;
  while (text.size() < largeTextSize) text += random.word(random.below(16)) + ',';
  return text;
}

inline std::string wordsText() {
  SplitMix64 random(0xE7);
  std::string text;
  while (text.size() < largeTextSize) {
    text += (random.below(20) == 0 ? "foxtrot" : random.word(2 + random.below(9))) + ' ';
  }
  return text;
}

inline std::uint32_t hashOf(std::string_view text) {
  std::uint64_t hash = text.size();
  for (const char byte : text) hash = hash * 31 + static_cast<unsigned char>(byte);
  return folded(hash);
}

template <class Text>
std::uint32_t hashOfText(const Text& text) {
  if constexpr (requires { std::string_view(text); }) {
    return hashOf(std::string_view(text));
  } else if constexpr (requires { text.toStdString(); }) {
    return hashOf(text.toStdString());
  } else {
    return hashOf(text.get());
  }
}

template <class Pieces>
std::uint32_t hashOfPieces(const Pieces& pieces) {
  std::uint64_t hash = 0;
  for (const auto& piece : pieces) hash = hash * 31 + static_cast<std::uint64_t>(piece.size());
  return folded(hash);
}

// Times `work`, and notes the check value that `checkOf` makes of what it gave last.
template <class Work, class CheckOf>
void registerWork(const std::string& name, std::uint64_t operations, Work work, CheckOf checkOf) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    const auto input = work.prepare();
    for ([[maybe_unused]] auto once : state) {
      auto result = work.run(input);
      benchmark::DoNotOptimize(result);
    }
    report(state, operations, checkOf(work.run(input)));
  })->Unit(benchmark::kMillisecond);
}

template <class Prepare, class Run>
struct Work {
  Prepare prepare;
  Run run;
};
template <class Prepare, class Run>
Work(Prepare, Run) -> Work<Prepare, Run>;

template <class C>
concept CountsGraphemes = requires(const typename C::Text& text) { C::graphemes(text); };
template <class C>
concept Escapes = requires(const typename C::Text& text) { C::escaped(text); };
template <class C>
concept Unescapes = requires(const typename C::Text& text) { C::unescaped(text); };
template <class C>
concept SplitsViews = requires(const typename C::Text& text) { C::splitViews(text); };
template <class C>
concept SplitsOwned = requires(const typename C::Text& text) { C::splitOwned(text); };
template <class C>
concept Pads = requires(const typename C::Text& text) { C::padded(text); };
template <class C>
concept Replaces = requires(const typename C::Text& text) { C::replaced(text, text, text); };

template <class C>
void registerGraphemes(const std::string& peer) {
  using Maker = std::string (*)();
  for (const auto& [row, make] :
       std::initializer_list<std::pair<const char*, Maker>>{{"ascii", asciiText},
                                                            {"european", europeanText},
                                                            {"cjk", cjkText},
                                                            {"emoji", emojiText}}) {
    const std::string name = peer + "/graphemes/" + row;
    const bool isCounted = !requires { C::miscounts; };
    const std::string text = make();
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
      const typename C::Text prepared = C::prepared(text);
      std::size_t count = 0;
      for ([[maybe_unused]] auto once : state) {
        count = C::graphemes(prepared);
        benchmark::DoNotOptimize(count);
      }
      state.counters["ops"] = static_cast<double>(text.size());
      if (isCounted) state.counters["check"] = static_cast<double>(count);
    });
  }
}

template <class C>
void registerPad(const std::string& peer) {
  registerWork(peer + "/pad40", padTextCount,
               Work{[] {
                      SplitMix64 random(0xE8);
                      std::vector<typename C::Text> texts;
                      for (std::size_t i = 0; i < padTextCount; ++i) {
                        texts.push_back(C::prepared(random.word(random.below(31))));
                      }
                      return texts;
                    },
                    [](const std::vector<typename C::Text>& texts) {
                      std::uint64_t sum = 0;
                      for (const auto& text : texts) {
                        const auto padded = C::padded(text);
                        sum += static_cast<std::uint64_t>(padded.size()) +
                               static_cast<std::uint64_t>(*(padded.data() + 39) == ' ');
                      }
                      return sum;
                    }},
               folded);
}

template <class C>
bool registerStrings(const std::string& peer) {
  using Text = typename C::Text;
  const auto ofText = [](const auto& result) { return hashOfText(result); };
  const auto ofPieces = [](const auto& result) { return hashOfPieces(result); };
  const auto work = [](auto make, auto run) {
    return Work{[=] { return C::prepared(make()); }, run};
  };
  if constexpr (CountsGraphemes<C>) registerGraphemes<C>(peer);
  if constexpr (Pads<C>) registerPad<C>(peer);
  if constexpr (Escapes<C>) {
    registerWork(peer + "/html_escape", largeTextSize,
                 work(markupText, [](const Text& text) { return C::escaped(text); }), ofText);
  }
  if constexpr (Unescapes<C>) {
    const auto make = [] {
      std::string escaped;
      for (const char byte : markupText()) {
        if (byte == '&')
          escaped += "&amp;";
        else if (byte == '<')
          escaped += "&lt;";
        else if (byte == '>')
          escaped += "&gt;";
        else if (byte == '"')
          escaped += "&quot;";
        else
          escaped += byte;
      }
      return escaped;
    };
    registerWork(peer + "/html_unescape", make().size(),
                 work(make, [](const Text& text) { return C::unescaped(text); }), ofText);
  }
  if constexpr (SplitsViews<C>) {
    registerWork(peer + "/split_views", largeTextSize,
                 work(fieldsText, [](const Text& text) { return C::splitViews(text); }), ofPieces);
  }
  if constexpr (SplitsOwned<C>) {
    registerWork(peer + "/split_owned", largeTextSize,
                 work(fieldsText, [](const Text& text) { return C::splitOwned(text); }), ofPieces);
  }
  if constexpr (Replaces<C>) {
    for (const char* with : {"rumba", "foxtrotter"}) {
      const Text of = C::prepared("foxtrot"), instead = C::prepared(with);
      registerWork(
          peer + (std::string_view(with) == "rumba" ? "/replace_shorter" : "/replace_longer"),
          largeTextSize,
          work(wordsText, [=](const Text& text) { return C::replaced(text, of, instead); }),
          ofText);
    }
  }
  return true;
}

}  // namespace bench
