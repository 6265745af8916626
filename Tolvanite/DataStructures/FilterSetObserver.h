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
  using ElementBlock = EventBlock<void(const FilterSet<T>&, const T& element)>;

  EventBlock<void(const FilterSet<T>&)> filterBlockChanged;
  EventBlock<void(const FilterSet<T>&)> replacedContent;
  EventBlock<void(const FilterSet<T>&)> removedAll;
  ElementBlock inserted;
  ElementBlock updated;
  ElementBlock removed;
  ElementBlock inSetInserted;
  ElementBlock inSetUpdated;
  ElementBlock inSetRemoved;
  ElementBlock outSetInserted;
  ElementBlock outSetUpdated;
  ElementBlock outSetRemoved;
};

}  // namespace tolvanite
