// The keyed array: an observable sequence of elements that are known by their keys. It tells its
// observers of every change by index, so that a table, a list or a view can follow step by step.
// Its order is what its callers make it.
//
//   auto tracks = tolvanite::Kerray<Track>::make();
//   tracks->observers.createNew(controller, [&](tolvanite::KerrayObserver<Track>& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int index, const Track& track) {
//       table.insertRow(index, track.title);
//     };
//   });
//   tracks->append({.key = 1, .title = "Overture"});   // the table gets its row
//   tracks->update({.key = 1, .title = "Overtüre"});
//   tracks->removeElementWithKey(1);
//
// Every mutator changes the content first and then calls the observers, on the caller's thread and
// in the order of their registration. Only then does it report an error, so a batch that throws has
// done its work for all elements but the offending ones. A block may change the Kerray again; the
// nested change is told to all before the outer pass goes on with its own arguments. An exception
// from a block leaves the mutator at once, with the content changed and consistent.
//
// One thread at a time.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/KerrayErrur.h>
#include <Tolvanite/DataStructures/KerrayObserver.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/ElementTable.h>
#include <Tolvanite/DataStructures/detail/Followed.h>
#include <Tolvanite/DataStructures/detail/IndexSeeker.h>
#include <Tolvanite/DataStructures/detail/Passes.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A reference type, made by `make`; n is its count in the costs below. Elements stay where they
/// are in memory until they are updated or removed. An index out of range is fatal, unless an
/// operation says otherwise.
template <KeyedElement T>
class Kerray final
    : public detail::Followed<Kerray<T>, KerrayObserver<T>, detail::KerrayFollower<T>>,
      public IndexedCollection<Kerray<T>, T> {
 public:
  using IndexedCollection<Kerray, T>::count;
  using IndexedCollection<Kerray, T>::isEmpty;
  /// The type of the keys.
  using Key = KeyType<T>;
  /// What subscribers set up.
  using Observer = KerrayObserver<T>;
  /// The errors that are reported.
  using Errur = KerrayErrur;

  /// An empty Kerray.
  static std::shared_ptr<Kerray> make() { return Kerray::owned(new Kerray()); }
  /// A Kerray of these elements, whose keys are trusted to be distinct.
  static std::shared_ptr<Kerray> make(ElementArray<T> elements) {
    auto kerray = make();
    kerray->fill(std::move(elements));
    return kerray;
  }

  // Reading

  /// The content in order. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementArray<T>& array() const noexcept { return array_; }

  /// Whether an element with the same key is present; the element itself is not compared.
  bool contains(const T& element) const { return containsWith(ElementTraits<T>::key(element)); }
  /// Whether an element with this key is present.
  bool containsWith(const Key& key) const { return dictionary_.find(key) != nullptr; }
  /// The element with this key, or null. Good until the next change.
  const T* elementWithKey(const Key& key) const {
    const auto* box = dictionary_.find(key);
    return box ? &box->value : nullptr;
  }

  /// The index of the first element with the same key, or absent. Constant on the average for
  /// elements that little has been inserted or removed before since they were last looked for.
  Optional<Int> indexOf(const T& element) const {
    return indexOfKey(ElementTraits<T>::key(element));
  }
  /// The same for a key.
  Optional<Int> indexOfKey(const Key& key) const {
    const Int index = firstIndexWithKey(key);
    return index < 0 ? Optional<Int>() : Optional<Int>(index);
  }

  /// The element at `index`; out of range is fatal.
  const T& atIndex(Int index) const { return array_[index]; }

  /// "OrderedSet(count: N, elements: <none>)" or "... <not CustomStringConvertible>)": this form
  /// never shows elements, deliberately; `description2` does.
  std::string description() const {
    return detail::countedDescription("OrderedSet", count(),
                                      isEmpty() ? detail::noElements : detail::elementsWithoutText);
  }
  /// The same with the text forms of the elements, of six and more the first five.
  std::string description2() const
    requires HasTextForm<T>
  {
    return detail::countedDescription("OrderedSet", count(), detail::elementsText(*this, 5));
  }

  // Inserting. Event: `inserted`, or one `insertedMultiple...` for a batch.

  /// Inserts behind all others. Throws `elementAlreadyPresent`, and changes nothing, when its key
  /// is present. Constant on the average.
  void append(const T& element) { insertChecked(element, count()); }
  /// The same.
  void append(T&& element) { insertChecked(std::move(element), count()); }
  /// Inserts before the element at `atIndex`. Throws like `append`.
  void insert(const T& element, Int atIndex) { insertChecked(element, atIndex); }
  /// The same.
  void insert(T&& element, Int atIndex) { insertChecked(std::move(element), atIndex); }
  /// The same for an element whose key is known to be absent. If it is not, both elements stand in
  /// the array, and the key leads to the later one.
  void appendWithoutContainsCheck(T element) {
    insertWithoutContainsCheck(std::move(element), count());
  }
  /// The same before the element at `atIndex`.
  void insertWithoutContainsCheck(T element, Int atIndex);

  /// `insertMultiple` behind all others, with the test.
  void appendMultiple(ElementArray<T> elements) {
    insertMultiple(std::move(elements), count(), true);
  }
  /// Inserts as one block before the element at `atIndex`. With the test, elements that are present
  /// are left out, and after all others are inserted and told, `elementsAlreadyPresent` is thrown
  /// for them; elements that repeat within the batch are not noticed. When nothing is left to
  /// insert, no event is sent. One shift for the whole batch.
  void insertMultiple(ElementArray<T> elements, Int atIndex, bool testForExistingElements = true);
  /// Inserts one after the other, each at its index of the growing array. With the test as above;
  /// the other indexes stay as given. Sequences of different lengths change nothing and report
  /// nothing, deliberately. One pass when the indexes are ascending.
  void insertMultipleDistributed(ElementArray<T> elements, std::vector<Int> atIndexes,
                                 bool testForExistingElements = true);

  // Updating. Event: `updated` or `updatedMultiple`.

  /// Puts `element` in the place of the first one with its key and returns it; absent, without an
  /// event, when there is none. Constant on the average.
  Optional<T> update(T element);
  /// Puts `element` at `atIndex` and returns it. Its key is not looked at: with another key than
  /// before, the old key still leads to the old element.
  T update(T element, Int atIndex);
  /// Updates those that are present, skips the others, and returns the updated ones. The event is
  /// sent also when there are none.
  ElementArray<T> update(const ElementArray<T>& elements);
  /// Lets `change` work on the element with this key in its place; nothing is copied unless a view
  /// or a copy of the content shares it. False, without an event, when there is none. To change the
  /// key, or to use the Kerray from within `change`, is fatal. If `change` throws, no event is
  /// sent.
  template <std::invocable<T&> Change>
  bool updateWithKey(const Key& key, Change&& change);

  // Moving. Event: `moved` or `movedMultiple`.

  /// Moves one element so that it stands at `to`. Indexes out of bounds are fatal, with the text
  /// "from index F out of bounds." or "to index T out of bounds."; equal ones send nothing.
  void move(Int from, Int to);
  /// Moves the elements at strictly ascending indexes, in their order, so that the first one stands
  /// at `to` of the array without them. Other orders are fatal: "[3, 1] not in ascending order!".
  /// Mind that braces around a single index or element, here as in `update` and `remove`, call the
  /// form for one.
  void move(const std::vector<Int>& fromIndexes, Int to);

  // Replacing and removing

  /// Replaces everything. Event: `replacedContent`, also when nothing changed. Of elements with one
  /// key all stand in the array, and the key leads to the last one.
  void replaceContent(ElementArray<T> elements);
  /// Event: `removedAll`, also when there was nothing.
  void removeAll();
  /// Removes the element and returns it; absent, without an event, when there is none. Event:
  /// `removed`. One shift.
  Optional<T> removeElementWithKey(const Key& key);
  /// The same for the key of an element.
  Optional<T> remove(const T& element) {
    return removeElementWithKey(ElementTraits<T>::key(element));
  }
  /// The same by index; absent when `index` is not below the count.
  Optional<T> removeAtIndex(Int index);
  /// Removes the elements with the keys of these and returns them, highest index first. Event:
  /// `removedMultiple`. An element that is not present is fatal, with the text "llll", and nothing
  /// is removed then. One pass.
  ElementArray<T> remove(const ElementArray<T>& elements);
  /// The same by index, in any order. An index that is given twice removes twice, the second time
  /// what has moved up. The event is sent also for no index.
  ElementArray<T> removeAtIndexes(std::vector<Int> indexes);

 private:
  friend class IndexedCollection<Kerray, T>;
  template <EquatableKeyedElement U>
  friend class OptionallyFilteredOptionallySortedArray_BasedOnKerray;
  template <HashableEquatableKeyedElement U>
  friend class OptionallyFilteredSet_BasedOnKerray;
  using Followed = detail::Followed<Kerray, Observer, detail::KerrayFollower<T>>;
  using Followed::addFollower;
  using Followed::changes_;
  using Followed::tell;
  using Handle = detail::Handle<T>;
  using Box = detail::Box<T>;
  using Store = detail::ElementStore<T>;

  const ElementArray<T>& shownArray() const noexcept { return array_; }

  Kerray() = default;
  ~Kerray() override = default;

  template <typename Element>
  void insertChecked(Element&& element, Int atIndex);
  void tellInserted(Int index, const Handle& element);
  void tellUpdated(Int index, const Handle& element, const Handle& old);
  std::pair<Store, Store> split(ElementArray<T> elements, bool testForExistingElements,
                                std::vector<Int>* indexes = nullptr) const;
  static void throwIfPresent(const Store& present);
  [[noreturn]] static void failChangedKey();

  void fill(ElementArray<T> elements);
  Int firstIndexWithKey(const Key& key) const;
  // Whether the two stores, and nobody else, hold this element, so that it may change in its box.
  bool isUnshared(const Box* box) const {
    return box->references.value() == 2 && !array_.isShared() && detail::passesUnderWay == 0;
  }
  // Passes under way may be telling of what leaves the array.
  template <typename Content>
  static void keepDuringPasses(const Content& content) {
    if (detail::passesUnderWay > 0) {
      detail::keepUntilPassesEnd(std::make_shared<Content>(content));
    }
  }
  Handle replaceBox(Int index, const Handle& element);
  Handle storeAtIndex(Int index, T element, Handle& old);
  void addToDictionary(const Handle& element, Int index) {
    if (!dictionary_.set(element, index)) keysMayRepeat_ = true;
  }

  detail::ElementStore<T> array_;
  detail::KeyIndex<T> dictionary_;
  // Set when a trusted caller broke the trust: then keys are looked for by scanning the array.
  bool keysMayRepeat_ = false;
  mutable detail::IndexSeeker seeker_;
};

// Implementation

template <KeyedElement T>
void Kerray<T>::tellInserted(Int index, const Handle& element) {
  tell(
      &Observer::inserted, [&](auto& follower) { follower.baseInserted(index, element); }, index,
      *element);
}

template <KeyedElement T>
void Kerray<T>::tellUpdated(Int index, const Handle& element, const Handle& old) {
  tell(
      &Observer::updated, [&](auto& follower) { follower.baseUpdated(index, element, old); }, index,
      *element);
}

template <KeyedElement T>
template <typename Element>
void Kerray<T>::insertChecked(Element&& element, Int atIndex) {
  dictionary_.reserveOne();
  const auto spot = dictionary_.spotOf(ElementTraits<T>::key(element));
  if (dictionary_.boxAt(spot)) {
    throw Errur::elementAlreadyPresent(detail::textFormOrTypeName(element));
  }
  const auto handle = Handle::make(std::forward<Element>(element));
  array_.insert(atIndex, handle);
  dictionary_.insertAt(spot, handle, atIndex);
  tellInserted(atIndex, handle);
}

template <KeyedElement T>
void Kerray<T>::insertWithoutContainsCheck(T element, Int atIndex) {
  const auto handle = Handle::make(std::move(element));
  array_.insert(atIndex, handle);
  addToDictionary(handle, atIndex);
  tellInserted(atIndex, handle);
}

template <KeyedElement T>
void Kerray<T>::insertMultiple(ElementArray<T> elements, Int atIndex,
                               bool testForExistingElements) {
  auto [fresh, present] = split(std::move(elements), testForExistingElements);
  if (!fresh.isEmpty()) {
    array_.insert(atIndex, fresh);
    dictionary_.reserve(count());
    for (Int i = 0; i < fresh.count(); ++i) {
      addToDictionary(fresh.handleAt(i), atIndex + i);
    }
    tell(
        &Observer::insertedMultipleContinuous,
        [&](auto& follower) { follower.baseInsertedMultipleContinuous(atIndex, fresh); }, atIndex,
        fresh);
  }
  throwIfPresent(present);
}

template <KeyedElement T>
void Kerray<T>::insertMultipleDistributed(ElementArray<T> elements, std::vector<Int> atIndexes,
                                          bool testForExistingElements) {
  if (elements.size() != atIndexes.size()) return;  // In silence, deliberately.
  auto [fresh, present] = split(std::move(elements), testForExistingElements, &atIndexes);
  if (!fresh.isEmpty()) {
    array_.insertEach(atIndexes, fresh);
    dictionary_.reserve(count());
    for (Int i = 0; i < fresh.count(); ++i) {
      addToDictionary(fresh.handleAt(i), atIndexes[static_cast<std::size_t>(i)]);
    }
    tell(
        &Observer::insertedMultipleDistributed,
        [&](auto& follower) { follower.baseInsertedMultipleDistributed(atIndexes, fresh); },
        atIndexes, fresh);
  }
  throwIfPresent(present);
}

// The elements to insert and those that are present already. Of `indexes`, which stand parallel to
// the elements, those of the former are kept.
template <KeyedElement T>
auto Kerray<T>::split(ElementArray<T> elements, bool testForExistingElements,
                      std::vector<Int>* indexes) const -> std::pair<Store, Store> {
  Store all(std::move(elements));
  const auto isPresent = [&](Int i) {
    return containsWith(ElementTraits<T>::key(all.boxAt(i)->value));
  };
  Int first = 0;
  while (testForExistingElements && first < all.count() && !isPresent(first)) ++first;
  if (!testForExistingElements || first == all.count()) return {std::move(all), Store()};
  Store fresh;
  Store present;
  std::vector<Int> freshIndexes;
  for (Int i = 0; i < all.count(); ++i) {
    const bool isFresh = !isPresent(i);
    (isFresh ? fresh : present).append(all.handleAt(i));
    if (isFresh && indexes) freshIndexes.push_back((*indexes)[static_cast<std::size_t>(i)]);
  }
  if (indexes) *indexes = std::move(freshIndexes);
  return {std::move(fresh), std::move(present)};
}

template <KeyedElement T>
void Kerray<T>::throwIfPresent(const Store& present) {
  if (present.isEmpty()) return;
  throw Errur::elementsAlreadyPresent(present.count(), detail::joinedTexts(present, ","));
}

// Puts a box in the place of the one at `index`, which it gives back. The new one takes over where
// the old one stood in the views, too.
template <KeyedElement T>
auto Kerray<T>::replaceBox(Int index, const Handle& element) -> Handle {
  auto old = array_.replace(index, element);
  keepDuringPasses(old);
  element->takePlaceFrom(*old.get());
  if (!(ElementTraits<T>::key(*old) == ElementTraits<T>::key(*element))) keysMayRepeat_ = true;
  dictionary_.set(element, index);
  return old;
}

// Stores `element` at `index`, in the box that stands there if nobody else can see it; `old` is set
// to the box that was there before. Gives the box of the element.
template <KeyedElement T>
auto Kerray<T>::storeAtIndex(Int index, T element, Handle& old) -> Handle {
  if constexpr (std::is_nothrow_move_assignable_v<T>) {
    Box* box = array_.boxAt(index);
    if (isUnshared(box) && dictionary_.find(ElementTraits<T>::key(element)) == box) {
      box->value = std::move(element);
      old = Handle::sharing(box);
      return old;
    }
  }
  auto handle = Handle::make(std::move(element));
  old = replaceBox(index, handle);
  return handle;
}

template <KeyedElement T>
Optional<T> Kerray<T>::update(T element) {
  const Int index = firstIndexWithKey(ElementTraits<T>::key(element));
  if (index < 0) return {};
  return update(std::move(element), index);
}

template <KeyedElement T>
T Kerray<T>::update(T element, Int atIndex) {
  if (atIndex < 0 || atIndex >= count()) fatalIndexOutOfRange(atIndex, count());
  Handle old;
  const Handle handle = storeAtIndex(atIndex, std::move(element), old);
  tellUpdated(atIndex, handle, old);
  return *handle;
}

template <KeyedElement T>
ElementArray<T> Kerray<T>::update(const ElementArray<T>& elements) {
  std::vector<Int> indexes;
  Store updated;
  for (const T& element : elements) {
    const Int index = firstIndexWithKey(ElementTraits<T>::key(element));
    if (index < 0) continue;
    Handle old;
    updated.append(storeAtIndex(index, element, old));
    indexes.push_back(index);
  }
  tell(
      &Observer::updatedMultiple,
      [&](auto& follower) { follower.baseUpdatedMultiple(indexes, updated); }, indexes, updated);
  return updated;
}

template <KeyedElement T>
template <std::invocable<T&> Change>
bool Kerray<T>::updateWithKey(const Key& key, Change&& change) {
  const Int index = firstIndexWithKey(key);
  if (index < 0) return false;
  Box* box = array_.boxAt(index);
  if (isUnshared(box) && !keysMayRepeat_) {
    // No reference is counted: what nested changes take out of the array lives until this pass
    // ends.
    const detail::PassUnderWay pass;
    const Key keyBefore = ElementTraits<T>::key(box->value);
    const std::uint64_t changesBefore = changes_;
    std::forward<Change>(change)(box->value);
    if (!(ElementTraits<T>::key(box->value) == keyBefore) || changes_ != changesBefore) {
      failChangedKey();
    }
    tell(
        &Observer::updated,
        [&](auto& follower) {
          const auto handle = Handle::sharing(box);
          follower.baseUpdated(index, handle, handle);
        },
        index, box->value);
  } else {
    const auto before = array_.handleAt(index);
    const std::uint64_t changesBefore = changes_;
    T element = *before;
    std::forward<Change>(change)(element);
    if (!(ElementTraits<T>::key(element) == ElementTraits<T>::key(*before)) ||
        changes_ != changesBefore) {
      failChangedKey();
    }
    const auto handle = Handle::make(std::move(element));
    const auto old = replaceBox(index, handle);
    tellUpdated(index, handle, old);
  }
  return true;
}

template <KeyedElement T>
void Kerray<T>::move(Int from, Int to) {
  if (from >= count()) detail::failOutOfBounds("from", from);
  // A target equal to the count passes here and fails in the array, deliberately.
  if (to > count()) detail::failOutOfBounds("to", to);
  if (from == to) return;
  array_.move(from, to);
  const auto handle = array_.handleAt(to);
  const auto spot = dictionary_.spotOf(ElementTraits<T>::key(*handle));
  if (dictionary_.boxAt(spot) == handle.get()) dictionary_.setLastIndexAt(spot, to);
  tell(
      &Observer::moved, [&](auto& follower) { follower.baseMoved(from, to, handle); }, from, to,
      *handle);
}

template <KeyedElement T>
void Kerray<T>::move(const std::vector<Int>& fromIndexes, Int to) {
  if (to > count()) detail::failOutOfBounds("to", to);
  if (!Store::isStrictlyAscending(fromIndexes)) {
    fatalFailure(textForm(fromIndexes) + " not in ascending order!");
  }
  const Store moved = array_.moveAscending(fromIndexes, to);
  tell(
      &Observer::movedMultiple,
      [&](auto& follower) { follower.baseMovedMultiple(fromIndexes, to, moved); }, fromIndexes, to,
      moved);
}

template <KeyedElement T>
void Kerray<T>::fill(ElementArray<T> elements) {
  keepDuringPasses(array_);
  array_ = Store(std::move(elements));
  dictionary_ = {};
  dictionary_.reserve(count());
  keysMayRepeat_ = false;
  for (Int i = 0; i < count(); ++i) {
    addToDictionary(array_.handleAt(i), i);
  }
}

template <KeyedElement T>
void Kerray<T>::replaceContent(ElementArray<T> elements) {
  fill(std::move(elements));
  tell(&Observer::replacedContent, [](auto& follower) { follower.baseReplacedContent(); });
}

template <KeyedElement T>
void Kerray<T>::removeAll() {
  fill({});
  tell(&Observer::removedAll, [](auto& follower) { follower.baseRemovedAll(); });
}

template <KeyedElement T>
Optional<T> Kerray<T>::removeAtIndex(Int index) {
  if (index >= count()) return {};
  auto handle = array_.removeAt(index);
  keepDuringPasses(handle);
  dictionary_.remove(ElementTraits<T>::key(*handle));
  tell(
      &Observer::removed, [&](auto& follower) { follower.baseRemoved(index, handle); }, index,
      *handle);
  return std::move(handle).take();
}

template <KeyedElement T>
Optional<T> Kerray<T>::removeElementWithKey(const Key& key) {
  if (!containsWith(key)) return {};
  const Int index = firstIndexWithKey(key);
  if (index < 0) detail::failInconsistent(key);
  return removeAtIndex(index);
}

template <KeyedElement T>
ElementArray<T> Kerray<T>::remove(const ElementArray<T>& elements) {
  std::vector<Int> indexes;
  for (const T& element : elements) {
    const Int index = firstIndexWithKey(ElementTraits<T>::key(element));
    if (index >= 0) indexes.push_back(index);
  }
  if (indexes.size() != elements.size()) fatalFailure("llll");
  // An element that is named twice is removed once.
  std::ranges::sort(indexes);
  indexes.erase(std::ranges::unique(indexes).begin(), indexes.end());
  return removeAtIndexes(std::move(indexes));
}

template <KeyedElement T>
ElementArray<T> Kerray<T>::removeAtIndexes(std::vector<Int> indexes) {
  std::ranges::sort(indexes);
  Store removed = array_.removeAtAscending(indexes);
  keepDuringPasses(removed);
  for (const T& element : removed) dictionary_.remove(ElementTraits<T>::key(element));
  std::ranges::reverse(indexes);
  tell(
      &Observer::removedMultiple,
      [&](auto& follower) { follower.baseRemovedMultiple(indexes, removed); }, indexes, removed);
  return removed;
}

template <KeyedElement T>
Int Kerray<T>::firstIndexWithKey(const Key& key) const {
  if (!keysMayRepeat_) {
    if (dictionary_.count() == 0) return -1;
    const auto spot = dictionary_.spotOf(key);
    if (!dictionary_.boxAt(spot)) return -1;
    if (const Int index = seeker_.indexAt(spot, dictionary_, array_); index >= 0) return index;
  }
  for (Int i = 0; i < count(); ++i) {
    if (ElementTraits<T>::key(array_.boxAt(i)->value) == key) return i;
  }
  return -1;
}

template <KeyedElement T>
void Kerray<T>::failChangedKey() {
  fatalFailure("A change to an element in its place must leave its key and its Kerray as they are");
}

}  // namespace tolvanite
