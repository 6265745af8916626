// Writes Tolvanite/Frame/detail/GraphemeTable.cpp from the Unicode data of the ICU that it is
// linked with:
//
//   g++ -std=c++20 -I. tools/writeGraphemeTable.cpp -licuuc -o /tmp/writeGraphemeTable &&
//     /tmp/writeGraphemeTable > Tolvanite/Frame/detail/GraphemeTable.cpp
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <vector>

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <Tolvanite/Frame/detail/GraphemeBreaks.h>

namespace {

using namespace tolvanite::detail;
using Block = std::vector<std::uint8_t>;

// Whether ICU's rules make conjuncts in the script of the code point.
bool isOfConjunctScript(UChar32 codePoint) {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(codePoint, &status)) {
    case USCRIPT_BENGALI:
    case USCRIPT_DEVANAGARI:
    case USCRIPT_GUJARATI:
    case USCRIPT_MALAYALAM:
    case USCRIPT_ORIYA:
    case USCRIPT_TELUGU:
      return true;
    default:
      return false;
  }
}

GraphemeClass graphemeClassByIcu(std::uint32_t value) {
  using enum GraphemeClass;
  const auto codePoint = static_cast<UChar32>(value);
  const bool mayJoin = isOfConjunctScript(codePoint);
  const int syllabic = u_getIntPropertyValue(codePoint, UCHAR_INDIC_SYLLABIC_CATEGORY);
  switch (u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_CR:
      return carriageReturn;
    case U_GCB_LF:
      return lineFeed;
    case U_GCB_CONTROL:
      return control;
    case U_GCB_EXTEND:
      if (u_getCombiningClass(codePoint) == 0) return extend;
      return mayJoin && syllabic == U_INSC_VIRAMA ? linker : linkingExtend;
    case U_GCB_ZWJ:
      return joiner;
    case U_GCB_SPACING_MARK:
      return spacingMark;
    case U_GCB_PREPEND:
      return prepend;
    case U_GCB_REGIONAL_INDICATOR:
      return regionalIndicator;
    case U_GCB_L:
      return hangulL;
    case U_GCB_V:
      return hangulV;
    case U_GCB_T:
      return hangulT;
    case U_GCB_LV:
      return hangulLV;
    case U_GCB_LVT:
      return hangulLVT;
    default:
      break;
  }
  if (u_hasBinaryProperty(codePoint, UCHAR_EXTENDED_PICTOGRAPHIC)) return pictograph;
  return mayJoin && syllabic == U_INSC_CONSONANT ? consonant : other;
}

void print(const char* name, const std::vector<std::uint8_t>& values) {
  std::printf("const std::uint8_t %s[] = {", name);
  for (std::size_t i = 0; i < values.size(); ++i) {
    std::printf("%s%u,", i % 32 == 0 ? "\n  " : "", values[i]);
  }
  std::printf("\n};\n");
}

}  // namespace

int main() {
  std::vector<Block> blocks;
  std::vector<std::uint8_t> indexes;
  Block block;
  for (std::uint32_t codePoint = 0; codePoint < 0x110000; ++codePoint) {
    const auto value = static_cast<std::uint8_t>(graphemeClassByIcu(codePoint));
    if (codePoint >= graphemePlanesEnd &&
        (codePoint < graphemeTagsStart || codePoint >= graphemeTagsEnd)) {
      if (value == 0) continue;
      std::fprintf(stderr, "U+%04X needs a place in the table\n", codePoint);
      return EXIT_FAILURE;
    }
    block.push_back(value);
    if (block.size() < (1U << graphemeBlockBits)) continue;
    const auto place = std::find(blocks.begin(), blocks.end(), block);
    indexes.push_back(static_cast<std::uint8_t>(place - blocks.begin()));
    if (place == blocks.end()) blocks.push_back(block);
    block.clear();
  }
  if (blocks.size() > 256) return EXIT_FAILURE;
  std::vector<std::uint8_t> all;
  for (const Block& one : blocks) all.insert(all.end(), one.begin(), one.end());

  std::printf("// Unicode %s. Written by tools/writeGraphemeTable.cpp, which tells how.\n",
              U_UNICODE_VERSION);
  std::printf("#include <Tolvanite/Frame/detail/GraphemeBreaks.h>\n\n");
  std::printf("namespace tolvanite::detail {\n\n// clang-format off\n");
  print("graphemeBlockIndexes", indexes);
  std::printf("\n");
  print("graphemeBlocks", all);
  std::printf("// clang-format on\n\n}  // namespace tolvanite::detail\n");
}
