// What a subscriber to a `Urray` sets up: one optional block per event.
#pragma once

#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// What a `Urray` asks of its elements: equality and a hash, nothing more.
template <typename T>
concept UrrayType = HashableElement<T>;

template <UrrayType T>
class Urray;

/// The events of a `Urray`. The first argument of every block is a copy of it as it stands after
/// the change. A block that copies it and changes its own copy tells the same observers. A block
/// that is not set is not called.
template <UrrayType T>
class UrrayObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;

  /// Nothing sends this: there is no operation that replaces the content.
  EventBlock<void(const Urray<T>&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(const Urray<T>&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(const Urray<T>&, Int index, const T& element)> inserted;
  /// The index is the one that the element had.
  EventBlock<void(const Urray<T>&, Int index, const T& element)> removed;
  /// An element has new content.
  EventBlock<void(const Urray<T>&, Int index, const T& newElement)> updated;
  /// An element now stands at `to`.
  EventBlock<void(const Urray<T>&, Int from, Int to, const T& element)> moved;
};

}  // namespace tolvanite
