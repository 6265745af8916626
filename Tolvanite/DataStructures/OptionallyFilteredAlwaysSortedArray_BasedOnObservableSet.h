// A live, always sorted array over an `ObservableSet`, with an optional filter: every change of the
// set becomes an event with an index, so that a table can follow without comparing anything.
//
//   using View = tolvanite::OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<Track>;
//   auto view = View::make(tracks, [](const Track& track) { return !track.isHidden; }, byTitle);
//   view->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int i, const Track& t) { table.insertRow(i, t); };
//     observer.moved = [&](auto&, tolvanite::Int from, tolvanite::Int to, const Track&) {
//       table.moveRow(from, to);
//     };
//   });
//   tracks->insert(track);  // the table gets its row at the right place
//
// Some of what the view does is meant, and to be known by its user:
// - `insertMultiple` on the base tells of elements that were present already, too: the view then
//   shows those twice, and a removal takes one of the two, until a new filter or new content comes.
// - A removal of several elements prints four kinds of lines on standard output.
// - A sort block with an equal code is stored and sorts nothing. Later changes go by it.
// - `updateMultiple` on the base ends the process ("llll").
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ArrayErrors.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/ObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredAlwaysSortedArray_BasedOnObservableSetObserver.h>
#include <Tolvanite/DataStructures/UpdateOfPossiblyFilteredElementCase.h>
#include <Tolvanite/DataStructures/detail/PlacedArray.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/NamedSortBlock.h>

namespace tolvanite {

/// The view declares these errors and reports neither.
using OptionallyFilteredAlwaysSortedArray_BasedOnObservableSetErrors = ArrayErrors;

/// A reference type, made by `make`; it keeps its base alive. n is the view's count in the costs:
/// an insertion is log n calls of the sort block and one shift, an update that keeps the place four
/// calls, a removal one shift.
template <HashableEquatableKeyedElement T>
class OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet final
    : public detail::KeptDuringPasses,
      public IndexedCollection<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>, T>,
      private detail::ObservableSetFollower<T> {
 public:
  using IndexedCollection<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet, T>::count;
  /// What subscribers set up.
  using Observer = OptionallyFilteredAlwaysSortedArray_BasedOnObservableSetObserver<T>;
  /// The errors that are reported.
  using Errors = OptionallyFilteredAlwaysSortedArray_BasedOnObservableSetErrors;
  /// True for the elements that the view shows; an empty block stands for no filter.
  using FilterBlock = Block<bool(const T&)>;

  /// A view of `baseSet`. One filtering and sorting of the base.
  static std::shared_ptr<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet> make(
      std::shared_ptr<ObservableSet<T>> baseSet, FilterBlock filterBlock,
      NamedSortBlock<T> sortBlock);
  /// The same without a filter.
  static std::shared_ptr<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet> make(
      std::shared_ptr<ObservableSet<T>> baseSet, NamedSortBlock<T> sortBlock) {
    return make(std::move(baseSet), nullptr, std::move(sortBlock));
  }

  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The base, which the view keeps alive.
  const std::shared_ptr<ObservableSet<T>>& baseSet() const noexcept { return baseSet_; }
  /// The order that is set.
  const NamedSortBlock<T>& sortBlock() const noexcept { return sortBlock_; }
  /// Sorts anew and sends `sortingChanged`. A block with an equal code is stored, and nothing else
  /// happens.
  void setSortBlock(NamedSortBlock<T> sortBlock);
  /// The filter; empty when there is none.
  const FilterBlock& filterBlock() const noexcept { return filterBlock_; }
  /// Filters and sorts anew and sends `filterChanged`, unless there is no filter before and after.
  void setFilterBlock(FilterBlock filterBlock);

  // Reading

  /// The content in order. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementArray<T>& array() const noexcept { return own_.elements(); }

  /// "OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet(sortBlock:CODE, count: N, elements:
  /// ...)" with at most the first five elements.
  std::string description() const {
    return "OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet(sortBlock:" + sortBlock_.code +
           ", count: " + textForm(count()) + ", elements: " + detail::elementsText(*this, 5) + ")";
  }

 private:
  friend class IndexedCollection<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet, T>;
  using Handle = detail::Handle<T>;
  using Box = detail::Box<T>;
  using Store = detail::ElementStore<T>;

  OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet(
      std::shared_ptr<ObservableSet<T>> baseSet, FilterBlock filterBlock,
      NamedSortBlock<T> sortBlock)
      : baseSet_(std::move(baseSet)),
        sortBlock_(std::move(sortBlock)),
        filterBlock_(std::move(filterBlock)) {
    if (!baseSet_) fatalFailure("A view needs a base");
    detail::requireBlock(sortBlock_);
    applyFilterAndSort();
  }
  ~OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet() override = default;

  void baseChanged(std::uint64_t change) override;
  void baseChangeFailed() noexcept override { own_.loseStep(); }
  void baseReplacedContent() override;
  void baseRemovedAll() override;
  void baseInserted(const Handle& element) override;
  void baseInsertedMultiple(const Store& elements, bool areAllNew) override;
  void baseUpdated(const Handle& element, const Handle& old) override;
  void baseUpdatedMultiple() override;
  void baseRemoved(const T& element, const Handle& removed) override;
  void baseRemovedMultiple(const ElementSet<T>& removed) override;

  const ElementArray<T>& shownArray() const noexcept { return own_.elements(); }
  bool passes(const T& element) const { return !filterBlock_ || filterBlock_(element); }
  const typename NamedSortBlock<T>::SortBlock& order() const { return sortBlock_.sortBlock; }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) {
    detail::notify(observers, event, *this, arguments...);
  }
  void applyFilterAndSort();
  void insertInOrder(const Handle& element);
  void removeAt(Int index, const T& toldElement);
  void updateInOrder(Int index, const Handle& element);

  const std::shared_ptr<ObservableSet<T>> baseSet_;
  detail::PlacedArray<T> own_;  // what the view shows
  NamedSortBlock<T> sortBlock_;
  FilterBlock filterBlock_;
  // The number of the last change of the base that was heard of.
  std::uint64_t lastChange_ = 0;
};

// Implementation

template <HashableEquatableKeyedElement T>
auto OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::make(
    std::shared_ptr<ObservableSet<T>> baseSet, FilterBlock filterBlock, NamedSortBlock<T> sortBlock)
    -> std::shared_ptr<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet> {
  auto view = KeptDuringPasses::owned(new OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet(
      std::move(baseSet), std::move(filterBlock), std::move(sortBlock)));
  view->baseSet_->addFollower(view, *view);
  return view;
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::setSortBlock(
    NamedSortBlock<T> sortBlock) {
  detail::requireBlock(sortBlock);
  const Pass pass(*this);
  const bool isSame = sortBlock == sortBlock_;
  sortBlock_ = std::move(sortBlock);
  if (isSame) {
    own_.loseOrder();  // Nothing is sorted by the new block.
    return;
  }
  own_.sort(order());
  tell(&Observer::sortingChanged, std::string(sortBlock_.code));
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::setFilterBlock(
    FilterBlock filterBlock) {
  const Pass pass(*this);
  const bool areAbsent = !filterBlock && !filterBlock_;
  filterBlock_ = std::move(filterBlock);
  if (areAbsent) return;
  applyFilterAndSort();
  tell(&Observer::filterChanged);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::applyFilterAndSort() {
  // Should the filter throw, the array stays as it was and no noted place is believed.
  own_.loseStep();
  // Should a block change the base, later changes are found to be out of turn.
  const std::uint64_t change = baseSet_->changes_;
  const detail::ElementSetStore<T> base = baseSet_->elements_;
  Store array;
  base.forEachBox([&](Box* box) {
    if (passes(box->value)) {
      array.append(Handle::sharing(box));
    } else {
      own_.noteAbsence(box);
    }
  });
  detail::sortStably(array, order());
  own_.rebuild(std::move(array), true, true);
  lastChange_ = change;
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::insertInOrder(
    const Handle& element) {
  const Int index = own_.insertInOrder(element, order());
  tell(&Observer::inserted, index, *element);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::removeAt(Int index,
                                                                           const T& toldElement) {
  own_.removeAt(index);
  tell(&Observer::removed, index, toldElement);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::updateInOrder(
    Int index, const Handle& element) {
  const Optional<Int> movedTo =
      own_.updateInOrder(index, element, order(), detail::AmongTies::first);
  if (!movedTo) return tell(&Observer::updated, index, *element);
  observers.forEach([&](Observer& observer) {
    detail::call(observer.moved, *this, index, *movedTo, *element);
    detail::call(observer.updated, *this, *movedTo, *element);
  });
}

// Following the base

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseChanged(
    std::uint64_t change) {
  if (change != lastChange_ + 1) own_.loseStep();
  lastChange_ = change;
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseReplacedContent() {
  applyFilterAndSort();
  tell(&Observer::replacedContent);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseRemovedAll() {
  applyFilterAndSort();
  tell(&Observer::removedAll);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseInserted(
    const Handle& element) {
  if (passes(*element)) insertInOrder(element);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseInsertedMultiple(
    const Store& elements, bool areAllNew) {
  const Store passing = filterBlock_ ? elements.passing(filterBlock_) : elements;
  if (filterBlock_ && passing.isEmpty()) return;
  // Those that were present in the base are inserted once more, deliberately.
  if (!areAllNew) own_.loseStep();
  const std::vector<Int> indexes = own_.insertInOrder(passing, order());
  tell(&Observer::insertedMultiple, indexes, passing);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseUpdated(const Handle& element,
                                                                              const Handle& old) {
  const bool doesPass = passes(*element);
  const Int index = own_.find(*element, element.get(), old.get(), &order());
  if (!filterBlock_ && index < 0) {
    fatalFailure("Element of the base not found in its view: " +
                 detail::textFormOrTypeName(*element));
  }
  switch (updateOfPossiblyFilteredElementCase(doesPass, index >= 0)) {
    case UpdateOfPossiblyFilteredElementCase::updated:
      return updateInOrder(index, element);
    case UpdateOfPossiblyFilteredElementCase::inserted:
      return insertInOrder(element);
    case UpdateOfPossiblyFilteredElementCase::removed:
      own_.noteAbsence(element.get());
      return removeAt(index, *element);
    case UpdateOfPossiblyFilteredElementCase::stillNotIncluded:
      return;
  }
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseUpdatedMultiple() {
  // A base with such a view must not be updated in a batch, deliberately.
  fatalFailure("llll");
}

// By membership: the filter is not asked, deliberately.
template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseRemoved(
    const T& element, const Handle& removed) {
  const Int index = own_.find(element, removed.get(), removed.get(), &order());
  if (index >= 0) removeAt(index, element);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>::baseRemovedMultiple(
    const ElementSet<T>& removed) {
  std::vector<Int> indexes;
  detail::ElementSetStore<T>(removed).forEachBox([&](const Box* box) {
    const Int index = own_.find(box->value, box, box, &order());
    if (index >= 0) indexes.push_back(index);
  });
  std::ranges::sort(indexes);
  Store elements = own_.removeAtIndexes(indexes);  // highest index first
  // These lines are printed in any case, deliberately.
  for (Int i = 0; i < elements.count(); ++i) {
    printLine("remove at index " +
              textForm(indexes[indexes.size() - 1 - static_cast<std::size_t>(i)]));
    printLine("its " + detail::textFormOrTypeName(elements[i]));
  }
  std::ranges::reverse(elements.boxesToReorder());
  printLine("remove = " + textForm(indexes));
  printLine("elements = " + detail::textFormOrTypeName(elements));
  tell(&Observer::removedMultiple, indexes, elements);
}

}  // namespace tolvanite
