// The string toolkit on one text: a table for each of its families, of the calls and what they
// give. The text is that of the command line, or a default one.
#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/Affixes.h>
#include <Tolvanite/Text/CharacterFiltering.h>
#include <Tolvanite/Text/Composing.h>
#include <Tolvanite/Text/Containment.h>
#include <Tolvanite/Text/Hexadecimal.h>
#include <Tolvanite/Text/HtmlEntities.h>
#include <Tolvanite/Text/Padding.h>
#include <Tolvanite/Text/PathTexts.h>
#include <Tolvanite/Text/ReadingTexts.h>
#include <Tolvanite/Text/Replacing.h>
#include <Tolvanite/Text/SearchTerms.h>
#include <Tolvanite/Text/SourceLiterals.h>
#include <Tolvanite/Text/Splitting.h>
#include <Tolvanite/Text/Substrings.h>
#include <Tolvanite/Text/TextTable.h>
#include <Tolvanite/Text/UnicodeNames.h>
#include <Tolvanite/Text/WebLinks.h>

using namespace tolvanite;

namespace {

// What a table can hold in one line: no line ends, and the beginning of what is long.
std::string shown(std::string_view text) {
  std::string line = stringByReplacingOccurrences(text, {{"\r", "␍"}, {"\n", "␊"}});
  constexpr Int widest = 72;
  if (characterCount(line) <= widest) return line;
  return std::string(characterPrefix(line, widest - 1)) + "…";
}

class Family {
 public:
  explicit Family(std::string name) : table_({"call", "result"}, std::move(name)) {}

  template <typename Result>
  Family& add(std::string_view call, const Result& result) {
    table_.addRow(call, shown(textForm(result)));
    return *this;
  }

  void print() const { std::cout << table_.render(true) << '\n'; }

 private:
  TextTable table_;
};

void showPieces(std::string_view text) {
  Family("pieces")
      .add("characterCount", characterCount(text))
      .add("first character", firstLetterString(text))
      .add("last three characters", characterSuffix(text, 3))
      .add("subscriptRange 1..<4", subscriptRange(text, {1, 4}).q())
      .add("tvSubstringToString \" \"", tvSubstringToString(text, " "))
      .add("tvStringAfter \" \"", tvStringAfter(text, " "))
      .print();
  Family("splits")
      .add("componentsByS", componentsByS(text))
      .add("componentsByCS", componentsByCS(text))
      .add("componentsDividedAt \":\"", componentsDividedAt(text, ":"))
      .add("componentsSeparatedByKeeping \".\"", componentsSeparatedByKeeping(text, "."))
      .add("numberOfLines", numberOfLines(text))
      .print();
}

void showForms(std::string_view text) {
  const Int width = characterCount(text) + 5;
  Family("affixes and padding")
      .add("ensuringSuffix \".\"", ensuringSuffix(text, "."))
      .add("droppingPrefix \"Ca\"", droppingPrefix(text, "Ca"))
      .add("capitalizingFirstLetter", capitalizingFirstLetter(text))
      .add("paddedLeft by 5", paddedLeft(text, width, "·"))
      .add("paddedBoth by 5", paddedBoth(text, width, "<>"))
      .add("overwritten 8", overwritten(8, text))
      .add("wrapInQuotes", wrapInQuotes(firstLetterString(text)))
      .add("withFormat \"%.3s|%04d\"", withFormat("%.3s|%04d", std::string(text), width))
      .print();
  Family("sets and names of files")
      .add("tvSanetizeFilename", tvSanetizeFilename(text))
      .add("strip blanks",
           tvStringByStrippingCharactersInSet(text, CharacterSet::whitespacesAndNewlines()))
      .add("keep base 32", tvStringByKeepingCharactersInSet(text, CharacterSet::base32()))
      .add("add -2 to the name", tvAppendSuffixAtEndOfNameAndBeforeExtension(text, "-2"))
      .add("extension to .md", tvStringByReplacingPathExtension(text, "md"))
      .print();
}

void showCodes(std::string_view text) {
  const std::string_view start = droppingFirstCharacters(characterPrefix(text, 6), 3);
  Family("codes of the fourth to sixth character")
      .add("utf8HexStringRepresentation", utf8HexStringRepresentation(start, {.separator = " "}))
      .add("utf16HexStringRepresentation", utf16HexStringRepresentation(start, {.separator = " "}))
      .add("scalarsHexRepresentation",
           scalarsHexRepresentation(start, {.uppercase = true, .prefix = "U+", .separator = " "}))
      .add("scalarsHtmlEntities", scalarsHtmlEntitiesRepresentation(start))
      .add("unicodeName", unicodeName(start))
      .print();
  Family("escapes")
      .add("tvEscapeHtml", tvEscapeHtml(text))
      .add("decodeHTML", decodeHTML(text))
      .add("stringPreparedForStringLiteral", stringPreparedForStringLiteral(text))
      .print();
}

void showReadings(std::string_view text) {
  const auto [terms, tagged] = extractSearchTerms(text);
  Family("readings")
      .add("terms", terms)
      .add("tagged terms", tagged)
      .add("web links", webLinks(text))
      .add("contains \"cafe\"", tvContains(text, "cafe"))
      .add("contains \"cafe\", loosely", tvContains(text, "cafe", true, true))
      .add("tvInt", tvInt(text).q())
      .add("isUuidString", isUuidString(text))
      .print();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::string text =
      argumentCount > 1 ? arguments[1]
                        : "Café 👩‍👩‍👧 <by:Zoë>, see www.a.org/b_(c) &eacute;\nEnd";
  std::cout << shown(text) << '\n';
  showPieces(text);
  showForms(text);
  showCodes(text);
  showReadings(text);
}
