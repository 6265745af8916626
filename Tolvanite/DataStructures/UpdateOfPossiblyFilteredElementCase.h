// What an update of a base element means to a filtered view of the base.
#pragma once

namespace tolvanite {

/// The outcomes of an update under a filter.
enum class UpdateOfPossiblyFilteredElementCase {
  updated,           ///< passes and was in the view
  inserted,          ///< passes and was not in the view
  removed,           ///< does not pass and was in the view
  stillNotIncluded,  ///< does not pass and was not in the view
};

/// The outcome for an element that now passes the filter or not, and that the view has or has not.
constexpr UpdateOfPossiblyFilteredElementCase updateOfPossiblyFilteredElementCase(
    bool passes, bool isIncluded) noexcept {
  using enum UpdateOfPossiblyFilteredElementCase;
  if (passes) return isIncluded ? updated : inserted;
  return isIncluded ? removed : stillNotIncluded;
}

}  // namespace tolvanite
