// The unique array: an observable sequence, in the order that its callers make, in which no two
// elements are equal. It is a value; the plainest of the array-shaped collections.
//
//   tolvanite::Urray<std::string> queue;
//   queue.observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto& /*queue*/, tolvanite::Int index, const std::string& song) {
//       table.insertRow(index, song);
//     };
//   });
//   queue.append("Overture");
//   queue.append("Overture");  // throws: it is in the queue
//
// A copy goes its own way from there, but has the same observers: what changes the copy tells them,
// too. Copies cost a few references; the first change of either copies the handles, 8 bytes and a
// place in the hash table for each element, and never the elements. Every mutator changes the
// content first and then calls the observers, on the caller's thread, with one copy of the array as
// it stands then.
//
// One thread at a time for each value; copies may be used on different threads when their observers
// may. A block may end the life of the array that tells it, but not in the middle of a batch.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/OrderedSetErrors.h>
#include <Tolvanite/DataStructures/UrrayObserver.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementSetStore.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/IndexSeeker.h>
#include <Tolvanite/DataStructures/detail/ValueCollection.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A value type; n is its count in the costs below. An index out of range is fatal, unless an
/// operation says otherwise.
template <UrrayType T>
class Urray : public IndexedCollection<Urray<T>, T> {
 public:
  using IndexedCollection<Urray, T>::count;
  /// What subscribers set up.
  using Observer = UrrayObserver<T>;

  /// The registry of whoever wants to hear of changes. Copies of the array start with the same.
  WeaklyOwnedObjectsSphere<Observer> observers;

  // Reading

  /// The content in order. Copying it costs one reference, and the copy keeps the content as it is.
  const ElementArray<T>& array() const noexcept { return array_; }
  /// The same elements as a set.
  const ElementSet<T>& keys() const noexcept { return keys_; }

  /// Constant on the average.
  bool contains(const T& element) const { return keys_.contains(element); }
  /// The index of the equal element, or absent. Constant on the average for elements that little
  /// has been inserted or removed before since they were last looked for.
  Optional<Int> indexOf(const T& element) const {
    const Int index = find(element);
    return index < 0 ? Optional<Int>() : Optional<Int>(index);
  }
  /// The element at `index`, or absent when that is not below the count.
  Optional<T> atIndex(Int index) const { return this->elementIfAt(index); }

  /// "OrderedSet(count: N, elements: ...)" with at most the first five elements.
  std::string description() const {
    return detail::countedDescription("OrderedSet", count(), detail::elementsText(*this, 5));
  }
  /// Whether both hold equal elements in the same order, whatever their observers.
  friend bool operator==(const Urray& a, const Urray& b) {
    return std::ranges::equal(a.array_, b.array_, ElementTraits<T>::equal);
  }

  // Changing

  /// Inserts behind all others. Throws `elementAlreadyPresent`, and changes nothing, when an equal
  /// element is present. Event: `inserted`. Constant on the average.
  void append(T element) { insert(std::move(element), count()); }
  /// Two texts in braces would make one: this is the work of `insert` at the count.
  void append(std::initializer_list<T> elements)
    requires detail::IsText<T>
  = delete;
  /// Inserts before the element at `atIndex`, likewise. One shift.
  void insert(T element, Int atIndex);
  /// Inserts one after the other from `atIndex` on, up to the first that is present, for which it
  /// throws; those before it stay. Events: one `inserted` for each. Two texts in braces can also
  /// be read as one element: name the type, `ElementArray<std::string>{"a", "b"}`.
  void insert(const ElementArray<T>& elements, Int atIndex);
  /// The same for texts in braces.
  void insert(std::initializer_list<T> elements, Int atIndex)
    requires detail::IsText<T>
  {
    insert(ElementArray<T>(elements), atIndex);
  }
  /// Puts `element` in the place of the equal one and returns it; absent, without an event, when
  /// there is none. Event: `updated`.
  Optional<T> update(T element);
  /// Moves one element so that it stands at `to`. Indexes out of bounds are fatal, with the text
  /// "from index F out of bounds." or "to index T out of bounds.". Event: `moved`, also for equal
  /// indexes.
  void move(Int from, Int to);
  /// Event: `removedAll`, also when there was nothing.
  void removeAll();
  /// Removes the equal element and returns it; absent, without an event, when there is none. Event:
  /// `removed`. One shift.
  Optional<T> remove(const T& element);
  /// The same by index; absent when `index` is not below the count.
  Optional<T> removeElementAtIndex(Int index);

 private:
  friend class IndexedCollection<Urray, T>;
  using Handle = detail::Handle<T>;

  const ElementArray<T>& shownArray() const noexcept { return array_; }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) const {
    detail::notifyWithCopy(*this, event, arguments...);
  }
  Int find(const T& element) const { return keys_.seek(element, array_, seeker_); }

  detail::ElementStore<T> array_;
  detail::ElementSetStore<T> keys_;
  mutable detail::IndexSeeker seeker_;
};

// Implementation

template <UrrayType T>
void Urray<T>::insert(T element, Int atIndex) {
  const Handle handle = keys_.insertElement(std::move(element), atIndex);
  if (!handle) {
    // NOLINTNEXTLINE(bugprone-use-after-move): moved from only when it was inserted
    throw OrderedSetErrors::elementAlreadyPresent(detail::textFormOrTypeName(element));
  }
  array_.insert(atIndex, handle);
  tell(&Observer::inserted, atIndex, *handle);
}

template <UrrayType T>
void Urray<T>::insert(const ElementArray<T>& elements, Int atIndex) {
  for (const T& element : ElementArray<T>(elements)) insert(element, atIndex++);
}

template <UrrayType T>
Optional<T> Urray<T>::update(T element) {
  const Int index = find(element);
  if (index < 0) return {};
  const auto handle = Handle::make(std::move(element));
  array_.replace(index, handle);
  keys_.replace(handle);
  tell(&Observer::updated, index, *handle);
  return *handle;
}

template <UrrayType T>
void Urray<T>::move(Int from, Int to) {
  if (from >= count()) detail::failOutOfBounds("from", from);
  // A target equal to the count fails, too, deliberately.
  if (to >= count()) detail::failOutOfBounds("to", to);
  array_.move(from, to);
  const Handle handle = array_.handleAt(to);
  tell(&Observer::moved, from, to, *handle);
}

template <UrrayType T>
void Urray<T>::removeAll() {
  array_.removeAll();
  keys_.removeAll();
  tell(&Observer::removedAll);
}

template <UrrayType T>
Optional<T> Urray<T>::remove(const T& element) {
  if (!contains(element)) return {};
  const Int index = find(element);
  if (index < 0) detail::failInconsistent(element);
  return removeElementAtIndex(index);
}

template <UrrayType T>
Optional<T> Urray<T>::removeElementAtIndex(Int index) {
  if (index >= count()) return {};
  Handle removed = array_.removeAt(index);
  keys_.remove(*removed);
  tell(&Observer::removed, index, *removed);
  return std::move(removed).take();
}

}  // namespace tolvanite
