#include <Tolvanite/Frame/CustomStringOrder.h>

#include <algorithm>

namespace tolvanite {

namespace {

constexpr Int rankOfUnranked = 9999;

}  // namespace

CustomStringRanks sortWithCustomOrder_prepareCustomOrderDictionary(
    const std::vector<std::string>& order) {
  CustomStringRanks ranks;
  Int index = 0;
  for (const std::string& string : order) ranks.insert_or_assign(string, index++);
  return ranks;
}

std::vector<std::string> sortWithCustomOrder(std::vector<std::string> strings,
                                             const CustomStringRanks& ranks) {
  std::ranges::stable_sort(strings, {}, [&](const std::string& string) {
    const auto found = ranks.find(string);
    return found == ranks.end() ? rankOfUnranked : found->second;
  });
  return strings;
}

std::vector<std::string> sortWithCustomOrder(std::vector<std::string> strings,
                                             const std::vector<std::string>& order) {
  return sortWithCustomOrder(std::move(strings),
                             sortWithCustomOrder_prepareCustomOrderDictionary(order));
}

std::vector<std::string> sortWithCustomOrderAndAlphabetical(std::vector<std::string> strings,
                                                            const CustomStringRanks& ranks) {
  const auto firstUnranked = std::ranges::stable_partition(
      strings, [&](const std::string& string) { return ranks.contains(string); });
  std::ranges::stable_sort(strings.begin(), firstUnranked.begin(), {},
                           [&](const std::string& string) { return ranks.at(string); });
  std::ranges::sort(firstUnranked);
  return strings;
}

}  // namespace tolvanite
