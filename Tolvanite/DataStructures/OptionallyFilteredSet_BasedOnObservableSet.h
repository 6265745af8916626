// A live view of an `ObservableSet`: those of its elements that pass an optional filter. It follows
// its base and tells its own observers what each change means to the view.
//
//   using View = tolvanite::OptionallyFilteredSet_BasedOnObservableSet<Track>;
//   auto unheard = View::make(tracks, [](const Track& track) { return track.plays == 0; });
//   unheard->observers.createNew(badge, [&](auto& observer) {
//     observer.inserted = [&](View& view, const Track&) { badge->show(view.count()); };
//     observer.removed = [&](View& view, const Track&) { badge->show(view.count()); };
//   });
//   tracks->update(played);  // no longer passes: `removed`
//
// Some of what the view does is meant, however odd it looks, and to be known by its user:
// - An update of an element that passes before and after leaves the old content in the view; only
//   the event brings the new one.
// - An update of an element that passes neither before nor after is told as `updated`, though the
//   view does not hold it.
// - `removed` goes by the filter: for a filter that changes its mind, assign it anew.
// - `updateMultiple` on the base ends the process ("llll").
#pragma once

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <Tolvanite/DataStructures/ObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnObservableSetObserver.h>
#include <Tolvanite/DataStructures/UpdateOfPossiblyFilteredElementCase.h>
#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

/// A reference type, made by `make`; it keeps its base alive. Without a filter it holds nothing and
/// reads the base; with one it shares its elements with the base. Every change is followed at the
/// cost of one look into a hash table.
template <HashableElement T>
class OptionallyFilteredSet_BasedOnObservableSet final
    : public detail::KeptDuringPasses,
      public SetCollection<OptionallyFilteredSet_BasedOnObservableSet<T>, T>,
      private detail::ObservableSetFollower<T> {
 public:
  /// What subscribers set up.
  using Observer = OptionallyFilteredSet_BasedOnObservableSetObserver<T>;
  /// True for the elements that the view shows; an empty block stands for no filter.
  using FilterBlock = Block<bool(const T&)>;

  /// A view of `observableSet`. One filtering of the base.
  static std::shared_ptr<OptionallyFilteredSet_BasedOnObservableSet> make(
      std::shared_ptr<ObservableSet<T>> observableSet, FilterBlock filterBlock = nullptr) {
    auto view = KeptDuringPasses::owned(new OptionallyFilteredSet_BasedOnObservableSet(
        std::move(observableSet), std::move(filterBlock)));
    view->baseSet_->addFollower(view, *view);
    return view;
  }

  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The base, which the view keeps alive.
  const std::shared_ptr<ObservableSet<T>>& baseSet() const noexcept { return baseSet_; }
  /// The elements that pass. Absent without a filter, but for an empty set after the base's
  /// `removedAll`.
  Optional<ElementSet<T>> inElements() const {
    return inElements_ ? Optional<ElementSet<T>>(*inElements_) : Optional<ElementSet<T>>();
  }
  /// The filter; empty when there is none.
  const FilterBlock& filterBlock() const noexcept { return filterBlock_; }
  /// Filters the base anew and sends `filterChanged`, also when nothing changes.
  void setFilterBlock(FilterBlock filterBlock) {
    const Pass pass(*this);
    // The filter may throw, or ask the view.
    auto inElements = passing(filterBlock);
    filterBlock_ = std::move(filterBlock);
    inElements_ = std::move(inElements);
    tell(&Observer::filterChanged);
  }

  // Reading

  /// "OptionallyFilteredSet_BasedOnObservableSet(in count N, total count M)", or "...(NO FILTER,
  /// total count M)".
  std::string description() const {
    return "OptionallyFilteredSet_BasedOnObservableSet(" +
           (filterBlock_ ? "in count " + textForm(this->count()) : "NO FILTER") + ", total count " +
           textForm(baseSet_->count()) + ")";
  }

  // Changing the base

  /// The base's `insert`, whether the element passes or not.
  void insert(T element) { baseSet_->insert(std::move(element)); }
  /// The same for one after the other, up to the first that is present, for which it throws.
  void insert(const ElementArray<T>& elements) {
    const Pass pass(*this);  // A block may let the view go.
    for (const T& element : ElementArray<T>(elements)) baseSet_->insert(element);
  }
  /// The same for texts in braces.
  void insert(std::initializer_list<T> elements)
    requires detail::IsText<T>
  {
    insert(ElementArray<T>(elements));
  }

 private:
  friend class SetCollection<OptionallyFilteredSet_BasedOnObservableSet, T>;
  using Handle = detail::Handle<T>;
  using Store = detail::ElementSetStore<T>;

  OptionallyFilteredSet_BasedOnObservableSet(std::shared_ptr<ObservableSet<T>> observableSet,
                                             FilterBlock filterBlock)
      : baseSet_(std::move(observableSet)), filterBlock_(std::move(filterBlock)) {
    if (!baseSet_) fatalFailure("A view needs a base");
    inElements_ = passing(filterBlock_);
  }
  ~OptionallyFilteredSet_BasedOnObservableSet() override = default;

  void baseReplacedContent() override;
  void baseRemovedAll() override;
  void baseInserted(const Handle& element) override;
  void baseInsertedMultiple(const detail::ElementStore<T>& elements, bool areAllNew) override;
  void baseUpdated(const Handle& element, const Handle& old) override;
  void baseUpdatedMultiple() override;
  void baseRemoved(const T& element, const Handle& removed) override;
  void baseRemovedMultiple(const ElementSet<T>& removed) override;

  const ElementSet<T>& shownSet() const noexcept {
    return filterBlock_ ? *inElements_ : baseSet_->elements();
  }
  // Absent without a filter.
  Optional<Store> passing(const FilterBlock& filterBlock) const {
    return filterBlock ? Optional<Store>(baseSet_->elements_.passing(filterBlock))
                       : Optional<Store>();
  }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) {
    detail::notify(observers, event, *this, arguments...);
  }

  const std::shared_ptr<ObservableSet<T>> baseSet_;
  Optional<Store> inElements_;
  FilterBlock filterBlock_;
};

// Implementation: following the base

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseReplacedContent() {
  inElements_ = passing(filterBlock_);
  tell(&Observer::replacedContent);
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseRemovedAll() {
  inElements_ = Store();  // Without a filter, too, deliberately.
  tell(&Observer::removedAll);
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseInserted(const Handle& element) {
  if (filterBlock_) {
    if (!filterBlock_(*element)) return;
    inElements_->insert(element);
  }
  tell(&Observer::inserted, *element);
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseInsertedMultiple(
    const detail::ElementStore<T>& elements, bool /*areAllNew*/) {
  if (!filterBlock_) return tell(&Observer::insertedMultiple, elements);
  const auto inserted = elements.passing(filterBlock_);
  if (inserted.isEmpty()) return;
  for (Int i = 0; i < inserted.count(); ++i) inElements_->insert(inserted.handleAt(i));
  tell(&Observer::insertedMultiple, inserted);
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseUpdated(const Handle& element,
                                                                const Handle& /*old*/) {
  if (!filterBlock_) return tell(&Observer::updated, *element);
  const bool passes = filterBlock_(*element);
  switch (updateOfPossiblyFilteredElementCase(passes, inElements_->contains(*element))) {
    case UpdateOfPossiblyFilteredElementCase::inserted:
      inElements_->insert(element);
      return tell(&Observer::inserted, *element);
    case UpdateOfPossiblyFilteredElementCase::removed:
      inElements_->remove(*element);
      return tell(&Observer::removed, *element);
    case UpdateOfPossiblyFilteredElementCase::updated:
      // The old content stays in the view, deliberately.
    case UpdateOfPossiblyFilteredElementCase::stillNotIncluded:
      // Told though the view does not hold it, deliberately.
      return tell(&Observer::updated, *element);
  }
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseUpdatedMultiple() {
  // A base with such a view must not be updated in a batch, deliberately.
  fatalFailure("llll");
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseRemoved(const T& element,
                                                                const Handle& /*removed*/) {
  if (filterBlock_) {
    if (!filterBlock_(element)) return;
    inElements_->remove(element);
  }
  tell(&Observer::removed, element);
}

template <HashableElement T>
void OptionallyFilteredSet_BasedOnObservableSet<T>::baseRemovedMultiple(
    const ElementSet<T>& removed) {
  if (!filterBlock_) return tell(&Observer::removedMultiple, removed);
  const Store told = Store(removed).passing(filterBlock_);
  for (const T& element : told) inElements_->remove(element);
  tell(&Observer::removedMultiple, told);
}

}  // namespace tolvanite
