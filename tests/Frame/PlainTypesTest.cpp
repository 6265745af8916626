#include <array>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/FileLocation.h>
#include <Tolvanite/Frame/TextEncoding.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

#include <tests/Support/TemporaryFolder.h>

namespace {

using namespace tolvanite;
using namespace std::string_literals;

TEST(FileLocationTest, namesPaths) {
  // The path, the absolute string, the last piece, its extension, and the path without either.
  const std::vector<std::array<std::string, 6>> cases = {
      {"/", "file:///", "/", "", "/", "/"},
      {"//a//b.txt", "file:///a/b.txt", "b.txt", "txt", "/a", "/a/b"},
      {"/a/b/", "file:///a/b/", "b", "", "/a", "/a/b"},
      {"/a.d/b", "file:///a.d/b", "b", "", "/a.d", "/a.d/b"},
      {"/a.b.c", "file:///a.b.c", "a.b.c", "c", "/", "/a.b"},
      {"/.profile", "file:///.profile", ".profile", "", "/", "/.profile"},
      {"/.a.b", "file:///.a.b", ".a.b", "b", "/", "/.a"},
      {"/a.", "file:///a.", "a.", "", "/", "/a."},
      {"/a/..", "file:///a/..", "..", "", "/a", "/a/.."},
      {"/ü b%?#;~", "file:///%C3%BC%20b%25%3F%23;~", "ü b%?#;~", "", "/", "/ü b%?#;~"},
  };
  for (const auto& [path, absolute, last, extension, withoutLast, withoutExtension] : cases) {
    SCOPED_TRACE(path);
    const FileLocation location(path);
    EXPECT_EQ(textForm(location), absolute);
    EXPECT_EQ(FileLocation::fromAbsoluteString(location.absoluteString()), location);
    EXPECT_EQ(location.lastPathComponent(), last);
    EXPECT_EQ(location.pathExtension(), extension);
    EXPECT_EQ(location.deletingLastPathComponent(), FileLocation::directory(withoutLast));
    EXPECT_EQ(location.deletingPathExtension().path(), withoutExtension);
  }
  EXPECT_EQ(FileLocation("a/b").filesystemPath(), std::filesystem::current_path() / "a/b");
  EXPECT_EQ(FileLocation::directory("").filesystemPath(), std::filesystem::current_path());
}

TEST(FileLocationTest, appends) {
  const auto home = FileLocation::directory("/home/me");
  const FileLocation root("/");
  EXPECT_EQ(home.appendingPathComponent("a b").absoluteString(), "file:///home/me/a%20b");
  EXPECT_EQ(home.appendingPathComponent("a", true).absoluteString(), "file:///home/me/a/");
  EXPECT_EQ(home.appendingPathComponent("/a//b/").absoluteString(), "file:///home/me/a/b/");
  EXPECT_EQ(FileLocation("/a").appendingPathComponent(""), FileLocation::directory("/a"));
  EXPECT_EQ(root.appendingPathComponent("a").path(), "/a");
  EXPECT_EQ(home.appendingPathExtension("d").absoluteString(), "file:///home/me.d/");
  EXPECT_EQ(root.appendingPathExtension("d"), root);
  EXPECT_EQ(home.appendingPathExtension(""), home);
}

TEST(FileLocationTest, readsAbsoluteStrings) {
  EXPECT_EQ(FileLocation::fromAbsoluteString("file://localhost/a%2fb%C3%BC/"),
            FileLocation::directory("/a/bü"));
  for (const auto* text : {"", "/a", "file:/a", "http://a/b", "file://host/a", "file://localhosta/",
                           "file:///a%", "file:///a%2", "file:///a%2g"}) {
    EXPECT_FALSE(FileLocation::fromAbsoluteString(text).has_value()) << text;
  }
}

TEST(FileLocationTest, looksAtTheDiskOnlyWhenAsked) {
  const tolvanite::testing::TemporaryFolder folder;
  const auto directory = FileLocation(folder.path());
  const auto file = FileLocation(folder.write("file", "content"));
  const auto nothing = directory.appendingPathComponent("nothing", true);
  EXPECT_FALSE(directory.isDirectory());
  const auto onDisk = [](const FileLocation& location) {
    return std::vector{location.fileExists(), location.fileExistsAndIsDirectory(),
                       location.fileExistsAndIsNotDirectory()};
  };
  EXPECT_EQ(onDisk(directory), (std::vector{true, true, false}));
  EXPECT_EQ(onDisk(file), (std::vector{true, false, true}));
  EXPECT_EQ(onDisk(nothing), std::vector(3, false));
  EXPECT_EQ(onDisk(file.appendingPathComponent("below")), std::vector(3, false));
}

TEST(ByteBufferTest, growsAndShrinks) {
  ByteBuffer buffer("head");
  buffer.append(std::byte{0});
  buffer.append(ByteBuffer{0xff, 0x0a});
  EXPECT_EQ(buffer.text(), "head\0\xff\n"s);
  EXPECT_EQ(textForm(buffer), "7 bytes");
  for (int i = 0; i < 10; ++i) buffer.append(buffer);
  EXPECT_EQ(buffer.text().substr((7 << 10) - 7), "head\0\xff\n"s);
  buffer.append(buffer.text().substr(0, 2));
  buffer.removeFirst(7 << 10);
  EXPECT_EQ(buffer, ByteBuffer("he"));
  buffer.resize(3);
  EXPECT_EQ(buffer, (ByteBuffer{'h', 'e', 0}));
  EXPECT_LT(ByteBuffer("he"), buffer);
  EXPECT_LT(ByteBuffer("z"), ByteBuffer("\x80"));
  EXPECT_EQ(Set<ByteBuffer>({buffer, buffer, ByteBuffer()}).size(), 2u);
  buffer.removeAll();
  buffer.append(buffer);
  EXPECT_TRUE(buffer.isEmpty());
}

TEST(ByteBufferTest, wrongPlacesAreFatal) {
  ByteBuffer buffer("ab");
  EXPECT_DEATH(buffer[2], "Fatal error: Index 2 out of range, 2 elements: file");
  EXPECT_DEATH(buffer[-1], "Fatal error: Index -1 out of range, 2 elements: file");
  EXPECT_DEATH(buffer.removeFirst(3), "Fatal error: Index 3 out of range, 2 elements: file");
  EXPECT_DEATH(buffer.resize(-1), "Fatal error: Negative number of bytes: -1: file");
}

TEST(AbsoluteTimeTest, convertsAndCalculates) {
  using namespace std::chrono;
  const system_clock::time_point noon = sys_days(2024y / February / 29) + 12h + 250ms;
  const AbsoluteTime time(noon);
  EXPECT_EQ(time.secondsSinceEpoch(), 1709208000.25);
  EXPECT_EQ(time.timePoint(), noon);
  EXPECT_EQ((time - 5min) + minutes(5) + 0.5 - time, 0.5);
  EXPECT_LT(time - 1, time);
  EXPECT_FALSE(AbsoluteTime(std::nan("")) == AbsoluteTime(std::nan("")));
  EXPECT_NEAR(AbsoluteTime::now() - AbsoluteTime(system_clock::now()), 0, 60);
  EXPECT_EQ(AbsoluteTime(noon - hours(24 * 365 * 100)).timePoint(), noon - hours(24 * 365 * 100));
  EXPECT_LT(AbsoluteTime(system_clock::time_point::min()) - AbsoluteTime(), -9e9);
  EXPECT_EQ(AbsoluteTime(1e300).timePoint(), system_clock::time_point::max());
  EXPECT_EQ(AbsoluteTime(-1e300).timePoint(), system_clock::time_point::min());
  EXPECT_EQ(AbsoluteTime(std::nan("")).timePoint(), system_clock::time_point());
}

TEST(AbsoluteTimeTest, describesItself) {
  const auto text = [](double seconds) { return textForm(AbsoluteTime(seconds)); };
  EXPECT_EQ(text(-0.25), "1969-12-31 23:59:59 +0000");
  EXPECT_EQ(text(1709208000.75), "2024-02-29 12:00:00 +0000");
  EXPECT_EQ(text(-62135596800), "0001-01-01 00:00:00 +0000");
  EXPECT_EQ(text(253402300799), "9999-12-31 23:59:59 +0000");
  EXPECT_EQ(text(253402300800), "253402300800 s");
  EXPECT_EQ(text(std::numeric_limits<double>::infinity()), "inf s");
}

TEST(TextEncodingTest, convertsStrictly) {
  using E = TextEncoding;
  // Both directions: the encoding, the text, the bytes.
  const std::vector<std::tuple<E, std::string, std::string>> cases = {
      {E(), "é中", "é中"},
      {E::utf8, "\ufeffa", "\ufeffa"},
      {E::ascii, "a\0b"s, "a\0b"s},
      {E::isoLatin1, "é\u0081", "\xe9\x81"},
      {E::windowsCP1252, "€é", "\x80\xe9"},
      {E::macRoman, "éÅ", "\x8e\x81"},
      {E::utf16LittleEndian, "a😀", "a\0\x3d\xd8\x00\xde"s},
      {E::utf16BigEndian, "a\ufeff", "\0a\xfe\xff"s},
      {E::utf32LittleEndian, "😀", "\x00\xf6\x01\x00"s},
      {E::utf32BigEndian, "😀", "\x00\x01\xf6\x00"s},
      {E::utf16, "aé", "\xff\xfe\x61\x00\xe9\x00"s},
      {E::utf32, "a", "\xff\xfe\x00\x00\x61\x00\x00\x00"s},
      {E::utf16, "", ""},
  };
  for (const auto& [encoding, text, bytes] : cases) {
    SCOPED_TRACE(textForm(encoding) + " " + text);
    EXPECT_EQ(encoding.encode(text), ByteBuffer(bytes));
    EXPECT_EQ(encoding.decode(bytes), text);
  }
  EXPECT_EQ(E::utf16.decode("\xfe\xff\x00\x61"s), "a");
  EXPECT_EQ(E::utf16.decode("\x00\x61"s), "a");

  for (const auto& encoding : {E::ascii, E::isoLatin1, E::windowsCP1252, E::macRoman}) {
    EXPECT_EQ(encoding.encode("a中"), std::nullopt) << encoding;
  }
  for (const auto& encoding : {E::utf8, E::ascii, E::utf16, E::utf32BigEndian}) {
    EXPECT_EQ(encoding.encode("a\xff"), std::nullopt) << encoding;
    EXPECT_EQ(encoding.encode("a\xed\xa0\x80"), std::nullopt) << encoding;
  }
  EXPECT_EQ(E::utf8.decode("a\xff"), std::nullopt);
  EXPECT_EQ(E::ascii.decode("\x80"), std::nullopt);
  EXPECT_EQ(E::utf16LittleEndian.decode("abc"), std::nullopt);
  EXPECT_EQ(E::utf16LittleEndian.decode("\x00\xd8\x61\x00"s), std::nullopt);
  EXPECT_EQ(E::utf32BigEndian.decode("\x00\x11\x00\x00"s), std::nullopt);
}

RC_GTEST_PROP(TextEncodingTest, longTextsComeBack, ()) {
  // Longer than the blocks of the conversion, whose seams fall anywhere.
  std::string text(*rc::gen::inRange<std::size_t>(0, 9), 'x');
  const auto pieces = *rc::gen::container<std::vector<std::string>>(
      300, rc::gen::element("a"s, "é中"s, "😀😀😀😀😀😀😀😀"s, std::string(50, 'b')));
  for (const auto& piece : pieces) text += piece;
  for (const auto& encoding : {TextEncoding::utf16, TextEncoding::utf16BigEndian,
                               TextEncoding::utf32, TextEncoding::utf32LittleEndian}) {
    RC_ASSERT(encoding.decode(*encoding.encode(text)) == text);
  }
}

}  // namespace
