// What a subscriber to an `OptionallyFilteredSet_BasedOnKerray` sets up: one optional block per
// event.
#pragma once

#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>

namespace tolvanite {

template <HashableEquatableKeyedElement T>
class OptionallyFilteredSet_BasedOnKerray;

/// The events of the view, which is the first argument of every block. A block that is not set is
/// not called.
template <HashableEquatableKeyedElement T>
class OptionallyFilteredSet_BasedOnKerrayObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;
  using View = OptionallyFilteredSet_BasedOnKerray<T>;

  EventBlock<void(View&)> filterChanged;
  EventBlock<void(View&)> replacedContent;
  EventBlock<void(View&)> removedAll;
  EventBlock<void(View&, const T& element)> inserted;
  EventBlock<void(View&, const ElementSet<T>& elements)> insertedMultiple;
  EventBlock<void(View&, const T& element)> removed;
  EventBlock<void(View&, const ElementSet<T>& elements)> removedMultiple;
  EventBlock<void(View&, const T& newElement)> updated;
  EventBlock<void(View&, const ElementSet<T>& newElements)> updatedMultiple;
};

}  // namespace tolvanite
