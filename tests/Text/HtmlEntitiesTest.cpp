#include <Tolvanite/Text/HtmlEntities.h>

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace tolvanite;
using namespace std::string_literals;

TEST(HtmlEntitiesTest, escapes) {
  EXPECT_EQ(tvEscapeHtml("a<b & 'c'"), "a&lt;b &amp; &#39;c&#39;");
  EXPECT_EQ(tvEscapeHtml("&amp;\">\xff"), "&amp;amp;&quot;&gt;\xff");
  // At every place of the blocks that are looked at and of the buffer that is written.
  for (std::size_t size = 0; size < 2200; size += size < 70 ? 1 : 97) {
    const std::string letters(size, 'x');
    EXPECT_EQ(tvEscapeHtml(letters + '<' + letters), letters + "&lt;" + letters);
    EXPECT_EQ(decodeHTML(letters + "&lt;" + letters), letters + '<' + letters);
    EXPECT_EQ(decodeHTML('&' + letters + ';'), '&' + letters + ';');
  }
}

TEST(HtmlEntitiesTest, decodes) {
  for (const auto& [text, decoded] : std::vector<std::pair<std::string, std::string>>{
           {"&lt;&#65;&#x42;&gt;", "<AB>"},
           {"&nosuch; x", "&nosuch; x"},
           {"a & b; c &lt;", "a & b; c <"},
           {"&lt;&amp &gt", "<&amp &gt"},
           {"&&lt;&lt;", "&&lt;<"},
           {"&#1114112;&#1114111;", "&#1114112;\U0010ffff"},
           {"&#xD800;&#XdFfF;&#xe000;", "&#xD800;&#XdFfF;\ue000"},
           {"&#+65;&#-65;&#x+41;&# 65;", "&#+65;&#-65;&#x+41;&# 65;"},
           {"&#;&#x;&;&#4294967361;", "&#;&#x;&;&#4294967361;"},
           {"&#0;&#00000000065;", "\0A"s},
           {"&\0lt;&\0;"s, "&\0lt;&\0;"s},
           {"&amp;lt;&apos;", "&lt;'"},
           {"&Agrave;&agrave;&AGRAVE;", "Àà&AGRAVE;"},
           {"&thetasym;&diams;&quot", "ϑ♦&quot"},
           {"\xff&\xff;&lt;\xc3", "\xff&\xff;<\xc3"}}) {
    EXPECT_EQ(decodeHTML(text), decoded) << text;
  }
}

TEST(HtmlEntitiesTest, everyEntityDecodesToItsCharacter) {
  const auto& entities = characterEntities();
  EXPECT_EQ(entities.size(), 253U);
  EXPECT_EQ(entities.at("&nbsp;"), U'\u00a0');
  for (const auto& [text, character] : entities) {
    EXPECT_EQ(scalarsHtmlEntitiesRepresentation(decodeHTML(text)),
              "&#" + std::to_string(static_cast<unsigned>(character)) + ";");
  }
  EXPECT_EQ(scalarsHtmlEntitiesRepresentation("a👩\xff", ", "), "&#97;, &#128105;, &#65533;");
}

TEST(HtmlEntitiesTest, longTextsOfAmpersandsAreDecodedAtOnce) {
  // Quadratic work would take minutes.
  const std::string many(3'000'000, '&');
  EXPECT_EQ(decodeHTML(many), many);
  EXPECT_EQ(decodeHTML(many + ";&lt;"), many + ";<");
}

}  // namespace
