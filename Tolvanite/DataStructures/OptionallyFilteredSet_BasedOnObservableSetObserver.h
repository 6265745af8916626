// What a subscriber to an `OptionallyFilteredSet_BasedOnObservableSet` sets up: one optional block
// per event.
#pragma once

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>

namespace tolvanite {

template <HashableElement T>
class OptionallyFilteredSet_BasedOnObservableSet;

/// The events of the view, which is the first argument of every block. A block that is not set is
/// not called.
template <HashableElement T>
class OptionallyFilteredSet_BasedOnObservableSetObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;
  using View = OptionallyFilteredSet_BasedOnObservableSet<T>;

  EventBlock<void(View&)> filterChanged;
  EventBlock<void(View&)> replacedContent;
  EventBlock<void(View&)> removedAll;
  EventBlock<void(View&, const T& element)> inserted;
  EventBlock<void(View&, const ElementArray<T>& elements)> insertedMultiple;
  /// Comes also for elements that the view does not hold, deliberately.
  EventBlock<void(View&, const T& newElement)> updated;
  EventBlock<void(View&, const T& element)> removed;
  EventBlock<void(View&, const ElementSet<T>& elements)> removedMultiple;
};

}  // namespace tolvanite
