// What a subscriber to an `OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet` sets up: one
// optional block per event.
#pragma once

#include <string>
#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

template <HashableEquatableKeyedElement T>
class OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet;

/// The events of the view, which is the first argument of every block. A block that is not set is
/// not called. The elements of the batch events stand parallel to their indexes.
template <HashableEquatableKeyedElement T>
class OptionallyFilteredAlwaysSortedArray_BasedOnObservableSetObserver final
    : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;
  /// The first argument of the blocks.
  using View = OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>;

  /// There is another order, with this code: read the content anew.
  EventBlock<void(View&, const std::string& code)> sortingChanged;
  /// There is another filter: read the content anew.
  EventBlock<void(View&)> filterChanged;
  /// The whole content was replaced.
  EventBlock<void(View&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(View&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(View&, Int index, const T& element)> inserted;
  /// The indexes are to be applied one after the other: each is that of the moment of its
  /// insertion.
  EventBlock<void(View&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      insertedMultiple;
  /// An element is gone.
  EventBlock<void(View&, Int index, const T& element)> removed;
  /// The indexes are those before the removal, ascending: apply them from the last to the first.
  EventBlock<void(View&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      removedMultiple;
  /// The index is the one that the element has now; behind `moved` it is told again.
  EventBlock<void(View&, Int index, const T& newElement)> updated;
  /// An element now stands at `to`.
  EventBlock<void(View&, Int from, Int to, const T& newElement)> moved;
};

}  // namespace tolvanite
