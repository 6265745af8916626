// What a subscriber to an `ObservableSet` sets up: one optional block per event.
//
//   tags->observers.createNew(controller, [this](auto& observer) {
//     observer.inserted = [this](auto& /*set*/, const std::string& tag) { addBadge(tag); };
//   });
#pragma once

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/detail/ObservableSetFollower.h>

namespace tolvanite {

template <HashableElement T>
class ObservableSet;

/// The events of an `ObservableSet`, which is the first argument of every block. A block that is
/// not set is not called.
template <HashableElement T>
class ObservableSetObserver final
    : public detail::FollowingObserver<detail::ObservableSetFollower<T>> {
 public:
  using detail::FollowingObserver<detail::ObservableSetFollower<T>>::FollowingObserver;

  /// The whole content was replaced.
  EventBlock<void(ObservableSet<T>&)> replacedContent;
  /// Comes after `replacedContent` was told to all, with what the set held before.
  EventBlock<void(ObservableSet<T>&, const ElementSet<T>& oldContent)> replacedContentOldContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(ObservableSet<T>&)> removedAll;
  /// A new element.
  EventBlock<void(ObservableSet<T>&, const T& element)> inserted;
  /// All elements that were to be inserted, also those that were present before, deliberately.
  EventBlock<void(ObservableSet<T>&, const ElementArray<T>& elements)> insertedMultiple;
  /// An element has new content.
  EventBlock<void(ObservableSet<T>&, const T& newElement)> updated;
  /// All elements that were to be updated, also those that were absent before and that `inserted`
  /// has told of already.
  EventBlock<void(ObservableSet<T>&, const ElementSet<T>& newElements)> updatedMultiple;
  /// The element that the set was asked to remove, which equals the one that it held.
  EventBlock<void(ObservableSet<T>&, const T& element)> removed;
  /// The elements that the set held; sent also when there were none.
  EventBlock<void(ObservableSet<T>&, const ElementSet<T>& elements)> removedMultiple;
};

}  // namespace tolvanite
