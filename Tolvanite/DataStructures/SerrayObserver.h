// What a subscriber to a `Serray` sets up: one optional block per event.
#pragma once

#include <string>

#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

template <KeyedElement T>
class Serray;

/// The events of a `Serray`, which is the first argument of every block. A block that is not set is
/// not called.
template <KeyedElement T>
class SerrayObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;

  /// There is another order, with this code: read the content anew.
  EventBlock<void(Serray<T>&, const std::string& code)> sortingChanged;
  /// Nothing sends this: there is no operation that replaces the content.
  EventBlock<void(Serray<T>&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(Serray<T>&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(Serray<T>&, Int index, const T& element)> inserted;
  /// The index is the one that the element had.
  EventBlock<void(Serray<T>&, Int index, const T& element)> removed;
  /// An element has new content.
  EventBlock<void(Serray<T>&, Int index, const T& newElement)> updated;
  /// An update that changed the place: `updated` is not sent for it, so take the element from here.
  EventBlock<void(Serray<T>&, Int from, Int to, const T& newElement)> moved;
};

}  // namespace tolvanite
