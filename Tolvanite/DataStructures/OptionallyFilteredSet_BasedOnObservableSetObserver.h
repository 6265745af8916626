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
  /// The first argument of the blocks.
  using View = OptionallyFilteredSet_BasedOnObservableSet<T>;

  /// There is another filter: read the content anew.
  EventBlock<void(View&)> filterChanged;
  /// The whole content was replaced.
  EventBlock<void(View&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(View&)> removedAll;
  /// A new element.
  EventBlock<void(View&, const T& element)> inserted;
  /// Several new elements.
  EventBlock<void(View&, const ElementArray<T>& elements)> insertedMultiple;
  /// Comes also for elements that the view does not hold, deliberately.
  EventBlock<void(View&, const T& newElement)> updated;
  /// An element is gone.
  EventBlock<void(View&, const T& element)> removed;
  /// Several elements are gone.
  EventBlock<void(View&, const ElementSet<T>& elements)> removedMultiple;
};

}  // namespace tolvanite
