// A live view of a `Kerray` as a set: those of its elements that pass an optional filter. It tells
// its observers what changed in terms of membership, without indexes.
//
//   using View = tolvanite::OptionallyFilteredSet_BasedOnKerray<Track>;
//   auto favourites = View::make(tracks, [](const Track& track) { return track.stars == 5; });
//   favourites->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](View&, const Track& track) { download(track); };
//   });
//   tracks->update(starred);  // passes now: `inserted`
//
// Some of what the view does is meant, however odd it looks, and to be known by its user:
// - Without a filter, what is removed from the base stays in the view, and what is updated has its
//   old content there, until the next rebuild. A view that is to hold exactly the elements of the
//   base needs a filter, if only one that lets all pass.
// - With a filter, an update of an element that passes before and after leaves the old content in
//   the view; only the event brings the new one.
// - The batch events come also with empty sets.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnKerrayObserver.h>
#include <Tolvanite/DataStructures/SetCollection.h>
#include <Tolvanite/DataStructures/UpdateOfPossiblyFilteredElementCase.h>
#include <Tolvanite/DataStructures/detail/ElementSetStore.h>
#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

/// A reference type, made by `make`; it keeps its base alive and shares its elements. Every change
/// of one element is followed at the cost of one look into a hash table; moves change nothing.
template <HashableEquatableKeyedElement T>
class OptionallyFilteredSet_BasedOnKerray final
    : public detail::KeptDuringPasses,
      public SetCollection<OptionallyFilteredSet_BasedOnKerray<T>, T>,
      private detail::KerrayFollower<T> {
 public:
  /// What subscribers set up.
  using Observer = OptionallyFilteredSet_BasedOnKerrayObserver<T>;
  /// True for the elements that the view shows; an empty block stands for no filter.
  using FilterBlock = Block<bool(const T&)>;

  /// A view of `baseKerray`. One filtering of the base.
  static std::shared_ptr<OptionallyFilteredSet_BasedOnKerray> make(
      std::shared_ptr<Kerray<T>> baseKerray, FilterBlock filterBlock = nullptr) {
    auto view = KeptDuringPasses::owned(
        new OptionallyFilteredSet_BasedOnKerray(std::move(baseKerray), std::move(filterBlock)));
    view->baseKerray_->addFollower(view, *view);
    return view;
  }

  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The base, which the view keeps alive.
  const std::shared_ptr<Kerray<T>>& baseKerray() const noexcept { return baseKerray_; }
  /// The content. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementSet<T>& inSet() const noexcept { return inSet_; }
  /// The filter; empty when there is none.
  const FilterBlock& filterBlock() const noexcept { return filterBlock_; }
  /// Filters the base anew and sends `filterChanged`, unless there is no filter before and after.
  void setFilterBlock(FilterBlock filterBlock) {
    const Pass pass(*this);
    const bool areAbsent = !filterBlock && !filterBlock_;
    filterBlock_ = std::move(filterBlock);
    if (areAbsent) return;
    rebuild();
    tell(&Observer::filterChanged);
  }

  // Reading

  /// "FilterSet(in N of total M)".
  std::string description() const {
    return "FilterSet(in " + textForm(this->count()) + " of total " +
           textForm(baseKerray_->count()) + ")";
  }

 private:
  friend class SetCollection<OptionallyFilteredSet_BasedOnKerray, T>;
  using Handle = detail::Handle<T>;
  using Store = detail::ElementStore<T>;
  using SetStore = detail::ElementSetStore<T>;

  OptionallyFilteredSet_BasedOnKerray(std::shared_ptr<Kerray<T>> baseKerray,
                                      FilterBlock filterBlock)
      : baseKerray_(std::move(baseKerray)), filterBlock_(std::move(filterBlock)) {
    if (!baseKerray_) fatalFailure("A view needs a base");
    rebuild();
  }
  ~OptionallyFilteredSet_BasedOnKerray() override = default;

  void baseReplacedContent() override;
  void baseRemovedAll() override;
  void baseInserted(Int index, const Handle& element) override;
  void baseInsertedMultipleContinuous(Int /*index*/, const Store& elements) override {
    baseInsertedMultiple(elements);
  }
  void baseInsertedMultipleDistributed(const std::vector<Int>& /*indexes*/,
                                       const Store& elements) override {
    baseInsertedMultiple(elements);
  }
  void baseRemoved(Int index, const Handle& element) override;
  void baseRemovedMultiple(const std::vector<Int>& indexes, const Store& elements) override;
  void baseUpdated(Int index, const Handle& element, const Handle& old) override;
  void baseUpdatedMultiple(const std::vector<Int>& indexes, const Store& elements) override;
  // A set has no order.
  void baseMoved(Int /*from*/, Int /*to*/, const Handle& /*element*/) override {}
  void baseMovedMultiple(const std::vector<Int>& /*fromIndexes*/, Int /*to*/,
                         const Store& /*elements*/) override {}

  void baseInsertedMultiple(const Store& elements);
  const ElementSet<T>& shownSet() const noexcept { return inSet_; }
  void rebuild() {
    const Store base(baseKerray_->array());
    inSet_ = SetStore(ElementSet<T>(filterBlock_ ? base.passing(filterBlock_) : base));
  }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) {
    detail::notify(observers, event, *this, arguments...);
  }

  const std::shared_ptr<Kerray<T>> baseKerray_;
  SetStore inSet_;
  FilterBlock filterBlock_;
};

// Implementation: following the base

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseReplacedContent() {
  rebuild();
  tell(&Observer::replacedContent);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseRemovedAll() {
  rebuild();
  tell(&Observer::removedAll);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseInserted(Int /*index*/, const Handle& element) {
  if (filterBlock_ && !filterBlock_(*element)) return;
  inSet_.insert(element);
  tell(&Observer::inserted, *element);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseInsertedMultiple(const Store& elements) {
  const ElementSet<T> passing(filterBlock_ ? elements.passing(filterBlock_) : elements);
  inSet_.insertAll(passing);
  tell(&Observer::insertedMultiple, passing);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseRemoved(Int /*index*/, const Handle& element) {
  // Without a filter the element stays, here and in the next two, deliberately.
  if (filterBlock_ && !inSet_.remove(*element)) return;
  tell(&Observer::removed, *element);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseRemovedMultiple(
    const std::vector<Int>& /*indexes*/, const Store& elements) {
  SetStore removed;
  for (Int i = 0; i < elements.count(); ++i) {
    if (!filterBlock_ || inSet_.remove(elements[i])) removed.insert(elements.handleAt(i));
  }
  tell(&Observer::removedMultiple, removed);
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseUpdated(Int /*index*/, const Handle& element,
                                                         const Handle& /*old*/) {
  if (!filterBlock_) return tell(&Observer::updated, *element);
  const bool passes = filterBlock_(*element);
  switch (updateOfPossiblyFilteredElementCase(passes, inSet_.contains(*element))) {
    case UpdateOfPossiblyFilteredElementCase::updated:
      // The old content stays in the view, deliberately.
      return tell(&Observer::updated, *element);
    case UpdateOfPossiblyFilteredElementCase::inserted:
      inSet_.insert(element);
      return tell(&Observer::inserted, *element);
    case UpdateOfPossiblyFilteredElementCase::removed:
      inSet_.remove(*element);
      return tell(&Observer::removed, *element);
    case UpdateOfPossiblyFilteredElementCase::stillNotIncluded:
      return;
  }
}

template <HashableEquatableKeyedElement T>
void OptionallyFilteredSet_BasedOnKerray<T>::baseUpdatedMultiple(
    const std::vector<Int>& /*indexes*/, const Store& elements) {
  if (!filterBlock_) return tell(&Observer::updatedMultiple, ElementSet<T>(elements));
  SetStore toRemove;
  SetStore toUpdate;
  SetStore toInsert;
  for (Int i = 0; i < elements.count(); ++i) {
    const Handle element = elements.handleAt(i);
    const bool passes = filterBlock_(*element);
    switch (updateOfPossiblyFilteredElementCase(passes, inSet_.contains(*element))) {
      case UpdateOfPossiblyFilteredElementCase::updated:
        toUpdate.insert(element);
        break;
      case UpdateOfPossiblyFilteredElementCase::inserted:
        toInsert.insert(element);
        break;
      case UpdateOfPossiblyFilteredElementCase::removed:
        toRemove.insert(element);
        break;
      case UpdateOfPossiblyFilteredElementCase::stillNotIncluded:
        break;
    }
  }
  // All three are told, each behind its own change, also when they are empty.
  for (const T& element : toRemove) inSet_.remove(element);
  tell(&Observer::removedMultiple, toRemove);
  tell(&Observer::updatedMultiple, toUpdate);
  inSet_.insertAll(toInsert);
  tell(&Observer::insertedMultiple, toInsert);
}

}  // namespace tolvanite
