#include <Tolvanite/Color/NamedColor.h>

#include <span>
#include <string_view>

namespace tolvanite {

namespace {

struct Entry {
  std::string_view name;
  Color color;
};

// In the order of the alphabet, in which they are handed out.
constexpr Entry niceColors[] = {
    {"almond", Color::almond},
    {"antiqueWhite", Color::antiqueWhite},
    {"babyBlue", Color::babyBlue},
    {"banana", Color::banana},
    {"beige", Color::beige},
    {"black25Percent", Color::black25Percent},
    {"black50Percent", Color::black50Percent},
    {"black75Percent", Color::black75Percent},
    {"blueberry", Color::blueberry},
    {"brickRed", Color::brickRed},
    {"burntOrange", Color::burntOrange},
    {"burntSienna", Color::burntSienna},
    {"buttermilk", Color::buttermilk},
    {"cactusGreen", Color::cactusGreen},
    {"cantaloupe", Color::cantaloupe},
    {"cardTable", Color::cardTable},
    {"carrot", Color::carrot},
    {"charcoal", Color::charcoal},
    {"chartreuse", Color::chartreuse},
    {"chiliPowder", Color::chiliPowder},
    {"chocolate", Color::chocolate},
    {"cinnamon", Color::cinnamon},
    {"coffee", Color::coffee},
    {"coolGray", Color::coolGray},
    {"coolPurple", Color::coolPurple},
    {"coral", Color::coral},
    {"cornflower", Color::cornflower},
    {"cream", Color::cream},
    {"crimson", Color::crimson},
    {"danger", Color::danger},
    {"denim", Color::denim},
    {"dust", Color::dust},
    {"easterPink", Color::easterPink},
    {"eggplant", Color::eggplant},
    {"eggshell", Color::eggshell},
    {"emerald", Color::emerald},
    {"fadedBlue", Color::fadedBlue},
    {"fuschia", Color::fuschia},
    {"ghostWhite", Color::ghostWhite},
    {"gold", Color::gold},
    {"goldenrod", Color::goldenrod},
    {"grape", Color::grape},
    {"grapefruit", Color::grapefruit},
    {"grass", Color::grass},
    {"hollyGreen", Color::hollyGreen},
    {"honeydew", Color::honeydew},
    {"iceberg", Color::iceberg},
    {"indianRed", Color::indianRed},
    {"indigo", Color::indigo},
    {"infoBlue", Color::infoBlue},
    {"ivory", Color::ivory},
    {"lavender", Color::lavender},
    {"lightCream", Color::lightCream},
    {"lime", Color::lime},
    {"linen", Color::linen},
    {"mandarin", Color::mandarin},
    {"maroon", Color::maroon},
    {"midnightBlue", Color::midnightBlue},
    {"moneyGreen", Color::moneyGreen},
    {"mud", Color::mud},
    {"mustard", Color::mustard},
    {"oldLace", Color::oldLace},
    {"olive", Color::olive},
    {"oliveDrab", Color::oliveDrab},
    {"orchid", Color::orchid},
    {"paleGreen", Color::paleGreen},
    {"palePurple", Color::palePurple},
    {"paleRose", Color::paleRose},
    {"pastelBlue", Color::pastelBlue},
    {"pastelGreen", Color::pastelGreen},
    {"pastelOrange", Color::pastelOrange},
    {"pastelPurple", Color::pastelPurple},
    {"peach", Color::peach},
    {"periwinkle", Color::periwinkle},
    {"pink", Color::pink},
    {"pinkLipstick", Color::pinkLipstick},
    {"plum", Color::plum},
    {"raspberry", Color::raspberry},
    {"robinEgg", Color::robinEgg},
    {"salmon", Color::salmon},
    {"sand", Color::sand},
    {"seafoam", Color::seafoam},
    {"seashell", Color::seashell},
    {"sienna", Color::sienna},
    {"skyBlue", Color::skyBlue},
    {"snow", Color::snow},
    {"steelBlue", Color::steelBlue},
    {"strawberry", Color::strawberry},
    {"success", Color::success},
    {"teal", Color::teal},
    {"tomato", Color::tomato},
    {"turquoise", Color::turquoise},
    {"violet", Color::violet},
    {"warmGray", Color::warmGray},
    {"warning", Color::warning},
    {"watermelon", Color::watermelon},
    {"wave", Color::wave},
    {"wheat", Color::wheat},
    {"yellowGreen", Color::yellowGreen},
};

constexpr Entry furtherColors[] = {
    {"black", Color::black},
    {"white", Color::white},
    {"iOS7red", Color::iOS7red},
    {"iOS7orange", Color::iOS7orange},
    {"iOS7yellow", Color::iOS7yellow},
    {"iOS7green", Color::iOS7green},
    {"iOS7lightBlue", Color::iOS7lightBlue},
    {"iOS7darkBlue", Color::iOS7darkBlue},
    {"iOS7purple", Color::iOS7purple},
    {"iOS7pink", Color::iOS7pink},
    {"iOS7darkGray", Color::iOS7darkGray},
    {"iOS7lightGray", Color::iOS7lightGray},
    {"iOS7redGradientStart", Color::iOS7redGradientStart},
    {"iOS7redGradientEnd", Color::iOS7redGradientEnd},
    {"iOS7orangeGradientStart", Color::iOS7orangeGradientStart},
    {"iOS7yellowGradientStart", Color::iOS7yellowGradientStart},
    {"iOS7yellowGradientEnd", Color::iOS7yellowGradientEnd},
    {"iOS7greenGradientStart", Color::iOS7greenGradientStart},
    {"iOS7greenGradientEnd", Color::iOS7greenGradientEnd},
    {"iOS7tealGradientStart", Color::iOS7tealGradientStart},
    {"iOS7tealGradientEnd", Color::iOS7tealGradientEnd},
    {"iOS7blueGradientStart", Color::iOS7blueGradientStart},
    {"iOS7blueGradientEnd", Color::iOS7blueGradientEnd},
    {"iOS7violetGradientStart", Color::iOS7violetGradientStart},
    {"iOS7violetGradientEnd", Color::iOS7violetGradientEnd},
    {"iOS7magentaGradientStart", Color::iOS7magentaGradientStart},
    {"iOS7magentaGradientEnd", Color::iOS7magentaGradientEnd},
    {"iOS7blackGradientStart", Color::iOS7blackGradientStart},
    {"iOS7blackGradientEnd", Color::iOS7blackGradientEnd},
    {"iOS7silverGradientStart", Color::iOS7silverGradientStart},
    {"iOS7silverGradientEnd", Color::iOS7silverGradientEnd},
};

constexpr std::string_view suffix = "Color";

void append(std::vector<NamedColor>& list, std::span<const Entry> entries,
            std::string_view ending) {
  for (const Entry& entry : entries) {
    list.push_back({std::string(entry.name).append(ending), entry.color});
  }
}

}  // namespace

const std::vector<NamedColor>& TolvaniteNiceColors() {
  static const std::vector<NamedColor> list = [] {
    std::vector<NamedColor> result;
    append(result, niceColors, suffix);
    return result;
  }();
  return list;
}

const std::vector<NamedColor>& allNamedColors() {
  static const std::vector<NamedColor> list = [] {
    std::vector<NamedColor> result;
    append(result, niceColors, "");
    append(result, furtherColors, "");
    return result;
  }();
  return list;
}

Optional<Color> Color::named(std::string_view name) {
  if (name.ends_with(suffix)) name.remove_suffix(suffix.size());
  for (const std::span<const Entry> entries :
       {std::span<const Entry>(niceColors), std::span<const Entry>(furtherColors)}) {
    for (const Entry& entry : entries) {
      if (entry.name == name) return entry.color;
    }
  }
  return {};
}

}  // namespace tolvanite
