#include <Tolvanite/Foundation/Pascription.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_set>
#include <utility>
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
    const auto found = std::ranges::find(bundles, identifier, &Bundle::identifier);
    return found == bundles.end() ? std::nullopt : std::optional(*found);
  }
  std::vector<std::string> bundleIdentifiers() const override {
    std::vector<std::string> result;
    result.reserve(bundles.size());
    for (const Bundle& bundle : bundles) result.push_back(bundle.identifier);
    return result;
  }
  std::optional<std::filesystem::path> groupContainer(std::string_view identifier) const override {
    return identifier == "none" ? std::nullopt
                                : std::optional("/groups/" + std::string(identifier));
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
  const std::vector<std::tuple<std::string, Base, std::string, std::string>> cases = {
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
  for (const auto& [token, base, printed, url] : cases) {
    SCOPED_TRACE(token);
    const Pascription read(token + "/x/y");
    EXPECT_EQ(read, Pascription(base, "x", "y"));
    EXPECT_EQ(textForm(read), "TvPathDescription(" + printed + " 2 components: x,y)");
    EXPECT_EQ(read.vendUrl().absoluteString(), url + "x/y");
    EXPECT_EQ(Pascription(base).vendUrl().absoluteString(), url);
    EXPECT_EQ(Pascription::tryParse(token + "/x/y"), read);
  }
  // These two have no text.
  EXPECT_EQ(Pascription(Base::bundle("org.example.UnitTests.two")).vendUrl().path(), "/tests two");
  EXPECT_EQ(textForm(Base::bundle("b")), "bundle(\"b\")");
  EXPECT_EQ(Pascription(Base::privateDocuments, "a").vendUrl().path(),
            "/code 5/PrivateDocuments/a");
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
  EXPECT_EQ(Pascription(Base::temp).append2("$HD$/x"), Pascription(Base::home, "x"));
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
  EXPECT_DEATH(static_cast<void>(Pascription("$HOME$/a").append2("b")),
               "Fatal error: Unkonw RootDirDescription: a: file .*Pascription.cpp, line");
  EXPECT_DEATH(static_cast<void>(Pascription::group("a/b")),
               "Fatal error: Unkonw RootDirDescription: \\$GROUP\\$a: file");
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
  places->bundles[1].identifier = "b.UnitTests";
  dies(Base::testBundle_Resources, "The test bundle \"b.UnitTests\" has no resources");
  places->hasDirectories = false;
  dies(Base::desktop, "The user has no standard directory of code 12");
}

TEST_F(PascriptionTest, makesTheDirectoryOnDemand) {
  const TemporaryFolder folder;
  places->temporary = folder.path();
  const Pascription below(Base::temp, "a", "b");
  EXPECT_FALSE(std::filesystem::exists(below.vendUrl().filesystemPath()));
  const FileManager manager;
  EXPECT_EQ(below.vendUrl(&manager, true).filesystemPath(), folder / "a/b");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));

  folder.write("file", "");
  const tolvanite::testing::CapturedOutput captured;
  const FileLocation location = Pascription(Base::temp, "file", "c").vendUrl(nullptr, true);
  EXPECT_THAT(captured.text(), ::testing::StartsWith("📛 IMPORTANT!! 📛 = Couldn't create dir " +
                                                     location.path() + ": "));
}

TEST_F(PascriptionTest, comparesAndHashes) {
  EXPECT_LT(Pascription(Base::home, "b"), Pascription(Base::desktop, "a"));
  const std::unordered_set<Pascription> set = {Pascription("$HD$/a"), Pascription("$HOME$/a"),
                                               Pascription(Base::appGroup("x")),
                                               Pascription(Base::bundle("x"))};
  EXPECT_EQ(set.size(), 3u);
}

// The process's environment as a fresh desktop session with the home in a folder of its own.
class XdgStandardPlacesTest : public ::testing::Test {
 protected:
  std::string at(std::string_view name) const { return (folder / name).native(); }
  std::string found(StandardDirectory code) const {
    return places.standardDirectory(code)->native();
  }
  std::vector<std::string> allFound() const {
    using enum StandardDirectory;
    return {found(applicationSupport), found(library), found(caches), found(desktop),
            found(documents)};
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
  EXPECT_THAT(allFound(), ElementsAre(at(".local/share"), at(".local/share"), at(".cache"),
                                      at("Desktop"), at("Documents")));
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
  EXPECT_THAT(allFound(),
              ElementsAre("/own data", "/own data", at(".cache"), at("Desktop"), at("Documents")));
  EXPECT_EQ(Pascription("$TEMP$/a").vendUrl().path(), "/own/tmp/a");
  const ScopedEnvironment emptyData("XDG_DATA_HOME", "");
  EXPECT_EQ(found(StandardDirectory::applicationSupport), at(".local/share"));
}

TEST_F(XdgStandardPlacesTest, readsTheUsersFolders) {
  using Pair = std::pair<std::string, std::string>;
  const auto read = [this](const std::string& lines) {
    folder.write(".config/user-dirs.dirs", lines);
    return Pair(found(StandardDirectory::desktop), found(StandardDirectory::documents));
  };
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
