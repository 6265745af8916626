// The sorted array: an observable, keyed collection that always stands in the order of its sort
// block. Its callers never say where an element goes; they are told.
//
//   auto scores = tolvanite::Serray<Score>::make();
//   scores->setSortBlock({"points", [](const Score& a, const Score& b) {
//                           return a.points > b.points;
//                         }});
//   scores->observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int i, const Score& s) { table.insertRow(i, s); };
//     observer.moved = [&](auto&, tolvanite::Int from, tolvanite::Int to, const Score& s) {
//       table.moveRow(from, to);
//       table.showRow(to, s);  // no `updated` follows
//     };
//   });
//   scores->insert({.key = "Ada", .points = 7});
//
// Every mutator changes the content first and then calls the observers, on the caller's thread and
// in the order of their registration. A block may change the array again.
//
// One thread at a time.
#pragma once

#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/SerrayErrur.h>
#include <Tolvanite/DataStructures/SerrayObserver.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementTable.h>
#include <Tolvanite/DataStructures/detail/KeptDuringPasses.h>
#include <Tolvanite/DataStructures/detail/PlacedArray.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A reference type, made by `make`; n is its count in the costs below. An index out of range is
/// fatal, unless an operation says otherwise. Elements that are held by pointer and change their
/// rank are to be updated, each before the next one changes: only that one is put in its place.
template <KeyedElement T>
class Serray final : public detail::KeptDuringPasses, public IndexedCollection<Serray<T>, T> {
 public:
  using IndexedCollection<Serray, T>::count;
  /// The type of the keys.
  using Key = KeyType<T>;
  /// What subscribers set up.
  using Observer = SerrayObserver<T>;
  /// The errors that are reported.
  using Errur = SerrayErrur;

  /// An empty array in the order "default", by ascending key.
  static std::shared_ptr<Serray> make() { return owned(new Serray()); }

  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The order that is set.
  const NamedSortBlock<T>& sortBlock() const noexcept { return sortBlock_; }
  /// Sorts, and sends `sortingChanged`, also for the same block again. An empty block is fatal.
  void setSortBlock(NamedSortBlock<T> sortBlock);

  // Reading

  /// The content in order. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementArray<T>& array() const noexcept { return array_.elements(); }

  /// Whether an element with the same key is present; the element itself is not compared.
  bool contains(const T& element) const { return containsWith(ElementTraits<T>::key(element)); }
  /// Whether an element with this key is present.
  bool containsWith(const Key& key) const { return keys_.find(key) != nullptr; }
  /// The element with this key, or null. Good until the next change.
  const T* elementWithKey(const Key& key) const {
    const auto* box = keys_.find(key);
    return box ? &box->value : nullptr;
  }
  /// The index of the element with the same key, or absent. About log n calls of the sort block.
  Optional<Int> indexOf(const T& element) const {
    return indexWith(ElementTraits<T>::key(element));
  }
  /// The same for a key.
  Optional<Int> indexWith(const Key& key) const {
    const auto* box = keys_.find(key);
    return box ? Optional<Int>(indexOfBox(box)) : Optional<Int>();
  }
  /// The element at `index`, or absent when that is not below the count.
  Optional<T> atIndex(Int index) const { return this->elementIfAt(index); }

  /// "Serray(count: N, elements: ...)" with the elements, if they have a text form; of six and more
  /// none is shown, but ", ..." alone, deliberately.
  std::string description() const {
    const bool areTooMany = HasTextForm<T> && count() > 5;
    return detail::countedDescription("Serray", count(),
                                      areTooMany ? ", ..." : detail::elementsText(*this, 5));
  }

  // Changing

  /// Inserts before all elements that it ties with. Throws `elementAlreadyPresent`, and changes
  /// nothing, when its key is present. Event: `inserted`. About log n calls of the sort block and
  /// one shift.
  void insert(T element);
  /// Inserts one after the other, up to the first whose key is present, for which it throws; those
  /// before it stay. Events: one `inserted` for each.
  void insert(const ElementArray<T>& elements);
  /// Puts an element in the place of the one with its key, which it gives back. It lands where a
  /// stable sort of the array puts it. Event: `updated` where the place stays, else `moved`, and
  /// then no `updated`. A new key is inserted, with the event `inserted`, and gives absent.
  Optional<T> update(T element);
  /// Event: `removedAll`, also when there was nothing. The sort block stays.
  void removeAll();
  /// Removes the element with this key and gives it back; absent, without an event, when there is
  /// none. Event: `removed`.
  Optional<T> remove(const T& element) { return removeWith(ElementTraits<T>::key(element)); }
  /// The same for a key.
  Optional<T> removeWith(const Key& key);

 private:
  friend class IndexedCollection<Serray, T>;
  using Handle = detail::Handle<T>;
  using Box = detail::Box<T>;

  const ElementArray<T>& shownArray() const noexcept { return array_.elements(); }

  Serray() = default;
  ~Serray() override = default;

  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) {
    const Pass pass(*this);
    detail::notify(observers, event, *this, arguments...);
  }
  Int indexOfBox(const Box* box) const {
    const Int index = array_.placeOf(box, sortBlock_.sortBlock);
    if (index < 0) detail::failInconsistent(ElementTraits<T>::key(box->value));
    return index;
  }

  detail::PlacedArray<T> array_;
  detail::KeyIndex<T> keys_;
  NamedSortBlock<T> sortBlock_{"default", [](const T& a, const T& b) {
                                 return ElementTraits<T>::key(a) < ElementTraits<T>::key(b);
                               }};
};

// Implementation

template <KeyedElement T>
void Serray<T>::setSortBlock(NamedSortBlock<T> sortBlock) {
  detail::requireBlock(sortBlock);
  sortBlock_ = std::move(sortBlock);
  array_.sort(sortBlock_.sortBlock);
  tell(&Observer::sortingChanged, std::string(sortBlock_.code));
}

template <KeyedElement T>
void Serray<T>::insert(T element) {
  keys_.reserveOne();
  const auto spot = keys_.spotOf(ElementTraits<T>::key(element));
  if (keys_.boxAt(spot)) {
    throw Errur::elementAlreadyPresent(detail::textFormOrTypeName(element));
  }
  const auto handle = Handle::make(std::move(element));
  const Int index = array_.insertInOrder(handle, sortBlock_.sortBlock);
  keys_.insertAt(spot, handle, 0);
  tell(&Observer::inserted, index, *handle);
}

template <KeyedElement T>
void Serray<T>::insert(const ElementArray<T>& elements) {
  const Pass pass(*this);
  for (const T& element : ElementArray<T>(elements)) insert(element);
}

template <KeyedElement T>
Optional<T> Serray<T>::update(T element) {
  const Box* box = keys_.find(ElementTraits<T>::key(element));
  if (!box) {
    insert(std::move(element));
    return {};
  }
  const Int index = indexOfBox(box);
  const auto handle = Handle::make(std::move(element));
  const Int to =
      array_.updateInOrder(index, handle, sortBlock_.sortBlock, detail::AmongTies::asStableSort)
          .value_or(index);
  Handle old = keys_.replaceAt(keys_.spotOf(ElementTraits<T>::key(*handle)), handle);
  if (to == index) {
    tell(&Observer::updated, index, *handle);
  } else {
    tell(&Observer::moved, index, to, *handle);
  }
  return std::move(old).take();
}

template <KeyedElement T>
void Serray<T>::removeAll() {
  array_.removeAll();
  keys_ = {};
  tell(&Observer::removedAll);
}

template <KeyedElement T>
Optional<T> Serray<T>::removeWith(const Key& key) {
  const Box* box = keys_.find(key);
  if (!box) return {};
  const Int index = indexOfBox(box);
  array_.removeAt(index);
  Handle removed = keys_.remove(key);
  tell(&Observer::removed, index, *removed);
  return std::move(removed).take();
}

}  // namespace tolvanite
