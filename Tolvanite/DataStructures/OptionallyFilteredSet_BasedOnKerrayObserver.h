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
  /// The first argument of the blocks.
  using View = OptionallyFilteredSet_BasedOnKerray<T>;

  /// There is another filter: read the content anew.
  EventBlock<void(View&)> filterChanged;
  /// The whole content was replaced.
  EventBlock<void(View&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(View&)> removedAll;
  /// A new element.
  EventBlock<void(View&, const T& element)> inserted;
  /// Several new elements.
  EventBlock<void(View&, const ElementSet<T>& elements)> insertedMultiple;
  /// An element is gone.
  EventBlock<void(View&, const T& element)> removed;
  /// Several elements are gone.
  EventBlock<void(View&, const ElementSet<T>& elements)> removedMultiple;
  /// An element has new content.
  EventBlock<void(View&, const T& newElement)> updated;
  /// Several elements have new content.
  EventBlock<void(View&, const ElementSet<T>& newElements)> updatedMultiple;
};

}  // namespace tolvanite
