// What a subscriber to an `OptionallySortedUrray` sets up: one optional block per event.
#pragma once

#include <string>

#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

template <KeyedElement T>
class OptionallySortedUrray;

/// The events of an `OptionallySortedUrray`. The first argument of every block is a copy of it as
/// it stands after the change. A block that copies it and changes its own copy tells the same
/// observers. The indexes are those of the order on show. A block that is not set is not called.
template <KeyedElement T>
class OptionallySortedUrrayObserver final : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;
  /// The first argument of the blocks.
  using Array = OptionallySortedUrray<T>;

  /// The code of the new sort block, or absent.
  EventBlock<void(const Array&, const Optional<std::string>& code)> sortingChanged;
  /// Nothing sends this: there is no operation that replaces the content.
  EventBlock<void(const Array&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(const Array&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(const Array&, Int index, const T& element)> inserted;
  /// The indexes that the element had on show and in the natural order.
  EventBlock<void(const Array&, Int index, Int naturalIndex, const T& element)> removed;
  /// The index is the one that the element has now. Where its place changed, `moved` follows: who
  /// keeps rows then draws those from one index of `moved` to the other anew.
  EventBlock<void(const Array&, Int index, const T& newElement)> updated;
  /// An element now stands at `to`.
  EventBlock<void(const Array&, Int from, Int to, const T& element)> moved;
};

}  // namespace tolvanite
