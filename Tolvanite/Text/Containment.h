// Whether a text contains another, as a search field asks it.
//
//   tvContains("Café Zoë", "zoe", true, true)      true
//   tvContains("Straße", "STRASSE", true)          true
#pragma once

#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Whether `substring` occurs in `text`, without regard to how composed letters are encoded. With
/// `ignoreCase` the two are compared by Unicode's full case folding; with `ignoreDiacritic` accents
/// and vowel points count for nothing, on either side. Every text contains the empty one.
TOLVANITE_EXPORT bool tvContains(std::string_view text, std::string_view substring,
                                 bool ignoreCase = false, bool ignoreDiacritic = false);

}  // namespace tolvanite
