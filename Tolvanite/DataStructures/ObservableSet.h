// An unordered set that tells its observers of every change. It is the base of the views that
// filter and sort a set live.
//
//   auto tags = tolvanite::ObservableSet<std::string>::make();
//   tags->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto& /*set*/, const std::string& tag) { addBadge(tag); };
//     observer.removed = [&](auto& /*set*/, const std::string& tag) { removeBadge(tag); };
//   });
//   tags->insert("jazz");
//   tags->remove("jazz");
//
// Membership is decided by the elements' equality and hash. An element may carry more than those
// look at: `update` puts the new content in the place of the old.
//
// Every mutator changes the content first and then calls the observers, on the caller's thread and
// in the order of their registration. Only then does it report an error, so a batch that throws has
// inserted all that was new. To insert what is present is an error; to update what is absent
// inserts it; to remove what is absent prints a warning. A block may change the set again; the
// nested change is told to all before the outer pass goes on.
//
// One thread at a time.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/ObservableSetObserver.h>
#include <Tolvanite/DataStructures/SetCollection.h>
#include <Tolvanite/DataStructures/SetErrur.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementSetStore.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/Followed.h>
#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A reference type, made by `make`. Every operation on one element is constant on the average.
template <HashableElement T>
class ObservableSet final : public detail::Followed<ObservableSet<T>, ObservableSetObserver<T>,
                                                    detail::ObservableSetFollower<T>>,
                            public SetCollection<ObservableSet<T>, T> {
 public:
  /// What subscribers set up.
  using Observer = ObservableSetObserver<T>;
  /// The errors that are reported.
  using Errur = SetErrur;

  /// A set of these elements; of equal ones the first.
  static std::shared_ptr<ObservableSet> make(ElementSet<T> elements = {}) {
    return ObservableSet::owned(new ObservableSet(std::move(elements)));
  }

  /// Whether each change prints a line on standard output before it is told. The warnings about
  /// absent elements are printed in any case.
  bool logDelegateCalls = false;

  // Reading

  /// The content. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementSet<T>& elements() const noexcept { return elements_; }
  /// "ObservableSet(count=N)".
  std::string description() const { return "ObservableSet(count=" + textForm(this->count()) + ")"; }

  // Changing

  /// Inserts a new element. Throws `elementAlreadyPresent`, changes and tells nothing, when an
  /// equal one is present. Event: `inserted`.
  void insert(T element);
  /// Two texts in braces would make one: this is `insertMultiple`'s work.
  void insert(std::initializer_list<T> elements)
    requires detail::IsText<T>
  = delete;
  /// Inserts those that are new. Event: `insertedMultiple`, with all that were given; thereafter
  /// `elementsAlreadyPresent` is thrown for those that were present, or came before in the batch.
  void insertMultiple(const ElementArray<T>& elements);
  /// Puts an element in the place of the equal one, which it gives back. Event: `updated`. When
  /// there is none, inserts it, with the event `inserted`, and gives absent.
  Optional<T> update(T element);
  /// Updates one after the other and gives the old elements, absent for those that were not there;
  /// these are warned of and inserted, with the event `inserted`. Event in the end:
  /// `updatedMultiple`, with all that were given. While a view follows this set the process ends
  /// with the text "llll".
  std::vector<Optional<T>> updateMultiple(const ElementArray<T>& elements);
  /// Replaces everything; of equal elements the first is taken. Events: `replacedContent`, and when
  /// all have heard, `replacedContentOldContent`.
  void replaceContent(ElementSet<T> elements);
  /// Event: `removedAll`, also when there was nothing.
  void removeAll();
  /// Removes the equal element and gives it back. Event: `removed`. When there is none, warns and
  /// gives absent.
  Optional<T> remove(const T& element);
  /// Removes the equal elements and gives them back, with a warning for each that is absent. Event:
  /// `removedMultiple`, also when nothing was removed. Braces around a single element call the form
  /// for one; two texts in braces can be read as either: name the type,
  /// `ElementArray<std::string>{"a", "b"}`.
  ElementSet<T> remove(const ElementArray<T>& elements);
  /// The same for texts in braces.
  ElementSet<T> remove(std::initializer_list<T> elements)
    requires detail::IsText<T>
  {
    return remove(ElementArray<T>(elements));
  }

 private:
  friend class SetCollection<ObservableSet, T>;
  template <HashableElement U>
  friend class OptionallyFilteredSet_BasedOnObservableSet;
  template <HashableEquatableKeyedElement U>
  friend class OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet;
  using Followed = detail::Followed<ObservableSet, Observer, detail::ObservableSetFollower<T>>;
  using Followed::addFollower;
  using Followed::changes_;
  using Followed::tell;
  using Handle = detail::Handle<T>;
  using Store = detail::ElementSetStore<T>;

  const ElementSet<T>& shownSet() const noexcept { return elements_; }

  explicit ObservableSet(ElementSet<T> elements) : elements_(std::move(elements)) {}
  ~ObservableSet() override = default;

  void tellInserted(const Handle& element);
  // Puts a box in the place of the one that holds an equal element, in the views, too.
  Handle replaceBox(const Handle& element);

  template <typename Value>
  void log(std::string_view what, const Value& value) const {
    if (logDelegateCalls) printLine(std::string(what) + detail::textFormOrTypeName(value));
  }

  Store elements_;
};

// Implementation

template <HashableElement T>
void ObservableSet<T>::insert(T element) {
  const Handle handle = elements_.insertElement(std::move(element));
  // NOLINTNEXTLINE(bugprone-use-after-move): moved from only when it was inserted
  if (!handle) throw Errur::elementAlreadyPresent(detail::textFormOrTypeName(element));
  tellInserted(handle);
}

template <HashableElement T>
void ObservableSet<T>::tellInserted(const Handle& element) {
  log("🍌 inserted ", *element);
  tell(&Observer::inserted, [&](auto& follower) { follower.baseInserted(element); }, *element);
}

template <HashableElement T>
void ObservableSet<T>::insertMultiple(const ElementArray<T>& elements) {
  const detail::ElementStore<T> all(elements);
  detail::ElementStore<T> existing;
  for (Int i = 0; i < all.count(); ++i) {
    if (!elements_.insert(all.handleAt(i))) existing.append(all.handleAt(i));
  }
  log("🍌 inserted ", all);
  if (!existing.isEmpty()) log("🍌 alreadyExisting ", existing);
  // Those that were present are told of, too, deliberately.
  tell(
      &Observer::insertedMultiple,
      [&](auto& follower) { follower.baseInsertedMultiple(all, existing.isEmpty()); }, all);
  if (!existing.isEmpty()) {
    throw Errur::elementsAlreadyPresent(detail::joinedTexts(existing, ","));
  }
}

template <HashableElement T>
auto ObservableSet<T>::replaceBox(const Handle& element) -> Handle {
  auto old = elements_.replace(element);
  if (old) element->takePlaceFrom(*old.get());
  return old;
}

template <HashableElement T>
Optional<T> ObservableSet<T>::update(T element) {
  const auto handle = Handle::make(std::move(element));
  auto old = replaceBox(handle);
  if (!old) {
    elements_.insert(handle);
    tellInserted(handle);
    return {};
  }
  log("🍌 updated ", *handle);
  tell(&Observer::updated, [&](auto& follower) { follower.baseUpdated(handle, old); }, *handle);
  return std::move(old).take();
}

template <HashableElement T>
std::vector<Optional<T>> ObservableSet<T>::updateMultiple(const ElementArray<T>& elements) {
  const typename Followed::Pass pass(*this);  // It lasts for all of the events.
  const detail::ElementStore<T> all(elements);
  std::vector<Optional<T>> oldElements;
  oldElements.reserve(all.size());
  for (Int i = 0; i < all.count(); ++i) {
    const Handle handle = all.handleAt(i);
    if (auto old = replaceBox(handle)) {
      oldElements.emplace_back(std::move(old).take());
      continue;
    }
    printLine("warning: could not find old element");
    elements_.insert(handle);
    tellInserted(handle);
    oldElements.emplace_back();
    // Logged only for those that were absent, deliberately.
    log("🍌 updated ", *handle);
  }
  const ElementSet<T> updated(all);
  tell(&Observer::updatedMultiple, [](auto& follower) { follower.baseUpdatedMultiple(); }, updated);
  return oldElements;
}

template <HashableElement T>
void ObservableSet<T>::replaceContent(ElementSet<T> elements) {
  const typename Followed::Pass pass(*this);  // It lasts for both events.
  const ElementSet<T> old = std::exchange(elements_, Store(std::move(elements)));
  if (logDelegateCalls) printLine("🍌 replacedContent[OldContent]");
  tell(&Observer::replacedContent, [](auto& follower) { follower.baseReplacedContent(); });
  tell(&Observer::replacedContentOldContent, [](auto& /*follower*/) {}, old);
}

template <HashableElement T>
void ObservableSet<T>::removeAll() {
  const ElementSet<T> old = std::exchange(elements_, Store());
  if (logDelegateCalls) printLine("🍌 removedAll");
  tell(&Observer::removedAll, [](auto& follower) { follower.baseRemovedAll(); });
}

template <HashableElement T>
Optional<T> ObservableSet<T>::remove(const T& element) {
  Handle removed = elements_.remove(element);
  if (!removed) {
    detail::warnOfAbsent(element);
    return {};
  }
  log("🍌 remove ", element);
  if (this->observers.isEmpty()) return std::move(removed).take();
  // The argument may live in a view, which lets it go.
  const T told = element;
  tell(&Observer::removed, [&](auto& follower) { follower.baseRemoved(told, removed); }, told);
  return std::move(removed).take();
}

template <HashableElement T>
ElementSet<T> ObservableSet<T>::remove(const ElementArray<T>& elements) {
  const ElementArray<T> all = elements;
  Store removed;
  for (const T& element : all) {
    if (Handle handle = elements_.remove(element)) {
      log("🍌 remove ", element);
      removed.insert(std::move(handle));
    } else {
      detail::warnOfAbsent(element);
    }
  }
  tell(
      &Observer::removedMultiple, [&](auto& follower) { follower.baseRemovedMultiple(removed); },
      removed);
  return removed;
}

}  // namespace tolvanite
