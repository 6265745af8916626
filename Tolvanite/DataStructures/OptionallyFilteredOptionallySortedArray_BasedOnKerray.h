// A live view of a `Kerray` with an optional filter and an optional sort order: what a table shows
// when its user can filter and sort. Edits go through the view to the base and come back as events
// with the view's indexes.
//
//   using View = tolvanite::OptionallyFilteredOptionallySortedArray_BasedOnKerray<Track>;
//   const tolvanite::NamedSortBlock<Track> byTitle{
//       "title", [](const Track& a, const Track& b) { return a.title < b.title; }};
//   auto view = View::make(tracks, [](const Track& track) { return !track.isHidden; }, byTitle);
//   view->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int i, const Track& t) { table.insertRow(i, t); };
//   });
//   tracks->append(track);  // the table gets its row at the right place
//
// Write the equality of your elements so that it compares keys: the view finds an updated element
// again by its equality. With an equality that covers changing content, the first update ends the
// process in a view that is sorted only, and leaves the old element behind in one that is filtered.
// Equal elements must have equal keys.
//
//   struct Track {
//     int key;
//     std::string title;
//     bool operator==(const Track& other) const { return key == other.key; }
//   };
//
// Some of what a view does is meant, however odd it looks, and to be known by its user:
// - Insertions pass by the filter that the view was made with, whatever `filterBlock` is later. For
//   a filter that changes, let the block read what it depends on, and call
//   `setFilterBlock(filterBlock())` when that has changed. A view that was made without a filter
//   and has one now lets all insertions in where it is sorted; where it is not, it tells them with
//   the base's index and takes none in.
// - A batch insertion of which every element passes that filter is ignored: no insertion, no event.
//   Insert such elements one by one, or make the view after the batch. Until the view is rebuilt,
//   by `setFilterBlock(filterBlock())`, say, to remove one of them from the base ends the process.
// - `update` of a sequence on the base ends the process ("llll"), as does a move of several
//   elements while a filter or sort order is active.
// - Filtered but not sorted, the view keeps the old content of an updated element and tells the
//   base's index; moves are told with the base's indexes and change nothing here.
// - An update that makes an element pass inserts it behind its nearest passing neighbour in the
//   base, also in a sorted view. Remove the element and insert it again to have it sorted in.
// - After the base's `removedAll` a view without blocks stays empty until a block is set.
// - A view with a filter or a sort order cannot tell indexes of elements: `indexOf` and
//   `containsElementWithKey` end the process ("llll").
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ArrayErrors.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerrayObserver.h>
#include <Tolvanite/DataStructures/UpdateOfPossiblyFilteredElementCase.h>
#include <Tolvanite/DataStructures/detail/PlacedArray.h>
#include <Tolvanite/Frame/NamedSortBlock.h>

namespace tolvanite {

/// The view declares these errors and reports neither; only those of the base come through it.
using OptionallyFilteredOptionallySortedArray_BasedOnKerrayErrors = ArrayErrors;

/// A reference type, made by `make`; it keeps its base alive. Without a filter and a sort order it
/// holds nothing and reads the base. n is the view's count in the costs below.
template <EquatableKeyedElement T>
class OptionallyFilteredOptionallySortedArray_BasedOnKerray final
    : public detail::KeptDuringPasses,
      public IndexedCollection<OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>, T>,
      private detail::KerrayFollower<T> {
 public:
  using IndexedCollection<OptionallyFilteredOptionallySortedArray_BasedOnKerray, T>::count;
  using IndexedCollection<OptionallyFilteredOptionallySortedArray_BasedOnKerray, T>::isEmpty;
  /// The type of the keys.
  using Key = KeyType<T>;
  /// What subscribers set up.
  using Observer = OptionallyFilteredOptionallySortedArray_BasedOnKerrayObserver<T>;
  /// The errors that are reported.
  using Errors = OptionallyFilteredOptionallySortedArray_BasedOnKerrayErrors;
  /// True for the elements that the view shows; an empty block stands for no filter.
  using FilterBlock = Block<bool(const T&)>;
  /// An order, or none.
  using SortBlock = Optional<NamedSortBlock<T>>;

  /// A view of `baseKerray`. One filtering and sorting of the base.
  static std::shared_ptr<OptionallyFilteredOptionallySortedArray_BasedOnKerray> make(
      std::shared_ptr<Kerray<T>> baseKerray, FilterBlock filterBlock = nullptr,
      SortBlock sortBlock = {});

  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The base, which the view keeps alive.
  const std::shared_ptr<Kerray<T>>& baseKerray() const noexcept { return baseKerray_; }
  /// The view's own array; absent while it reads the base.
  Optional<ElementArray<T>> filteredsortedArray() const {
    return hasOwnArray_ ? Optional<ElementArray<T>>(own_.elements()) : Optional<ElementArray<T>>();
  }

  /// The order that is set.
  const SortBlock& sortBlock() const noexcept { return sortBlock_; }
  /// Sorts anew and sends `sortingChanged`. A block with an equal code is stored, and nothing else
  /// happens.
  void setSortBlock(SortBlock sortBlock);
  /// The filter; empty when there is none.
  const FilterBlock& filterBlock() const noexcept { return filterBlock_; }
  /// Filters anew and sends `filterChanged`, unless there is no filter before and after.
  void setFilterBlock(FilterBlock filterBlock);

  // Reading

  /// The element at `index`, or absent when that is not below the count.
  Optional<T> atIndex(Int index) const { return this->elementIfAt(index); }
  /// With a filter or sort order, whether an equal element is shown; else whether the base has its
  /// key.
  bool contains(const T& element) const;
  /// As the base tells. Fatal with a filter or sort order, with the text "llll".
  bool containsElementWithKey(const Key& key) const;
  /// As the base tells. Fatal with a filter or sort order, with the text "llll".
  Optional<Int> indexOf(const T& element) const;

  /// "OptionallyFilteredOptionallySortedArray_BasedOnKerray(sortBlock:CODE, count: N, elements:
  /// ...)" with at most the first ten elements, and "n/a" where there is no sort block.
  std::string description() const;

  // Changing the base

  /// The base's `insert`. With a filter or sort order fatal, with the text
  /// "CurrentlyNotSortedInNaturalOrder".
  void insertAtIndex(T element, Int atIndex);
  /// The base's `move`; equal indexes do nothing. With a filter or sort order fatal as above.
  void moveFrom(Int from, Int to);
  /// Moves the element at the first index alone, deliberately, as above. No index is fatal.
  void moveFrom(const std::vector<Int>& fromIndexes, Int to);
  /// The base's `update`.
  Optional<T> update(T element) { return baseKerray_->update(std::move(element)); }
  /// The base's `remove`.
  Optional<T> remove(const T& element) { return baseKerray_->remove(element); }
  /// The base's `removeElementWithKey`.
  Optional<T> removeElementWithKey(const Key& key) {
    return baseKerray_->removeElementWithKey(key);
  }
  /// The base's `removeAll`.
  void removeAll() { baseKerray_->removeAll(); }

 private:
  friend class IndexedCollection<OptionallyFilteredOptionallySortedArray_BasedOnKerray, T>;
  using Handle = detail::Handle<T>;
  using Box = detail::Box<T>;
  using Store = detail::ElementStore<T>;

  OptionallyFilteredOptionallySortedArray_BasedOnKerray(std::shared_ptr<Kerray<T>> baseKerray,
                                                        FilterBlock filterBlock,
                                                        SortBlock sortBlock);
  ~OptionallyFilteredOptionallySortedArray_BasedOnKerray() override = default;

  void baseChanged(std::uint64_t change) override;
  void baseChangeFailed() noexcept override { own_.loseStep(); }
  void baseReplacedContent() override;
  void baseRemovedAll() override;
  void baseInserted(Int index, const Handle& element) override;
  void baseInsertedMultipleContinuous(Int index, const Store& elements) override;
  void baseInsertedMultipleDistributed(const std::vector<Int>& indexes,
                                       const Store& elements) override;
  void baseRemoved(Int index, const Handle& element) override;
  void baseRemovedMultiple(const std::vector<Int>& indexes, const Store& elements) override;
  void baseUpdated(Int index, const Handle& element, const Handle& old) override;
  void baseUpdatedMultiple(const std::vector<Int>& indexes, const Store& elements) override;
  void baseMoved(Int from, Int to, const Handle& element) override;
  void baseMovedMultiple(const std::vector<Int>& fromIndexes, Int to,
                         const Store& elements) override;

  const ElementArray<T>& shownArray() const noexcept {
    return hasOwnArray_ ? own_.elements() : baseKerray_->array();
  }
  bool passes(const T& element) const { return !filterBlock_ || filterBlock_(element); }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) {
    detail::notify(observers, event, *this, arguments...);
  }

  void applyFilterAndSort();
  template <typename Visit>
  Store passingBaseElements(const FilterBlock& filter, const Visit& visit);
  void adopt(Store array);
  template <typename Visit>
  void refillInBaseOrder(const Visit& visit);
  template <typename ForwardAsItCame>
  void baseInsertedMultiple(const Store& elements, const ForwardAsItCame& forwardAsItCame);
  void insertSorted(Store elements);
  void insertBesideNeighbour(Int baseIndex, const Handle& element);
  void updateInOrder(Int index, const Handle& element);

  Int find(const T& element, const Box* inBase, const Box* old) const;
  Int mustFind(const T& element, const Box* inBase, const Box* old) const;
  void requireNaturalOrder() const {
    if (hasOwnArray_) fatalFailure("CurrentlyNotSortedInNaturalOrder");
  }

  const std::shared_ptr<Kerray<T>> baseKerray_;
  const FilterBlock filterBlockAtCreation_;
  FilterBlock filterBlock_;
  SortBlock sortBlock_;

  bool hasOwnArray_ = false;
  detail::PlacedArray<T> own_;
  // The number of the last change of the base that was heard of.
  std::uint64_t lastChange_ = 0;
};

// Implementation

template <EquatableKeyedElement T>
auto OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::make(
    std::shared_ptr<Kerray<T>> baseKerray, FilterBlock filterBlock, SortBlock sortBlock)
    -> std::shared_ptr<OptionallyFilteredOptionallySortedArray_BasedOnKerray> {
  auto view = owned(new OptionallyFilteredOptionallySortedArray_BasedOnKerray(
      std::move(baseKerray), std::move(filterBlock), std::move(sortBlock)));
  view->applyFilterAndSort();
  view->baseKerray_->addFollower(view, *view);
  return view;
}

template <EquatableKeyedElement T>
OptionallyFilteredOptionallySortedArray_BasedOnKerray<
    T>::OptionallyFilteredOptionallySortedArray_BasedOnKerray(std::shared_ptr<Kerray<T>> baseKerray,
                                                              FilterBlock filterBlock,
                                                              SortBlock sortBlock)
    : baseKerray_(std::move(baseKerray)),
      filterBlockAtCreation_(std::move(filterBlock)),
      filterBlock_(filterBlockAtCreation_),
      sortBlock_(std::move(sortBlock)) {
  if (!baseKerray_) fatalFailure("A view needs a base");
  if (sortBlock_) detail::requireBlock(*sortBlock_);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::setSortBlock(SortBlock sortBlock) {
  if (sortBlock) detail::requireBlock(*sortBlock);
  const Pass pass(*this);
  const bool isSame = sortBlock == sortBlock_;
  sortBlock_ = std::move(sortBlock);
  if (isSame) {
    own_.loseOrder();  // Nothing is sorted by the new block.
    return;
  }
  applyFilterAndSort();
  tell(&Observer::sortingChanged,
       sortBlock_ ? Optional<std::string>(sortBlock_->code) : Optional<std::string>());
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::setFilterBlock(
    FilterBlock filterBlock) {
  const Pass pass(*this);
  const bool areAbsent = !filterBlock && !filterBlock_;
  filterBlock_ = std::move(filterBlock);
  if (areAbsent) return;
  applyFilterAndSort();
  tell(&Observer::filterChanged);
}

// Rebuilding

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::applyFilterAndSort() {
  Store array;
  if (filterBlock_) {
    array = passingBaseElements(filterBlock_, [](const T&, Int) {});
  } else if (sortBlock_) {
    array = baseKerray_->array_;
  }
  if (sortBlock_) detail::sortStably(array, sortBlock_->sortBlock);
  adopt(std::move(array));
  hasOwnArray_ = filterBlock_ || sortBlock_;
}

/// @cond
// The base elements that pass a filter, in the base's order. `visit` gets each of them and the
// index that it is about to have.
template <EquatableKeyedElement T>
template <typename Visit>
auto OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::passingBaseElements(
    const FilterBlock& filter, const Visit& visit) -> Store {
  // Should the filter throw, the array stays as it was and no noted place is believed.
  own_.loseStep();
  const Store base = baseKerray_->array_;
  Store array;
  for (Int i = 0; i < base.count(); ++i) {
    const Box* box = base.boxAt(i);
    if (filter(box->value)) {
      visit(box->value, array.count());
      array.append(base.handleAt(i));
    } else {
      own_.noteAbsence(box);
    }
  }
  return array;
}
/// @endcond

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::adopt(Store array) {
  own_.rebuild(std::move(array), !baseKerray_->keysMayRepeat_, sortBlock_.has_value());
  lastChange_ = baseKerray_->changes_;
}

// Fills the array anew with what passes the filter of the creation.
template <EquatableKeyedElement T>
template <typename Visit>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::refillInBaseOrder(
    const Visit& visit) {
  adopt(passingBaseElements(filterBlockAtCreation_, visit));
  hasOwnArray_ = true;
}

// Finding

template <EquatableKeyedElement T>
Int OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::find(const T& element,
                                                                   const Box* inBase,
                                                                   const Box* old) const {
  return own_.find(element, inBase, old, sortBlock_ ? &sortBlock_->sortBlock : nullptr);
}

template <EquatableKeyedElement T>
Int OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::mustFind(const T& element,
                                                                       const Box* inBase,
                                                                       const Box* old) const {
  const Int place = find(element, inBase, old);
  if (place < 0) {
    fatalFailure("Element of the base not found in its view: " +
                 detail::textFormOrTypeName(element));
  }
  return place;
}

template <EquatableKeyedElement T>
bool OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::contains(const T& element) const {
  if (!hasOwnArray_) return baseKerray_->contains(element);
  const Box* box = baseKerray_->dictionary_.find(ElementTraits<T>::key(element));
  // Asked before it has heard of a change, the view still shows what the base has no more.
  if (!box || lastChange_ != baseKerray_->changes_) return own_.findFirst(element) >= 0;
  return find(element, box, box) >= 0;
}

template <EquatableKeyedElement T>
bool OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::containsElementWithKey(
    const Key& key) const {
  if (hasOwnArray_) fatalFailure("llll");
  return baseKerray_->containsWith(key);
}

template <EquatableKeyedElement T>
Optional<Int> OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::indexOf(
    const T& element) const {
  // With an array of its own the view cannot tell, deliberately: the question for the key is fatal.
  if (hasOwnArray_) containsElementWithKey(ElementTraits<T>::key(element));
  return baseKerray_->indexOf(element);
}

template <EquatableKeyedElement T>
std::string OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::description() const {
  return "OptionallyFilteredOptionallySortedArray_BasedOnKerray(sortBlock:" +
         (sortBlock_ ? sortBlock_->code : "n/a") + ", count: " + textForm(count()) +
         ", elements: " + detail::elementsText(*this, 10) + ")";
}

// Changing the base

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::insertAtIndex(T element,
                                                                             Int atIndex) {
  requireNaturalOrder();
  baseKerray_->insert(std::move(element), atIndex);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::moveFrom(Int from, Int to) {
  requireNaturalOrder();
  if (from != to) baseKerray_->move(from, to);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::moveFrom(
    const std::vector<Int>& fromIndexes, Int to) {
  requireNaturalOrder();
  if (fromIndexes.empty()) fatalFailure("moveFrom needs at least one index");
  moveFrom(fromIndexes.front(), to);
}

// Following the base

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseChanged(std::uint64_t change) {
  if (change != lastChange_ + 1 || baseKerray_->keysMayRepeat_) own_.loseStep();
  lastChange_ = change;
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseReplacedContent() {
  if (sortBlock_ || filterBlock_) {
    applyFilterAndSort();
  } else {
    own_.loseStep();  // An array that an earlier change left here stays as it is.
  }
  tell(&Observer::replacedContent);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseRemovedAll() {
  // Present from now on also in a view without blocks, deliberately: until the next rebuild such a
  // view shows nothing of what comes.
  adopt({});
  hasOwnArray_ = true;
  tell(&Observer::removedAll);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseInserted(Int index,
                                                                            const Handle& element) {
  // The filter of the creation decides on insertions, deliberately.
  if (filterBlockAtCreation_ && !filterBlockAtCreation_(*element)) return;
  Int place = index;
  if (sortBlock_) {
    place = own_.insertInOrder(element, sortBlock_->sortBlock);
  } else if (filterBlockAtCreation_) {
    place = 0;
    refillInBaseOrder([&](const T& passing, Int placeOfPassing) {
      if (ElementTraits<T>::key(passing) == ElementTraits<T>::key(*element)) place = placeOfPassing;
    });
  }
  tell(&Observer::inserted, place, *element);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseInsertedMultipleContinuous(
    Int index, const Store& elements) {
  baseInsertedMultiple(elements,
                       [&] { tell(&Observer::insertedMultipleContinuous, index, elements); });
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseInsertedMultipleDistributed(
    const std::vector<Int>& indexes, const Store& elements) {
  baseInsertedMultiple(elements,
                       [&] { tell(&Observer::insertedMultipleDistributed, indexes, elements); });
}

template <EquatableKeyedElement T>
template <typename ForwardAsItCame>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseInsertedMultiple(
    const Store& elements, const ForwardAsItCame& forwardAsItCame) {
  if (!filterBlockAtCreation_) {
    if (sortBlock_) return insertSorted(elements);
    return forwardAsItCame();
  }
  Store passing = elements.passing(filterBlockAtCreation_);
  // A batch that passes as a whole is left out, deliberately.
  if (passing.count() == elements.count()) return;
  if (sortBlock_) return insertSorted(std::move(passing));

  std::unordered_multimap<Key, Int> orderInBatch;
  for (Int i = 0; i < passing.count(); ++i) {
    orderInBatch.emplace(ElementTraits<T>::key(passing[i]), i);
  }
  std::vector<Int> places(passing.size(), 0);
  refillInBaseOrder([&](const T& element, Int place) {
    const auto [first, last] = orderInBatch.equal_range(ElementTraits<T>::key(element));
    Int found = passing.count();
    for (auto i = first; i != last; ++i) {
      if (ElementTraits<T>::equal(passing[i->second], element)) found = std::min(found, i->second);
    }
    if (found < passing.count()) places[static_cast<std::size_t>(found)] = place;
  });
  tell(&Observer::insertedMultipleDistributed, places, passing);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::insertSorted(Store elements) {
  detail::sortStably(elements, sortBlock_->sortBlock);
  const std::vector<Int> indexes = own_.insertInOrder(elements, sortBlock_->sortBlock, true);
  tell(&Observer::insertedMultipleDistributed, indexes, elements);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseRemoved(Int index,
                                                                           const Handle& element) {
  if (!hasOwnArray_) return tell(&Observer::removed, index, *element);
  if (!passes(*element)) {
    // What the filter of the creation let in stays, out of step.
    if (find(*element, element.get(), element.get()) >= 0) own_.loseStep();
    return;
  }
  const Int place = mustFind(*element, element.get(), element.get());
  own_.removeAt(place);
  tell(&Observer::removed, place, *element);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseRemovedMultiple(
    const std::vector<Int>& indexes, const Store& elements) {
  if (!hasOwnArray_) return tell(&Observer::removedMultiple, indexes, elements);
  Store kept;
  std::vector<Int> places;
  for (Int i = 0; i < elements.count(); ++i) {
    const Handle element = elements.handleAt(i);
    if (passes(*element)) {
      places.push_back(mustFind(*element, element.get(), element.get()));
      kept.append(element);
    } else if (find(*element, element.get(), element.get()) >= 0) {
      own_.loseStep();
    }
  }
  if (kept.isEmpty()) return;
  own_.removeAtIndexes(places);
  tell(&Observer::removedMultiple, places, kept);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseUpdated(Int index,
                                                                           const Handle& element,
                                                                           const Handle& old) {
  if (!hasOwnArray_) return tell(&Observer::updated, index, *element);
  // Found by an equality that covers changing content, the array may come to hold both.
  if (!ElementTraits<T>::equal(*old, *element)) own_.loseStep();
  Int place = -1;
  if (filterBlock_) {
    place = find(*element, element.get(), old.get());
    switch (updateOfPossiblyFilteredElementCase(filterBlock_(*element), place >= 0)) {
      case UpdateOfPossiblyFilteredElementCase::updated:
        break;
      case UpdateOfPossiblyFilteredElementCase::inserted:
        return insertBesideNeighbour(index, element);
      case UpdateOfPossiblyFilteredElementCase::removed:
        own_.removeAt(place);
        own_.noteAbsence(element.get());
        return tell(&Observer::removed, place, *element);
      case UpdateOfPossiblyFilteredElementCase::stillNotIncluded:
        return;
    }
  }
  // Without a sort block the base's index is told and the old content stays, deliberately.
  if (!sortBlock_) return tell(&Observer::updated, index, *element);
  if (place < 0) place = mustFind(*element, element.get(), old.get());
  updateInOrder(place, element);
}

// An element that has come to pass goes behind the nearest base element before it that passes; the
// sort block is not asked, deliberately, so the array may no longer be in order.
template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::insertBesideNeighbour(
    Int baseIndex, const Handle& element) {
  Int place = 0;
  const Store base = baseKerray_->array_;
  for (Int i = std::min(baseIndex, base.count()) - 1; i >= 0; --i) {
    const Box* neighbour = base.boxAt(i);
    if (!filterBlock_(neighbour->value)) continue;
    place = mustFind(neighbour->value, neighbour, neighbour) + 1;
    break;
  }
  own_.insertOutOfOrder(place, element);
  tell(&Observer::inserted, place, *element);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::updateInOrder(
    Int index, const Handle& element) {
  const Optional<Int> movedTo =
      own_.updateInOrder(index, element, sortBlock_->sortBlock, detail::AmongTies::first);
  if (!movedTo) return tell(&Observer::updated, index, *element);
  observers.forEach([&](Observer& observer) {
    detail::call(observer.moved, *this, index, *movedTo, *element);
    detail::call(observer.updated, *this, *movedTo, *element);
  });
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseUpdatedMultiple(
    const std::vector<Int>& /*indexes*/, const Store& /*elements*/) {
  // A base with such a view must not be updated in a batch.
  fatalFailure("llll");
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseMoved(Int from, Int to,
                                                                         const Handle& element) {
  // Under a filter, too, the base's indexes are told and nothing moves here, deliberately.
  if (!sortBlock_) tell(&Observer::moved, from, to, *element);
}

template <EquatableKeyedElement T>
void OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>::baseMovedMultiple(
    const std::vector<Int>& fromIndexes, Int to, const Store& elements) {
  if (sortBlock_) fatalFailure("sortblock is not nil");
  if (filterBlock_) fatalFailure("filterblock is not nil");
  if (hasOwnArray_) fatalFailure("should neve be possible");
  tell(&Observer::movedMultiple, fromIndexes, to, elements);
}

}  // namespace tolvanite
