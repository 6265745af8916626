#include <Tolvanite/Text/WebLinks.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace tolvanite;

TEST(WebLinksTest, asAReaderSeesThem) {
  struct Case {
    std::string text;
    std::vector<std::string> links;
  };
  for (const Case& c : std::vector<Case>{
           {"See http://a.org/b. Or https://c.org/d?e=f&g=h#i, and so on!",
            {"http://a.org/b", "https://c.org/d?e=f&g=h#i"}},
           {"(see http://a.org/b_(c)) and [x](https://d.org/e), \"http://f.org/\"",
            {"http://a.org/b_(c)", "https://d.org/e", "http://f.org/"}},
           {"http://a.org/it's 'http://b.org/'", {"http://a.org/it's", "http://b.org/"}},
           {"HTTP://A.ORG http://localhost:8080/x http://[::1]/y http://u:p@a.org:80.",
            {"HTTP://A.ORG", "http://localhost:8080/x", "http://[::1]/y", "http://u:p@a.org:80"}},
           {"www.example.net/a, example.org; München.de! example.com/x…",
            {"http://www.example.net/a", "http://example.org", "http://München.de",
             "http://example.com/x"}},
           {"notes.md and notes.md/wiki, Node.js, e.g. this, 3.14, main.cc, end.So",
            {"http://notes.md/wiki"}},
           {"me@example.org, example.org@x, a/example.org, ftp://example.org, .example.org", {}},
           {"http:// http://. http://-a-.org xhttp://a.org/ www.", {}},
           {"看http://例え.cn和https://zh.example.org/wiki/中文。 http://हिन्दी.भारत/ "
            "http://go例.cn",
            {"http://例え.cn", "https://zh.example.org/wiki/中文", "http://हिन्दी.भारत/",
             "http://go"}},
           {"corriere.it, t.me/x. We left.No пример.рф! v.at(3)",
            {"http://corriere.it", "http://t.me/x", "http://пример.рф"}},
           {"http://a.org/x,https://b.org/y;http://c.org/z—and http://d.org/https://e.org/,",
            {"http://a.org/x", "https://b.org/y", "http://c.org/z", "http://d.org/https://e.org/"}},
           {"\u2066https://a.org/x\u2069 https://b.org/می\u200cخواهم\u200b",
            {"https://a.org/x", "https://b.org/می\u200cخواهم"}},
           {"http://a.org/\xff http://b.org\xc3<http://c.org>",
            {"http://a.org/", "http://b.org", "http://c.org"}},
           {"", {}}}) {
    std::vector<std::string> found;
    for (const WebLink& link : webLinks(c.text)) found.push_back(link.location);
    EXPECT_EQ(found, c.links) << c.text;
  }
}

TEST(WebLinksTest, tellsWhereTheyStand) {
  const auto links = webLinks("é www.a.org/é.");
  ASSERT_EQ(links.size(), 1U);
  EXPECT_EQ(links[0], (WebLink{{3, 15}, "http://www.a.org/é"}));
}

TEST(WebLinksTest, hardTextsAreReadAtOnce) {
  // Quadratic work would take minutes.
  for (const std::string piece :
       {"http://a:", "http://a/(", "http://[a", "a.", "www.", "://", "-."}) {
    std::string text;
    while (text.size() < 1'000'000) text += piece;
    EXPECT_LE(webLinks(text).size(), text.size());
  }
}

}  // namespace
