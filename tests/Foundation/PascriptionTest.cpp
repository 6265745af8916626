#include <Tolvanite/Foundation/Pascription.h>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Frame/FileManager.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Platform/Linux/XdgStandardPlaces.h>
#include <Tolvanite/Platform/StandardPlaces.h>

#include <tests/Support/CapturedOutput.h>
#include <tests/Support/ScopedEnvironment.h>
#include <tests/Support/TemporaryFolder.h>

namespace {

using namespace tolvanite;
using Base = Pascription::Base;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tolvanite::testing::ScopedEnvironment;
using tolvanite::testing::TemporaryFolder;

// Answers that tell which look-up was asked.
struct ScriptedPlaces : StandardPlaces {
  std::filesystem::path home = "/Users/me/Library/Containers/x/Data";
  std::filesystem::path temporary = "/temporary";
  bool hasDirectories = true;
  std::optional<std::string> mainIdentifier = "org.example.main";
  std::optional<std::filesystem::path> mainResources = "/main resources";
  std::vector<Bundle> bundles = {{"org.example.plain", {}},
                                 {"org.example.UnitTests.one", "/tests one"},
                                 {"org.example.UnitTests.two", "/tests two"}};

  std::filesystem::path homeDirectory() const override { return home; }
  std::filesystem::path temporaryDirectory() const override { return temporary; }
  std::optional<std::filesystem::path> standardDirectory(StandardDirectory code) const override {
    if (!hasDirectories) return std::nullopt;
    return "/code " + std::to_string(static_cast<int>(code));
  }
  std::optional<std::string> mainBundleIdentifier() const override { return mainIdentifier; }
  std::optional<std::filesystem::path> mainBundleResources() const override {
    return mainResources;
  }
  std::optional<Bundle> bundle(std::string_view identifier) const override {
    for (const Bundle& bundle : bundles) {
      if (bundle.identifier == identifier) return bundle;
    }
    return std::nullopt;
  }
  std::vector<std::string> bundleIdentifiers() const override {
    std::vector<std::string> result;
    for (const Bundle& bundle : bundles) result.push_back(bundle.identifier);
    return result;
  }
  std::optional<std::filesystem::path> groupContainer(std::string_view identifier) const override {
    if (identifier == "none") return std::nullopt;
    return "/groups/" + std::string(identifier);
  }
};

class PascriptionTest : public ::testing::Test {
 protected:
  PascriptionTest() { setStandardPlaces(places); }
  ~PascriptionTest() override { setStandardPlaces(nullptr); }

  const std::shared_ptr<ScriptedPlaces> places = std::make_shared<ScriptedPlaces>();
};

using PascriptionDeathTest = PascriptionTest;

TEST_F(PascriptionTest, everyTokenNamesItsRoot) {
  struct Case {
    std::string token;
    Base base;
    std::string printed, url;
  };
  const std::vector<Case> cases = {
      {"$GROUP$abc$", Base::appGroup("abc"), "appGroup(\"abc\")", "file:///groups/abc/"},
      {"$GROUP$$", Base::appGroup(""), "appGroup(\"\")", "file:///groups/"},
      {"$GROUP$ä$b$", Base::appGroup("ä$b"), "appGroup(\"ä$b\")", "file:///groups/%C3%A4$b/"},
      {"$HD$", Base::home, "home", "file:///Users/me/Library/Containers/x/Data/"},
      {"$HOME$", Base::home, "home", "file:///Users/me/Library/Containers/x/Data/"},
      {"$DESKTOP$", Base::desktop, "desktop", "file:///code%2012/"},
      {"$DOCUMENTS$", Base::documents, "documents", "file:///code%209/"},
      {"$AS$", Base::applicationSupport, "applicationSupport", "file:///code%2014/"},
      {"$APPLICATION_SUPPORT$", Base::applicationSupport, "applicationSupport",
       "file:///code%2014/"},
      {"$ASMBI$", Base::applicationSupport_MainBundleIdentifier,
       "applicationSupport_MainBundleIdentifier", "file:///code%2014/org.example.main/"},
      {"$CACHES$", Base::caches, "caches", "file:///code%2013/"},
      {"$CACHESMBI$", Base::caches_MainBundleIdentifier, "caches_MainBundleIdentifier",
       "file:///code%2013/org.example.main/"},
      {"$xHD$", Base::systemCurrentUserHome, "systemCurrentUserHome", "file:///Users/me/"},
      {"$TEMP$", Base::temp, "temp", "file:///temporary/"},
      {"$TBRD$", Base::testBundle_Resources, "testBundle_Resources", "file:///tests%20one/"},
      {"$MBRD$", Base::mainBundle_Resources, "mainBundle_Resources", "file:///main%20resources/"},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.token);
    const Pascription read(expected.token + "/x/y");
    EXPECT_EQ(read, Pascription(expected.base, "x", "y"));
    EXPECT_EQ(textForm(read), "TvPathDescription(" + expected.printed + " 2 components: x,y)");
    EXPECT_EQ(read.vendUrl().absoluteString(), expected.url + "x/y");
    EXPECT_EQ(Pascription(expected.base).vendUrl().absoluteString(), expected.url);
    EXPECT_EQ(Pascription::tryParse(expected.token + "/x/y"), read);
  }
  // These two have no text.
  EXPECT_EQ(Pascription(Base::bundle("org.example.UnitTests.two")).vendUrl().path(), "/tests two");
  EXPECT_EQ(textForm(Base::bundle("b")), "bundle(\"b\")");
  EXPECT_EQ(Pascription(Base::privateDocuments, "a").vendUrl().path(),
            "/code 5/PrivateDocuments/a");
  EXPECT_EQ(Pascription::group("abc"), Pascription("$GROUP$abc$"));
}

TEST_F(PascriptionTest, splitsTextsButNotComponents) {
  EXPECT_THAT(Pascription("//$AS$//a/", "", "b//c").components, ElementsAre("a", "b", "c"));
  EXPECT_THAT(Pascription("", "/", "$AS$").components, IsEmpty());
  EXPECT_THAT(Pascription(std::vector<std::string_view>{"$HD$/a", "b"}).components,
              ElementsAre("a", "b"));

  Pascription built(Base::home, "a", "", "b/c", "$HD$");
  EXPECT_THAT(built.components, ElementsAre("a", "b/c", "$HD$"));
  EXPECT_EQ(built, Pascription(Base::home, {"", "a", "b/c", "$HD$"}));
  built.components = {"", "a", ""};
  EXPECT_EQ(textForm(built), "TvPathDescription(home 3 components: ,a,)");
  EXPECT_EQ(built.vendUrl(), FileLocation::directory(places->home / "a"));
}

TEST_F(PascriptionTest, appendingReadsTheFirstComponentAsRoot) {
  const Pascription nested(Base::temp, "$AS$", "a");
  const Pascription expected(Base::applicationSupport, "a", "b", "c");
  EXPECT_EQ(nested.pascriptionByAppending("/b//c"), expected);
  EXPECT_EQ(nested.append2("b", "c"), expected);
  EXPECT_EQ(nested.append2(std::vector<std::string>{"b/c"}), expected);
  EXPECT_EQ(nested.pascriptionByAppending(), Pascription(Base::applicationSupport, "a"));
  EXPECT_EQ(Pascription(Base::temp).append2("$HD$/x"), Pascription(Base::home, "x"));
}

TEST_F(PascriptionDeathTest, appendingToAnUnknownRoot) {
  EXPECT_DEATH(static_cast<void>(Pascription("$HOME$/a").append2("b")),
               "Fatal error: Unkonw RootDirDescription: a: file .*Pascription.cpp, line");
  EXPECT_DEATH(static_cast<void>(Pascription::group("a/b")),
               "Fatal error: Unkonw RootDirDescription: \\$GROUP\\$a: file");
}

TEST_F(PascriptionDeathTest, textsWithoutRoot) {
  const std::map<std::string, std::string> messages = {
      {"~/a", "Unkonw RootDirDescription: ~"},
      {"$group$", "Unkonw RootDirDescription: \\$group\\$"},
      {"/$hd$", "Unkonw RootDirDescription: \\$hd\\$"},
      {"$HD$x", "Unkonw RootDirDescription: \\$HD\\$x"},
      {"$GROUP$a", "Unkonw RootDirDescription: \\$GROUP\\$a"},
      // The mark makes another character of the sign before it.
      {"$GROUP$\u0301a$", "Unkonw RootDirDescription: \\$GROUP\\$\u0301a\\$"},
      {"$GROUP$/a", "Inverted range: characters 7 to 6 of \"\\$GROUP\\$\""},
      {"//", "A path description without a first element"},
      {"", "A path description without a first element"},
  };
  for (const auto& [text, message] : messages) {
    EXPECT_DEATH(Pascription{text}, "Fatal error: " + message + ": file .*Pascription.cpp, line");
    EXPECT_EQ(Pascription::tryParse(text), std::nullopt) << text;
  }
  EXPECT_DEATH(static_cast<void>(Base{Base::Case::bundle}),
               "Fatal error: Pascription::Base needs an identifier: ");
}

TEST_F(PascriptionDeathTest, rootsThatCannotBeFound) {
  const auto dies = [](const Base& base, const std::string& message) {
    EXPECT_DEATH(Pascription(base).vendUrl(),
                 "Fatal error: " + message + ": file .*Pascription.cpp, line");
  };
  places->mainIdentifier = std::nullopt;
  places->mainResources = std::nullopt;
  places->home = "/root";
  dies(Base::appGroup("none"),
       "Can't get containerURLForSecurityApplicationGroupIdentifier\\(\"none\"\\)");
  dies(Base::bundle("none"), "There is no bundle \"none\"");
  dies(Base::bundle("org.example.plain"),
       "NSBundle\\(identifier: \"org.example.plain\"\\)!.resourceURL is nil\\)");
  dies(Base::applicationSupport_MainBundleIdentifier, "The main bundle has no identifier");
  dies(Base::caches_MainBundleIdentifier, "The main bundle has no identifier");
  dies(Base::mainBundle_Resources, "The main bundle has no resources");
  dies(Base::systemCurrentUserHome, "The home \"/root\" has fewer than 3 pieces");
  places->bundles = {{"a", {}}, {"b.unittests", {}}};
  dies(Base::testBundle_Resources, "Cannot find testBundle! \\[\"a\", \"b.unittests\"\\]");
  places->hasDirectories = false;
  dies(Base::desktop, "The user has no standard directory of code 12");
}

TEST_F(PascriptionTest, makesTheDirectoryOnDemand) {
  const TemporaryFolder folder;
  places->temporary = folder.path();
  const Pascription below(Base::temp, "a", "b");
  EXPECT_EQ(below.vendUrl().filesystemPath(), folder / "a/b");
  EXPECT_FALSE(std::filesystem::exists(folder / "a"));
  const FileManager manager;
  EXPECT_EQ(below.vendUrl(&manager, true).filesystemPath(), folder / "a/b");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));

  folder.write("file", "");
  const tolvanite::testing::CapturedOutput captured;
  const FileLocation location = Pascription(Base::temp, "file", "c").vendUrl(nullptr, true);
  EXPECT_EQ(location.filesystemPath(), folder / "file/c");
  EXPECT_THAT(captured.text(), ::testing::StartsWith("📛 IMPORTANT!! 📛 = Couldn't create dir " +
                                                     location.path() + ": "));
}

TEST_F(PascriptionTest, comparesAndHashes) {
  EXPECT_LT(Pascription(Base::home, "b"), Pascription(Base::desktop, "a"));
  EXPECT_LT(Pascription(Base::home, "a"), Pascription(Base::home, "a", "b"));
  EXPECT_NE(Pascription(Base::bundle("a")), Pascription(Base::appGroup("a")));
  const std::unordered_set<Pascription> set = {Pascription("$HD$/a"), Pascription("$HOME$/a"),
                                               Pascription(Base::appGroup("x")),
                                               Pascription(Base::appGroup("y"))};
  EXPECT_EQ(set.size(), 3u);
}

// The process's environment as a fresh desktop session with the home in a folder of its own.
class XdgStandardPlacesTest : public ::testing::Test {
 protected:
  std::string at(std::string_view name) const { return (folder / name).native(); }
  std::string found(StandardDirectory code) const {
    return places.standardDirectory(code)->native();
  }

  const TemporaryFolder folder;
  const ScopedEnvironment home{"HOME", folder.path().native()};
  const ScopedEnvironment data{"XDG_DATA_HOME", std::nullopt};
  const ScopedEnvironment cache{"XDG_CACHE_HOME", std::nullopt};
  const ScopedEnvironment config{"XDG_CONFIG_HOME", std::nullopt};
  const ScopedEnvironment temporary{"TMPDIR", std::nullopt};
  XdgStandardPlaces places;
};

TEST_F(XdgStandardPlacesTest, usualFolders) {
  EXPECT_EQ(places.homeDirectory(), folder.path());
  EXPECT_EQ(places.temporaryDirectory(), "/tmp");
  EXPECT_EQ(found(StandardDirectory::applicationSupport), at(".local/share"));
  EXPECT_EQ(found(StandardDirectory::library), at(".local/share"));
  EXPECT_EQ(found(StandardDirectory::caches), at(".cache"));
  EXPECT_EQ(found(StandardDirectory::desktop), at("Desktop"));
  EXPECT_EQ(found(StandardDirectory::documents), at("Documents"));
  EXPECT_EQ(places.groupContainer("g.x"), at(".local/share/group-containers/g.x"));
  for (const auto* name : {"", ".", "..", "a/b", "/"}) {
    EXPECT_EQ(places.groupContainer(name), std::nullopt) << name;
  }
  const ScopedEnvironment noHome("HOME", std::nullopt);
  EXPECT_TRUE(places.homeDirectory().is_absolute());
}

TEST_F(XdgStandardPlacesTest, variablesThatAreAbsolutePathsCount) {
  const ScopedEnvironment ownData("XDG_DATA_HOME", "/own data");
  const ScopedEnvironment ownCache("XDG_CACHE_HOME", "own/cache");
  const ScopedEnvironment ownTemporary("TMPDIR", "/own/tmp/");
  EXPECT_EQ(found(StandardDirectory::applicationSupport), "/own data");
  EXPECT_EQ(found(StandardDirectory::library), "/own data");
  EXPECT_EQ(found(StandardDirectory::caches), at(".cache"));
  EXPECT_EQ(Pascription("$TEMP$/a").vendUrl().path(), "/own/tmp/a");
  EXPECT_EQ(Pascription("$AS$/a").vendUrl().path(), "/own data/a");
  const ScopedEnvironment emptyData("XDG_DATA_HOME", "");
  EXPECT_EQ(found(StandardDirectory::applicationSupport), at(".local/share"));
}

TEST_F(XdgStandardPlacesTest, readsTheUsersFolders) {
  const auto read = [this](const std::string& lines) {
    folder.write(".config/user-dirs.dirs", lines);
    return std::pair(found(StandardDirectory::desktop), found(StandardDirectory::documents));
  };
  using Pair = std::pair<std::string, std::string>;
  const Pair usual(at("Desktop"), at("Documents"));
  EXPECT_EQ(read("# \nXDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n \tXDG_DOCUMENTS_DIR = \"/d o c\"\n"),
            Pair(at("Schreibtisch"), "/d o c"));
  EXPECT_EQ(read("XDG_DESKTOP_DIR=\"/first\"\nXDG_DESKTOP_DIR=\"/a\\\"\\\\b\" # last"),
            Pair("/a\"\\b", usual.second));
  EXPECT_EQ(read("XDG_DESKTOP_DIR=\"$HOME\"\nXDG_DOCUMENTS_DIR=\"$HOME/\""),
            Pair(folder.path().native(), folder.path().native() + "/"));
  EXPECT_EQ(read("XDG_DESKTOP_DIR=\"relative\"\nXDG_DOCUMENTS_DIR=\"$HOMER/x\""), usual);
  EXPECT_EQ(read("XDG_DESKTOP_DIR=/unquoted\n#XDG_DOCUMENTS_DIR=\"/x\"\nXDG_DOCUMENTS_DIR"), usual);

  folder.write("own config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"/own\"\n");
  const ScopedEnvironment ownConfig("XDG_CONFIG_HOME", at("own config"));
  EXPECT_EQ(found(StandardDirectory::desktop), "/own");
}

TEST_F(XdgStandardPlacesTest, findsAndTakesBundles) {
  const std::string executable = std::filesystem::read_symlink("/proc/self/exe").filename();
  EXPECT_EQ(places.mainBundleIdentifier(), executable);
  EXPECT_THAT(places.bundleIdentifiers(), ElementsAre(executable));

  places.setMainBundle("main", "/m");
  places.addBundle("b");
  places.addBundle("c", "/c");
  places.addBundle("b", "/b");
  EXPECT_THAT(places.bundleIdentifiers(), ElementsAre("main", "b", "c"));
  EXPECT_EQ(places.mainBundleResources(), "/m");
  EXPECT_EQ(places.bundle("b"), (StandardPlaces::Bundle{"b", "/b"}));
  EXPECT_EQ(places.bundle("main"), (StandardPlaces::Bundle{"main", "/m"}));
  EXPECT_EQ(places.bundle("d"), std::nullopt);
}

TEST_F(XdgStandardPlacesTest, findsTheBundleByTheExecutable) {
  const XdgStandardPlaces installed(folder / "usr/bin/app");
  EXPECT_EQ(installed.mainBundleIdentifier(), "app");
  EXPECT_EQ(installed.mainBundleResources(), std::nullopt);
  folder.write("usr/share/app/data", "");
  EXPECT_EQ(installed.mainBundleResources(), folder / "usr/share/app");
  folder.write("usr/bin/Resources/data", "");
  EXPECT_EQ(installed.mainBundleResources(), folder / "usr/bin/Resources");
  folder.write("usr/bin/app.bundle", "org.example.app\nmore");
  EXPECT_EQ(installed.mainBundleIdentifier(), "org.example.app");
  folder.write("usr/bin/app.bundle", "\n");
  EXPECT_EQ(installed.mainBundleIdentifier(), "app");
}

TEST(StandardPlacesTest, theHostNamesItsBundlesOnce) {
  setMainBundle("org.example.host", "/host");
  addBundle("org.example.UnitTests", "/tests");
  EXPECT_EQ(Pascription("$MBRD$/a").vendUrl().path(), "/host/a");
  EXPECT_EQ(Pascription("$TBRD$/a").vendUrl().path(), "/tests/a");
  setStandardPlaces(std::make_shared<ScriptedPlaces>());
  EXPECT_EQ(Pascription("$MBRD$/a").vendUrl().path(), "/main resources/a");
  setStandardPlaces(nullptr);
  EXPECT_EQ(Pascription("$MBRD$/a").vendUrl().path(), "/host/a");
}

}  // namespace
