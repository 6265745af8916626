// What a subscriber to a filtered and sorted view of a `Kerray` sets up: one optional block per
// event.
//
//   view->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int index, const Track& track) { ... };
//   });
#pragma once

#include <string>
#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

template <EquatableKeyedElement T>
class OptionallyFilteredOptionallySortedArray_BasedOnKerray;

/// The events of the view, which is the first argument of every block. A block that is not set is
/// not called. After `sortingChanged`, `filterChanged` and `replacedContent` everything may differ:
/// reload.
template <EquatableKeyedElement T>
class OptionallyFilteredOptionallySortedArray_BasedOnKerrayObserver final
    : public WeaklyOwnedObject {
  /// The first argument of the blocks.
  using View = OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>;

 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;

  /// The code of the new sort block, or absent.
  EventBlock<void(View&, const Optional<std::string>& code)> sortingChanged;
  /// There is another filter: read the content anew.
  EventBlock<void(View&)> filterChanged;
  /// The whole content was replaced.
  EventBlock<void(View&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(View&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(View&, Int index, const T& element)> inserted;
  /// Several new elements, from `index` on.
  EventBlock<void(View&, Int index, const ElementArray<T>& elements)> insertedMultipleContinuous;
  /// The elements stand parallel to their indexes. In a sorted view, and in one that reads its
  /// base, the indexes are to be applied one after the other; in a view that is filtered and not
  /// sorted they are final places, in any order.
  EventBlock<void(View&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      insertedMultipleDistributed;
  /// An element is gone.
  EventBlock<void(View&, Int index, const T& element)> removed;
  /// All indexes are those that the elements had before any of them was removed.
  EventBlock<void(View&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      removedMultiple;
  /// An element has new content.
  EventBlock<void(View&, Int index, const T& element)> updated;
  /// An update that changes an element's place gives `moved` first and then `updated`.
  EventBlock<void(View&, Int from, Int to, const T& element)> moved;
  /// Several elements moved.
  EventBlock<void(View&, const std::vector<Int>& fromIndexes, Int to,
                  const ElementArray<T>& elements)>
      movedMultiple;
};

}  // namespace tolvanite
