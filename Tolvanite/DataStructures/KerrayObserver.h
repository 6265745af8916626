// What a subscriber to a `Kerray` sets up: one optional block per event.
//
//   tracks->observers.createNew(controller, [this](tolvanite::KerrayObserver<Track>& observer) {
//     observer.inserted = [this](tolvanite::Kerray<Track>&, tolvanite::Int index,
//                                const Track& track) { rows.insertRow(index, track); };
//   });
#pragma once

#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/detail/KerrayFollower.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

template <KeyedElement T>
class Kerray;

/// The events of a `Kerray`, which is the first argument of every block. A block that is not set
/// is not called. The elements of the batch events stand parallel to their indexes.
template <KeyedElement T>
class KerrayObserver final : public detail::FollowingObserver<detail::KerrayFollower<T>> {
 public:
  using detail::FollowingObserver<detail::KerrayFollower<T>>::FollowingObserver;

  /// The whole content was replaced.
  EventBlock<void(Kerray<T>&)> replacedContent;
  /// All was removed; sent also when there was nothing.
  EventBlock<void(Kerray<T>&)> removedAll;
  /// A new element stands at `index`.
  EventBlock<void(Kerray<T>&, Int index, const T& element)> inserted;
  /// The index is that of the first inserted element.
  EventBlock<void(Kerray<T>&, Int index, const ElementArray<T>& elements)>
      insertedMultipleContinuous;
  /// The indexes are to be applied one after the other.
  EventBlock<void(Kerray<T>&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      insertedMultipleDistributed;
  /// The index is the one that the element had.
  EventBlock<void(Kerray<T>&, Int index, const T& element)> removed;
  /// Highest index first, so that the removals can be applied one after the other.
  EventBlock<void(Kerray<T>&, const std::vector<Int>& indexes, const ElementArray<T>& elements)>
      removedMultiple;
  /// An element has new content.
  EventBlock<void(Kerray<T>&, Int index, const T& newElement)> updated;
  /// Several elements have new content.
  EventBlock<void(Kerray<T>&, const std::vector<Int>& indexes, const ElementArray<T>& newElements)>
      updatedMultiple;
  /// An element now stands at `to`.
  EventBlock<void(Kerray<T>&, Int from, Int to, const T& element)> moved;
  /// `to` is the final index of the first moved element; the elements come highest index first.
  EventBlock<void(Kerray<T>&, const std::vector<Int>& fromIndexes, Int to,
                  const ElementArray<T>& elements)>
      movedMultiple;
};

}  // namespace tolvanite
