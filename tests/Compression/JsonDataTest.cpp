#include <Tolvanite/Compression/JsonData.h>

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Compression/Compression.h>

#include <tests/Support/ScopedEnvironment.h>
#include <tests/Support/TemporaryFolder.h>

namespace {

using namespace tolvanite;
using tolvanite::testing::ScopedEnvironment;
using tolvanite::testing::TemporaryFolder;

std::string packed(std::string_view text) {
  return std::string(compressed(ByteBuffer(text), Compression::lzfse)->text());
}

TEST(JsonData, TheFirstDocumentOfTheFirstFolderWins) {
  const TemporaryFolder root;
  root.write("a/both.json", "text");
  root.write("a/both.jzip", packed("packed"));
  root.write("a/doc.jzip", packed("from a"));
  root.write("b/doc.json", "from b");
  root.write("a/doc.v2.json", "version 2");
  root.write("b/only.json", "only in b");
  root.write("a/text.jzip", "{}");
  root.write("b/text.json", "never looked at");
  root.write("a/empty.jzip", "");
  root.write("b/empty.json", "never looked at");
  root.write("a/empty text.json", "");
  std::filesystem::create_directories(root / "a/folder.json");
  root.write("a/folder.jzip", packed("never looked at"));

  const std::vector<FileLocation> folders = {FileLocation::directory(root / "none"),
                                             FileLocation::directory(root / "a"),
                                             FileLocation::directory(root / "b")};
  const std::vector<std::pair<std::string, Optional<ByteBuffer>>> cases = {
      {"both", ByteBuffer("text")},
      {"doc", ByteBuffer("from a")},
      {"doc.v2", ByteBuffer("version 2")},
      {"only", ByteBuffer("only in b")},
      {"empty text", ByteBuffer()},
      {"text", {}},
      {"empty", {}},
      {"folder", {}},
      {"missing", {}}};
  for (const auto& [name, content] : cases) EXPECT_EQ(jsonData(name, folders), content) << name;
  EXPECT_EQ(jsonData("both", {}), Optional<ByteBuffer>());
}

TEST(JsonData, FoldersCanBeSymbolic) {
  const TemporaryFolder home;
  const ScopedEnvironment environment("HOME", home.path().native());
  home.write("one/doc.jzip", packed("packed"));
  home.write("two/doc.json", "text");
  EXPECT_EQ(jsonData("doc", {Pascription("$HOME$/none"), Pascription("$HOME$/one"),
                             Pascription("$HOME$/two")}),
            ByteBuffer("packed"));
  EXPECT_EQ(jsonData("doc", {Pascription("$HOME$/none")}), Optional<ByteBuffer>());
  EXPECT_FALSE(std::filesystem::exists(home / "none"));
}

}  // namespace
