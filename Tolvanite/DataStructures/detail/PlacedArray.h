// An array that notes in the boxes of its elements where it saw them last, and so finds them again
// without scanning: that of a sorted collection, and that of a view, which shares its boxes with
// the base.
//
// A view's array is in step while it holds at most one element of each key, those are in the base,
// and the places noted in their boxes are true. Changes that come out of turn, as when an observer
// before the view changes the base again, and repeated keys end that; a rebuild brings it back. Out
// of step all questions are answered as well, by scanning.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/detail/SortedElements.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

template <typename T>
class PlacedArray {
 public:
  using Store = ElementStore<T>;

  const Store& elements() const noexcept { return elements_; }
  /// Whether the elements stand in the order of the sort block, as far as that is an order.
  bool isInOrder() const noexcept { return isInOrder_; }
  bool isInStep() const noexcept { return isInStep_; }
  void loseStep() noexcept { isInStep_ = false; }
  void loseOrder() noexcept { isInOrder_ = false; }

  /// Takes over elements that were made from the base as it stands.
  void rebuild(Store elements, bool isInStep, bool isInOrder) {
    elements_ = std::move(elements);
    isInStep_ = isInStep;
    isInOrder_ = isInOrder;
    for (Int i = 0; i < elements_.count(); ++i) notePlace(elements_.boxAt(i), i);
  }
  /// Sorts by another block.
  void sort(const OrderBlock<T>& isOrderedBefore) {
    isInOrder_ = false;  // The block may throw.
    sortStably(elements_, isOrderedBefore);
    rebuild(std::move(elements_), isInStep_, true);
  }
  /// Notes that a base element is not here.
  void noteAbsence(const Box<T>* box) const noexcept { box->setPlaceInView(number_, -1); }

  void insert(Int place, const Handle<T>& element) {
    elements_.insert(place, element);
    notePlace(element.get(), place);
  }
  /// Inserts without regard to the order.
  void insertOutOfOrder(Int place, const Handle<T>& element) {
    insert(place, element);
    isInOrder_ = false;
  }
  /// Inserts before all that it ties with; gives the place.
  Int insertInOrder(const Handle<T>& element, const OrderBlock<T>& isOrderedBefore) {
    const Int place = insertionIndexForSortedBy(elements_, isOrderedBefore, *element);
    insert(place, element);
    return place;
  }
  /// Inserts one element after the other, each as above; gives the place of each at the moment of
  /// its insertion. One pass.
  std::vector<Int> insertInOrder(const Store& batch, const OrderBlock<T>& isOrderedBefore,
                                 bool isBatchSorted = false) {
    if (isInOrder_ && isOrderTrue(isOrderedBefore)) {
      OrderedInsertion<T> insertion(elements_, batch, isOrderedBefore, isBatchSorted);
      for (Int i = 0; i < batch.count(); ++i) {
        notePlace(insertion.arranged.boxAt(i), insertion.places[static_cast<std::size_t>(i)]);
      }
      return std::move(insertion.indexes);
    }
    std::vector<Int> indexes;
    indexes.reserve(batch.size());
    for (Int i = 0; i < batch.count(); ++i) {
      indexes.push_back(insertInOrder(batch.handleAt(i), isOrderedBefore));
    }
    return indexes;
  }
  /// Puts an element in the place of its older self, which is at `place`, and moves it to where it
  /// belongs; gives that place, or absent when the element may stay. Where a stable sort is wanted,
  /// an array that does not stand in order is sorted as a whole.
  Optional<Int> updateInOrder(Int place, const Handle<T>& element,
                              const OrderBlock<T>& isOrderedBefore, AmongTies amongTies) {
    Optional<Int> to;
    if (!isInOrder_ && amongTies == AmongTies::asStableSort) {
      Store sorted = elements_;  // The block may throw.
      sorted.replace(place, element);
      sortStably(sorted, isOrderedBefore);
      rebuild(std::move(sorted), isInStep_, true);
      to = placeOf(element.get(), isOrderedBefore);
      return to == place ? Optional<Int>() : to;
    }
    if (!canElementStayAtIndex(elements_, *element, place, isOrderedBefore)) {
      to = ArrayWithoutOne<T>(elements_, place).landing(isOrderedBefore, *element, amongTies);
    }
    elements_.replace(place, element);
    if (to) elements_.move(place, *to);
    notePlace(element.get(), to.value_or(place));
    return to;
  }
  void removeAt(Int place) { elements_.removeAt(place); }
  void removeAll() { rebuild({}, isInStep_, true); }
  /// Removes at these places and gives the elements, highest place first.
  Store removeAtIndexes(std::vector<Int> places) {
    std::ranges::sort(places);
    return elements_.removeAtAscending(places);
  }

  /// The index of this very box, or -1: near where it was noted, else near where its rank says,
  /// else anywhere, since the content of an element held by pointer may have changed under the
  /// order.
  Int placeOf(const Box<T>* box, const OrderBlock<T>& isOrderedBefore) const {
    constexpr Int near = 256;
    Int guess = box->viewer() == number_ ? box->placeInView() : 0;
    if (elements_.isAt(guess, box)) return guess;
    Int place = elements_.findNear(box, guess, near);
    if (place < 0) {
      if (isInOrder_) guess = insertionIndexForSortedBy(elements_, isOrderedBefore, box->value);
      place = elements_.findNear(box, guess);
    }
    if (place >= 0) notePlace(box, place);
    return place;
  }

  /// The index of the first element that equals `element`, or -1, by scanning.
  Int findFirst(const T& element) const { return findEqual(element, 0); }
  /// The index of the first element that equals `element`, or -1. `inBase` is the base's box for
  /// its key, `old` the box that a sorted array holds of it while it is in step.
  Int find(const T& element, const Box<T>* inBase, const Box<T>* old,
           const OrderBlock<T>* isOrderedBefore) const {
    if (!isInStep_) return findEqual(element, 0);
    const bool isNotedHere = inBase->viewer() == number_;
    if (inBase->viewer() == 0 || (isNotedHere && inBase->placeInView() < 0)) return -1;
    // An unsorted array keeps the old content of updated elements: another box of the same key.
    if (!isOrderedBefore) return findEqual(element, isNotedHere ? inBase->placeInView() : 0);
    const Int place = placeOf(old, *isOrderedBefore);
    if (place < 0 || ElementTraits<T>::equal(elements_.boxAt(place)->value, element)) return place;
    return findEqual(element, 0);
  }

 private:
  void notePlace(const Box<T>* box, Int place) const noexcept {
    box->setPlaceInView(number_, place);
  }

  // Elements held by pointer may have changed where they are, under the order.
  bool isOrderTrue(const OrderBlock<T>& isOrderedBefore) const {
    if constexpr (!PointsToElement<T>) return true;
    return std::ranges::is_sorted(elements_, isOrderedBefore);
  }

  // In step there is at most one, so it may be sought from `guess` outward; from 0 it is the first.
  Int findEqual(const T& element, Int guess) const {
    const auto isAt = [&](Int i) {
      return ElementTraits<T>::equal(elements_.boxAt(i)->value, element);
    };
    const Int count = elements_.count();
    Int above = std::clamp<Int>(guess, 0, count);
    Int below = above;
    while (above < count || below > 0) {
      if (above < count && isAt(above)) return above;
      if (below > 0 && isAt(below - 1)) return below - 1;
      if (above < count) ++above;
      if (below > 0) --below;
    }
    return -1;
  }

  Store elements_;
  bool isInStep_ = false;
  bool isInOrder_ = true;
  std::uint32_t number_ = nextViewer();
};

}  // namespace tolvanite::detail
