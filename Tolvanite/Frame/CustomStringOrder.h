// Texts sorted by an order of the caller's own, such as that of sections or of file kinds. Texts
// that tie keep their order.
//
//   const std::vector<std::string> order{"title", "artist"};
//   tolvanite::sortWithCustomOrder(std::vector<std::string>{"x", "artist", "title"}, order);
//   // ["title", "artist", "x"]
#pragma once

#include <concepts>
#include <ranges>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The ranks of texts in a custom order; the lower rank stands first.
using CustomStringRanks = Dictionary<std::string, Int>;

/// The map from each text to its index in the list, to its last one if it stands there repeatedly.
TOLVANITE_EXPORT CustomStringRanks
sortWithCustomOrder_prepareCustomOrderDictionary(const std::vector<std::string>& order);

/// The texts sorted by their ranks; one without a rank has rank 9999.
TOLVANITE_EXPORT std::vector<std::string> sortWithCustomOrder(std::vector<std::string> strings,
                                                              const CustomStringRanks& ranks);

/// The texts sorted by their place in the list.
TOLVANITE_EXPORT std::vector<std::string> sortWithCustomOrder(
    std::vector<std::string> strings, const std::vector<std::string>& order);

/// The texts with a rank sorted by it, then the others alphabetically, by their bytes.
TOLVANITE_EXPORT std::vector<std::string> sortWithCustomOrderAndAlphabetical(
    std::vector<std::string> strings, const CustomStringRanks& ranks);

}  // namespace tolvanite
