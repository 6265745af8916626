// A keyed, observable array with two orders at once: the natural one, in which its callers put the
// elements, and the one on show, which is that of the sort block while one is set. Clearing the
// sort block brings the natural order back. It is a value.
//
//   tolvanite::OptionallySortedUrray<Track> playlist;
//   playlist.observers.createNew(controller, [&](auto& observer) {
//     observer.inserted = [&](auto&, tolvanite::Int i, const Track& t) { table.insert(i, t); };
//     observer.sortingChanged = [&](auto& list, auto& /*code*/) { table.reload(list); };
//   });
//   playlist.append(first);
//   playlist.setSortBlock(byTitle);  // on show: by title
//   playlist.append(second);         // told with its place by title
//   playlist.setSortBlock({});       // on show: first, second
//
// A copy goes its own way from there, but has the same observers: what changes the copy tells them,
// too. Copies cost a few references; the first change of either copies the handles, and never the
// elements. Every mutator changes the content first and then calls the observers, on the caller's
// thread, with one copy of the array as it stands then.
//
// To be known by its user: an update while a sort block is set is seen on show alone. The natural
// order keeps the old element, deliberately, and shows it again when the sort block is cleared.
//
// One thread at a time for each value; copies may be used on different threads when their observers
// may. A block may end the life of the array that tells it, but not in the middle of a batch.
#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <Tolvanite/DataStructures/ArrayErrors.h>
#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/IndexedCollection.h>
#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/OptionallySortedUrrayObserver.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/IndexSeeker.h>
#include <Tolvanite/DataStructures/detail/PlacedArray.h>
#include <Tolvanite/DataStructures/detail/SharedTable.h>
#include <Tolvanite/DataStructures/detail/ValueCollection.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A value type; n is its count in the costs below. Indexes are those of the order on show, unless
/// an operation says otherwise; one that is out of range is fatal, unless an operation says
/// otherwise.
template <KeyedElement T>
class OptionallySortedUrray : public IndexedCollection<OptionallySortedUrray<T>, T> {
 public:
  using IndexedCollection<OptionallySortedUrray, T>::count;
  /// The type of the keys.
  using Key = KeyType<T>;
  /// What subscribers set up.
  using Observer = OptionallySortedUrrayObserver<T>;
  /// The errors that are reported.
  using ArrayErrors = tolvanite::ArrayErrors;
  /// An order, or none.
  using SortBlock = Optional<NamedSortBlock<T>>;

  /// The registry of whoever wants to hear of changes. Copies of the array start with the same.
  WeaklyOwnedObjectsSphere<Observer> observers;

  /// The order that is set.
  const SortBlock& sortBlock() const noexcept {
    static const SortBlock none;
    return sortBlock_ ? *sortBlock_ : none;
  }
  /// Sorts, or brings the natural order back, and sends `sortingChanged`. A block with an equal
  /// code is stored, and nothing else happens.
  void setSortBlock(SortBlock sortBlock);

  // Reading

  /// The content in the callers' order. Copying it costs one reference.
  const ElementArray<T>& naturallySortedArray() const noexcept { return natural_; }
  /// The content in the order on show. Copying it costs one reference.
  const ElementArray<T>& sortedArray() const noexcept {
    return isSorted() ? sorted_.elements() : natural_;
  }

  /// Whether an element with the same key is present; the element itself is not compared.
  bool contains(const T& element) const {
    return containsElementWithKey(ElementTraits<T>::key(element));
  }
  /// Whether an element with this key is present.
  bool containsElementWithKey(const Key& key) const { return keys_.find(key) != nullptr; }
  /// The element on show with this key, or null. Good until the next change.
  const T* elementWithKey(const Key& key) const {
    const auto* box = keys_.find(key);
    return box ? &box->value : nullptr;
  }
  /// The index of the element with the same key, or absent. While sorted about log n calls of the
  /// sort block.
  Optional<Int> indexOf(const T& element) const {
    return indexOfKey(ElementTraits<T>::key(element));
  }
  /// The same for a key.
  Optional<Int> indexOfKey(const Key& key) const {
    const Box* box = keys_.find(key);
    return box ? Optional<Int>(indexOfBox(box)) : Optional<Int>();
  }
  /// `indexOfKey`.
  Optional<Int> indexWith(const Key& key) const { return indexOfKey(key); }
  /// The element at `index`, or absent when that is not below the count.
  Optional<T> atIndex(Int index) const { return this->elementIfAt(index); }

  /// "OptionallySortedUrray(sortBlock:CODE, count: N, elements: ...)" with at most the first five
  /// elements, and "n/a" where there is no sort block.
  std::string description() const {
    return "OptionallySortedUrray(sortBlock:" + (sortBlock() ? sortBlock()->code : "n/a") +
           ", count: " + textForm(count()) + ", elements: " + detail::elementsText(*this, 5) + ")";
  }
  /// Whether both hold equal elements in the same orders, whatever their observers.
  friend bool operator==(const OptionallySortedUrray& a, const OptionallySortedUrray& b)
    requires EquatableKeyedElement<T>
  {
    return std::ranges::equal(a.natural_, b.natural_, ElementTraits<T>::equal) &&
           std::ranges::equal(a.sortedArray(), b.sortedArray(), ElementTraits<T>::equal);
  }

  // Changing

  /// Inserts behind all others, and while sorted at its place on show, before all that it ties
  /// with. Throws `elementAlreadyPresent`, and changes nothing, when its key is present. Event:
  /// `inserted`.
  void append(T element) { insertAtIndex(std::move(element), count()); }
  /// Appends one after the other, up to the first whose key is present, for which it throws; those
  /// before it stay. Events: one `inserted` for each.
  void append(const ElementArray<T>& elements);
  /// Inserts before the element at `atIndex` of the natural order; while sorted its place on show
  /// is the sort block's alone. Throws and tells like `append`.
  void insertAtIndex(T element, Int atIndex);
  /// Moves one element so that it stands at `to`. Equal indexes do nothing at all. Throws
  /// `indexOutOfBounds`, "fromIndex F" or "toIndex T". While sorted, good indexes are fatal: "move
  /// only allowed, when not sorted. Currently sorted by CODE". Event: `moved`.
  void moveFromIndex(Int from, Int to);
  /// Puts an element in the place of the one with its key, which it gives back. While sorted it
  /// lands on show where a stable sort puts it, and the natural order keeps the old one. Events:
  /// `updated`, and where the place changes, `moved` behind it for each observer. A new key is
  /// appended, and gives absent.
  Optional<T> update(T element);
  /// Event: `removedAll`, also when there was nothing. The sort block stays.
  void removeAll();
  /// Removes the element with this key from both orders and gives the one on show back; absent,
  /// without an event, when there is none. Event: `removed`.
  Optional<T> remove(const T& element) {
    return removeElementWithKey(ElementTraits<T>::key(element));
  }
  /// The same for a key.
  Optional<T> removeElementWithKey(const Key& key);

 private:
  friend class IndexedCollection<OptionallySortedUrray, T>;
  using Handle = detail::Handle<T>;
  using Box = detail::Box<T>;
  using Table = detail::SharedTable<T, detail::ByKey<T>>;

  const ElementArray<T>& shownArray() const noexcept { return sortedArray(); }
  bool isSorted() const noexcept { return sortBlock_ && *sortBlock_; }
  const typename NamedSortBlock<T>::SortBlock& order() const { return (*sortBlock_)->sortBlock; }
  template <typename Event, typename... Arguments>
  void tell(Event Observer::* event, const Arguments&... arguments) const {
    detail::notifyWithCopy(*this, event, arguments...);
  }
  Int indexOfBox(const Box* box) const;
  Int naturalIndexOf(const Key& key) const;
  void showNaturalOrder();
  Handle updateSorted(Int index, const Handle& element);

  detail::ElementStore<T> natural_;
  // The order on show while sorted. It shares the natural order's boxes, but for elements that were
  // updated meanwhile: their boxes of the natural order stand in `outdated_`.
  detail::PlacedArray<T> sorted_;
  Table outdated_;
  Table keys_;  // the boxes on show, with the places in the natural order
  mutable detail::IndexSeeker seeker_;
  std::shared_ptr<const SortBlock> sortBlock_;
};

// Implementation

template <KeyedElement T>
void OptionallySortedUrray<T>::setSortBlock(SortBlock sortBlock) {
  if (sortBlock) detail::requireBlock(*sortBlock);
  const bool wasSorted = isSorted();
  const bool isSame = sortBlock == this->sortBlock();
  sortBlock_ = std::make_shared<const SortBlock>(std::move(sortBlock));
  if (isSame) {
    sorted_.loseOrder();  // Nothing is sorted by the new block.
    return;
  }
  if (!isSorted()) {
    showNaturalOrder();
  } else {
    if (!wasSorted) sorted_.rebuild(natural_, false, false);
    sorted_.sort(order());
  }
  tell(&Observer::sortingChanged,
       isSorted() ? Optional<std::string>((*sortBlock_)->code) : Optional<std::string>());
}

template <KeyedElement T>
void OptionallySortedUrray<T>::showNaturalOrder() {
  sorted_.removeAll();
  const Table outdated = std::exchange(outdated_, Table());
  for (const auto& slot : outdated.slots()) {
    if (!slot.box) continue;
    auto& keys = keys_.tableToChange();
    keys.replaceAt(keys.spotOf(ElementTraits<T>::key(slot.box->value)), Handle::sharing(slot.box));
  }
}

template <KeyedElement T>
Int OptionallySortedUrray<T>::indexOfBox(const Box* box) const {
  const Int index = isSorted() ? sorted_.placeOf(box, order())
                               : naturalIndexOf(ElementTraits<T>::key(box->value));
  if (index < 0) detail::failInconsistent(ElementTraits<T>::key(box->value));
  return index;
}

// The index in the natural order of a key that is present.
template <KeyedElement T>
Int OptionallySortedUrray<T>::naturalIndexOf(const Key& key) const {
  const auto& table = keys_.table();
  const auto spot = table.spotOf(key);
  const Box* outdated = outdated_.find(key);
  return outdated ? natural_.findNear(outdated, table.lastIndexAt(spot))
                  : seeker_.indexAt(spot, table, natural_, !keys_.isShared());
}

template <KeyedElement T>
void OptionallySortedUrray<T>::insertAtIndex(T element, Int atIndex) {
  if (contains(element)) {
    throw ArrayErrors::elementAlreadyPresent(detail::textFormOrTypeName(element));
  }
  const auto handle = Handle::make(std::move(element));
  // First, since the sort block may throw.
  const Int index = isSorted() ? sorted_.insertInOrder(handle, order()) : atIndex;
  natural_.insert(atIndex, handle);
  keys_.tableToChange().set(handle, atIndex);
  tell(&Observer::inserted, index, *handle);
}

template <KeyedElement T>
void OptionallySortedUrray<T>::append(const ElementArray<T>& elements) {
  for (const T& element : ElementArray<T>(elements)) append(element);
}

template <KeyedElement T>
void OptionallySortedUrray<T>::moveFromIndex(Int from, Int to) {
  if (from == to) return;
  if (from < 0 || from >= count()) {
    throw ArrayErrors::indexOutOfBounds("fromIndex " + textForm(from));
  }
  if (to < 0 || to >= count()) throw ArrayErrors::indexOutOfBounds("toIndex " + textForm(to));
  natural_.move(from, to);
  if (isSorted()) {
    fatalFailure("move only allowed, when not sorted. Currently sorted by " + (*sortBlock_)->code);
  }
  const Handle handle = natural_.handleAt(to);
  tell(&Observer::moved, from, to, *handle);
}

template <KeyedElement T>
Optional<T> OptionallySortedUrray<T>::update(T element) {
  const Box* box = keys_.find(ElementTraits<T>::key(element));
  if (!box) {
    append(std::move(element));
    return {};
  }
  const Int index = indexOfBox(box);
  const auto handle = Handle::make(std::move(element));
  Handle old;
  if (isSorted()) {
    old = updateSorted(index, handle);
  } else {
    old = natural_.replace(index, handle);
    auto& keys = keys_.tableToChange();
    keys.replaceAt(keys.spotOf(ElementTraits<T>::key(*handle)), handle);
    tell(&Observer::updated, index, *handle);
  }
  return std::move(old).take();
}

template <KeyedElement T>
auto OptionallySortedUrray<T>::updateSorted(Int index, const Handle& element) -> Handle {
  const Key& key = ElementTraits<T>::key(*element);
  const Int to = sorted_.updateInOrder(index, element, order(), detail::AmongTies::asStableSort)
                     .value_or(index);
  auto& keys = keys_.tableToChange();
  Handle old = keys.replaceAt(keys.spotOf(key), element);
  // The natural order keeps the element that it has, deliberately.
  if (!outdated_.find(key)) outdated_.tableToChange().set(old, 0);
  if (to == index) {
    tell(&Observer::updated, index, *element);
  } else {
    detail::tellWithCopy(*this, [&](Observer& observer, const OptionallySortedUrray& copy) {
      detail::call(observer.updated, copy, to, *element);
      detail::call(observer.moved, copy, index, to, *element);
    });
  }
  return old;
}

template <KeyedElement T>
void OptionallySortedUrray<T>::removeAll() {
  natural_.removeAll();
  sorted_.removeAll();
  outdated_ = {};
  keys_ = {};
  tell(&Observer::removedAll);
}

template <KeyedElement T>
Optional<T> OptionallySortedUrray<T>::removeElementWithKey(const Key& keyGiven) {
  Box* box = keys_.find(keyGiven);
  if (!box) return {};
  // The key that was given may stand in an element that goes.
  Handle removed = Handle::sharing(box);
  const Key& key = ElementTraits<T>::key(*removed);
  const Int index = indexOfBox(box);
  const Int naturalIndex = isSorted() ? naturalIndexOf(key) : index;
  if (naturalIndex < 0) detail::failInconsistent(key);
  if (isSorted()) sorted_.removeAt(index);
  natural_.removeAt(naturalIndex);
  if (outdated_.find(key)) outdated_.tableToChange().remove(key);
  keys_.tableToChange().remove(key);
  tell(&Observer::removed, index, naturalIndex, *removed);
  return std::move(removed).take();
}

}  // namespace tolvanite
