#include <Tolvanite/Color/Color.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Color/NamedColor.h>
#include <Tolvanite/Frame/TextForm.h>

namespace {

using namespace tolvanite;
using ::testing::AllOf;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Field;

auto isHsba(double degrees, double s, double b, double a = 1) {
  const auto near = [](double value) { return DoubleNear(value, 1e-9); };
  return ::testing::ResultOf(
      [](const Color& color) { return color.hsba(); },
      AllOf(Field("h", &Color::Hsba::h, near(degrees / 360)), Field("s", &Color::Hsba::s, near(s)),
            Field("b", &Color::Hsba::b, near(b)), Field("a", &Color::Hsba::a, near(a))));
}

void expectNear(const Color& color, double r, double g, double b, double tolerance) {
  EXPECT_THAT(
      (std::vector{color.red(), color.green(), color.blue()}),
      ElementsAre(DoubleNear(r, tolerance), DoubleNear(g, tolerance), DoubleNear(b, tolerance)));
}

TEST(ColorTest, readsHexTexts) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"#FF0000", "#ff0000"}, {"ff0000", "#ff0000"},     {"##FF00#00", "#ff0000"},
      {"", "#000000"},        {"#", "#000000"},          {"red", "#000000"},
      {"F00", "#000f00"},     {"0x2f70E1", "#2f70e1"},   {" \n2f70e1", "#2f70e1"},
      {"12xyz", "#000012"},   {"80123456", "#123456"},   {"1234567890abcdef01", "#cdef01"},
      {"-123456", "#000000"}, {"#0X2F70E1.5", "#2f70e1"}};
  for (const auto& [text, hex] : cases) {
    EXPECT_EQ(textForm(Color::fromHex(text)), hex) << text;
  }
}

TEST(ColorTest, constructorsAgree) {
  EXPECT_EQ(Color::fromRgb(0x2F70E1), Color::infoBlue);
  EXPECT_EQ(Color::fromBytes(0x2F, 0x70, 0xE1, 51), Color::fromRgb(0x2F70E1, 0.2));
  EXPECT_EQ(Color::fromCmyk({0, 0.5, 1, 0.5}), Color::fromRgba({0.5, 0.25, 0}));
  // The corners of the circle of hues, with its end.
  const std::vector<std::uint32_t> corners = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                              0x0000FF, 0xFF00FF, 0xFF0000};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    EXPECT_EQ(Color::fromHsba({static_cast<double>(i) / 6, 1, 1}), Color::fromRgb(corners[i]));
  }
  // Bounds of the model: nothing leaves 0 to 1.
  EXPECT_EQ(Color::fromHsba({-1, 2, 7, 9}), Color::fromRgb(0xFF0000));
  EXPECT_EQ(Color::fromHsba({0.5, 0.5, std::nan("")}), Color::black);
  EXPECT_EQ(Color::fromRgba({3, -1, 0}).hsba(), Color::fromRgb(0xFF0000).hsba());

  // Published values of the sRGB primaries and of a colour beyond them.
  expectNear(Color::fromCIE_LAB({53.24, 80.09, 67.20}), 1, 0, 0, 2e-3);
  expectNear(Color::fromCIE_LAB({87.73, -86.18, 83.18}), 0, 1, 0, 2e-3);
  expectNear(Color::fromCIE_LAB({32.30, 79.19, -107.86}), 0, 0, 1, 2e-3);
  expectNear(Color::fromCIE_LAB({100, 0, 0}), 1, 1, 1, 1e-3);
  expectNear(Color::fromCIE_LAB({5, 0, 0, 0.5}), 0.0663, 0.0664, 0.0663, 5e-4);
  EXPECT_LT(Color::fromCIE_LAB({50, -128, 0}).red(), 0);
}

TEST(ColorTest, texts) {
  EXPECT_EQ(Color::infoBlue.hexString(), "#2f70e1");
  EXPECT_EQ(Color::black50Percent.hexString(), "#808080");
  EXPECT_EQ(Color::fromRgba({-0.5, 1.5, std::nan("")}).hexString(), "#00ff00");
  std::ostringstream out;
  out << Color::fromRgb(0xABCDEF, 0.5) << ' ' << TolvaniteNiceColors()[0] << ' '
      << ColorScheme::analagous << ' ' << ColorDistance::cie2000 << ' '
      << static_cast<ColorComparison>(4);
  EXPECT_EQ(out.str(), "#abcdef alpha 0.5 almondColor #c48e48 analagous cie2000 4");
}

TEST(ColorTest, variants) {
  const Color brown = Color::fromHsba({0.1, 0.5, 0.4, 0.3});
  EXPECT_EQ(Color::dust.lightenedColor(0), Color::dust);
  EXPECT_EQ(Color::fromRgba({2, -1, 0}).darkenedColor(0).red(), 2) << "not even brought into range";
  EXPECT_THAT(brown.lightenedColor(0.5), isHsba(36, 0.5, 0.6, 0.3));
  EXPECT_THAT(brown.lightenedColor(9), isHsba(36, 0.5, 1, 0.3));
  EXPECT_THAT(brown.darkenedColor(0.25), isHsba(36, 0.5, 0.3, 0.3));
  EXPECT_EQ(brown.darkenedColor(2), Color::fromRgb(0, 0.3));

  EXPECT_EQ(Color::black.complementaryColor(), Color::white);
  EXPECT_EQ(Color::white.complementaryColor(), Color::black);
  EXPECT_EQ(Color::fromRgb(0, 0.5).complementaryColor(), Color::fromRgb(0, 0.5));
  EXPECT_THAT(Color::fromHsba({0.75, 0.5, 0.4}).complementaryColor(), isHsba(90, 0.5, 0.4));
  EXPECT_EQ(Color::fromRgb(0xFF0000, 0.5).mixedRGBA(Color::fromRgb(0x0000FF), 0.25),
            Color::fromRgba({0.75, 0, 0.25, 0.625}));
}

TEST(ColorTest, contrast) {
  const std::vector<std::pair<Color, Color>> cases = {
      {Color::black, Color::white},
      {Color::white, Color::black},
      {Color::fromRgb(0, 0.5), Color::white},
      {Color::fromRgba({0.5, 0.5, 0.5}), Color::white},
      {Color::fromRgba({0.51, 0.51, 0.51}), Color::black},
      {Color::fromRgb(0x00FF00), Color::black},
      {Color::fromRgb(0xFF0000), Color::white},
      {Color::fromRgb(0x0000FF), Color::white},
  };
  for (const auto& [color, text] : cases) {
    EXPECT_EQ(color.blackOrWhiteContrastingColor(), text) << color;
  }
}

TEST(ColorTest, schemes) {
  const Color color = Color::fromHsba({10.0 / 360, 0.6, 0.9, 0.5});
  EXPECT_THAT(color.colorScheme(ColorScheme::analagous),
              ElementsAre(isHsba(40, 0.55, 0.8, 0.5), isHsba(25, 0.55, 0.85, 0.5),
                          isHsba(5, 0.55, 0.85, 0.5), isHsba(20, 0.55, 0.8, 0.5)));
  EXPECT_THAT(color.colorScheme(ColorScheme::monochromatic),
              ElementsAre(isHsba(10, 0.3, 0.3, 0.5), isHsba(10, 0.6, 0.45, 0.5),
                          isHsba(10, 0.2, 0.6, 0.5), isHsba(10, 0.6, 0.72, 0.5)));
  EXPECT_THAT(color.colorScheme(ColorScheme::triad),
              ElementsAre(isHsba(130, 0.4, 0.85, 0.5), isHsba(130, 0.6, 0.9, 0.5),
                          isHsba(250, 0.6, 0.9, 0.5), isHsba(250, 0.4, 0.85, 0.5)));
  const Color blue = Color::fromHsba({240.0 / 360, 0.7, 1});
  EXPECT_THAT(blue.colorScheme(ColorScheme::complementary),
              ElementsAre(isHsba(240, 0.7, 0.8), isHsba(240, 0.5, 1), isHsba(60, 0.7, 1),
                          isHsba(60, 0.5, 1)));
  // Black has nothing to take away.
  for (const Color& fitting : Color::black.colorScheme(ColorScheme::analagous)) {
    EXPECT_EQ(fitting, Color::black);
  }
  EXPECT_DEATH(blue.colorScheme(static_cast<ColorScheme>(4)),
               "Fatal error: No color scheme: 4: file .*Color.cpp");
}

RC_GTEST_PROP(ColorTest, hsbaIsTheInverseOfFromHsba, (std::uint32_t bits)) {
  const Color color = Color::fromRgb(bits & 0xFFFFFFU, 0.5);
  const Color back = Color::fromHsba(color.hsba());
  RC_ASSERT(back.hexString() == color.hexString());
  RC_ASSERT(std::abs(back.red() - color.red()) + std::abs(back.green() - color.green()) +
                std::abs(back.blue() - color.blue()) <
            1e-12);
  RC_ASSERT(Color::fromHex(color.hexString()).mixedRGBA(color, 1) == color);
}

TEST(NamedColorTest, lists) {
  const auto& nice = TolvaniteNiceColors();
  EXPECT_EQ(nice.size(), 99U);
  EXPECT_TRUE(std::ranges::is_sorted(nice, {}, &NamedColor::name));
  EXPECT_EQ(nice[1], (NamedColor{"antiqueWhiteColor", Color::fromRgb(0xFAEBD7)}));
  EXPECT_EQ(nice.back(), (NamedColor{"yellowGreenColor", Color::fromRgb(0xC0F227)}));
  EXPECT_EQ(allNamedColors().size(), 99U + 2 + 29);
  for (const auto& [name, color] : allNamedColors()) EXPECT_EQ(Color::named(name), color) << name;
  for (const auto& [name, color] : nice) EXPECT_EQ(Color::named(name), color) << name;
  for (const auto* name : {"", "Color", "Almond", "almondColorColor", "almon"}) {
    EXPECT_FALSE(Color::named(name).has_value()) << name;
  }
  // Each constant is its own, but for two that are meant to be the same.
  Set<Color> colors;
  Set<NamedColor> entries;
  for (const NamedColor& named : allNamedColors()) {
    colors.insert(named.color);
    entries.insert(named);
  }
  EXPECT_EQ(entries.size(), allNamedColors().size());
  EXPECT_EQ(colors.size(), entries.size() - 1);
  static_assert(Color::black25Percent.green() == 0.25 && Color::iOS7darkBlue.blue() == 0.96);
}

}  // namespace
