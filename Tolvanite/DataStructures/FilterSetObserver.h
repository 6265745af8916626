// What a subscriber to a `FilterSet` sets up: one optional block per event.
#pragma once

#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>

namespace tolvanite {

template <HashableElement T>
class FilterSet;

/// The events of a `FilterSet`: those of the whole, and those of either side, which come first. The
/// first argument of every block is a copy of the set as it stands after the change. A block that
/// copies it and changes its own copy tells the same observers. A block that is not set is not
/// called.
template <HashableElement T>
class FilterSetObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;
  /// A block that takes the set and an element.
  using ElementBlock = EventBlock<void(const FilterSet<T>&, const T& element)>;

  /// There is another filter: read both sides anew.
  EventBlock<void(const FilterSet<T>&)> filterBlockChanged;
  /// The whole content was replaced.
  EventBlock<void(const FilterSet<T>&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(const FilterSet<T>&)> removedAll;
  /// A new element, on either side.
  ElementBlock inserted;
  /// An element has new content; it may have crossed over.
  ElementBlock updated;
  /// An element is gone, from either side.
  ElementBlock removed;
  /// A new element of the in set.
  ElementBlock inSetInserted;
  /// An element of the in set has new content.
  ElementBlock inSetUpdated;
  /// An element has left the in set.
  ElementBlock inSetRemoved;
  /// A new element of the out set.
  ElementBlock outSetInserted;
  /// An element of the out set has new content.
  ElementBlock outSetUpdated;
  /// An element has left the out set.
  ElementBlock outSetRemoved;
};

}  // namespace tolvanite
