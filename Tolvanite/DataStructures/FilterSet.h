// A set that a filter splits in two: the in set holds the elements that pass, the out set the
// others. It tells its observers what happens to the whole and what happens on either side, so that
// a list that shows the in set can listen to that side alone. It is a value.
//
//   tolvanite::FilterSet<Track> library;
//   library.setFilterBlock([](const Track& track) { return track.year >= 1990; });
//   library.observers.createNew(list, [&](auto& observer) {
//     observer.inSetInserted = [&](const auto&, const Track& track) { list->show(track); };
//     observer.inSetRemoved = [&](const auto&, const Track& track) { list->hide(track); };
//     observer.filterBlockChanged = [&](const auto& set) { list->reload(set.inElements()); };
//   });
//   library.insert(track);
//
// A copy goes its own way from there, but has the same observers: what changes the copy tells them,
// too. Copies cost a few references; the first change of either copies the hash table that it
// changes, and never the elements. Every mutator changes the content first and then calls the
// observers, on the caller's thread, with one copy of the set as it stands then.
//
// To insert what is present is an error; to update what is absent inserts it; to remove what is
// absent prints a warning. For a filter that changes its mind, assign it anew: meanwhile an element
// may stand on both sides.
//
// One thread at a time for each value; copies may be used on different threads when their observers
// may. A block may end the life of the set that tells it, but not in the middle of a batch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/FilterSetObserver.h>
#include <Tolvanite/DataStructures/SetErrur.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/ElementSetStore.h>
#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/DataStructures/detail/ValueCollection.h>
#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

/// A value type. Every operation on one element is constant on the average.
template <HashableElement T>
class FilterSet : public detail::Described {
 public:
  using value_type = T;
  /// What subscribers set up.
  using Observer = FilterSetObserver<T>;
  /// The errors that are reported.
  using Errur = SetErrur;
  /// True for the elements of the in set; an empty block lets all pass.
  using FilterBlock = Block<bool(const T&)>;

  /// Goes over the in set and then the out set, as they stood at the beginning.
  class Iterator : public detail::ConstIterator<Iterator, T> {
   public:
    using detail::ConstIterator<Iterator, T>::operator++;

    Iterator() = default;
    const T& operator*() const noexcept { return *position_; }
    Iterator& operator++() noexcept {
      ++position_;
      crossOver();
      return *this;
    }
    bool operator==(const Iterator& other) const noexcept { return position_ == other.position_; }
    bool operator==(std::default_sentinel_t /*end*/) const noexcept {
      return isOut_ && position_ == out_.end();
    }

   private:
    friend class FilterSet;
    Iterator(ElementSet<T> in, ElementSet<T> out)
        : in_(std::move(in)), out_(std::move(out)), position_(in_.begin()) {
      crossOver();
    }
    void crossOver() noexcept {
      if (isOut_ || position_ != in_.end()) return;
      isOut_ = true;
      position_ = out_.begin();
    }

    ElementSet<T> in_;
    ElementSet<T> out_;
    typename ElementSet<T>::Iterator position_;
    bool isOut_ = false;
  };

  /// The registry of whoever wants to hear of changes. Copies of the set start with the same.
  WeaklyOwnedObjectsSphere<Observer> observers;

  // Reading

  /// The elements that pass. Copying them costs one reference.
  const ElementSet<T>& inElements() const noexcept { return in_; }
  /// The elements that do not pass.
  const ElementSet<T>& outElements() const noexcept { return out_; }
  /// Whether both sides are empty.
  bool isEmpty() const noexcept { return count() == 0; }
  /// How many elements both sides hold.
  Int count() const noexcept { return in_.count() + out_.count(); }
  /// The same for the standard ranges.
  std::size_t size() const noexcept { return in_.size() + out_.size(); }

  /// Whether an equal element is on either side.
  bool contains(const T& element) const { return find(element) != nullptr; }
  /// The stored element that equals this one, sought in the in set first, or absent.
  Optional<T> operator[](const T& element) const {
    const T* stored = find(element);
    return stored ? Optional<T>(*stored) : Optional<T>();
  }
  /// The same without a copy: null when absent, good until the next change.
  const T* find(const T& element) const {
    const T* stored = in_.find(element);
    return stored ? stored : out_.find(element);
  }
  /// An element of the in set, all equally likely, or absent when it is empty. Linear. A count of
  /// more than 32 bits is fatal.
  Optional<T> randomInElement() const;

  /// Goes over the in set and then the out set as they stand at the call.
  Iterator begin() const { return {in_, out_}; }
  /// Behind the last element.
  std::default_sentinel_t end() const noexcept { return {}; }
  /// `begin()`.
  Iterator makeIterator() const { return begin(); }

  /// "FilterSet(in N, out M)".
  std::string description() const {
    return "FilterSet(in " + textForm(in_.count()) + ", out " + textForm(out_.count()) + ")";
  }
  /// Whether both sides hold the same elements, whatever the filters and observers.
  friend bool operator==(const FilterSet& a, const FilterSet& b) {
    return a.in_ == b.in_ && a.out_ == b.out_;
  }

  // Filtering

  /// The filter; empty when there is none.
  const FilterBlock& filterBlock() const noexcept {
    static const FilterBlock none;
    return filterBlock_ ? *filterBlock_ : none;
  }
  /// Splits the elements anew and sends `filterBlockChanged`, also when nothing changes. No events
  /// are sent for the elements that cross over.
  void setFilterBlock(FilterBlock filterBlock);

  // Changing

  /// Inserts a new element on the side where it belongs. Throws `elementAlreadyPresent`, changes
  /// and tells nothing, when an equal one is there; the other side is not looked at. Events:
  /// `inSetInserted` or `outSetInserted`, then `inserted`.
  void insert(T element);
  /// Inserts one after the other, up to the first that is present, for which it throws; those
  /// before it stay. Two texts in braces can also be read as one element: name the type,
  /// `ElementArray<std::string>{"a", "b"}`.
  void insert(const ElementArray<T>& elements);
  /// The same for texts in braces.
  void insert(std::initializer_list<T> elements)
    requires detail::IsText<T>
  {
    insert(ElementArray<T>(elements));
  }
  /// Puts an element in the place of the equal one, which it gives back; it crosses over where the
  /// filter answers differently for it. Events: `inSetUpdated` or `outSetUpdated`, or `...Removed`
  /// of the one side and `...Inserted` of the other, then `updated`. When there is none, inserts it
  /// and gives absent.
  Optional<T> update(T element);
  /// Replaces everything. Event: `replacedContent`.
  void replaceContent(const ElementArray<T>& elements);
  /// Event: `removedAll`, also when there was nothing. The filter stays.
  void removeAll();
  /// Removes the equal element and gives it back. Events: `inSetRemoved` or `outSetRemoved`, then
  /// `removed`. When there is none, warns and gives absent.
  Optional<T> remove(const T& element);

 private:
  using Handle = detail::Handle<T>;
  using Store = detail::ElementSetStore<T>;
  using ElementBlock = typename Observer::ElementBlock;

  bool passes(const T& element) const { return !filterBlock() || filterBlock()(element); }
  // Those that pass and those that do not.
  std::pair<Store, Store> split(const ElementArray<T>& elements) const;

  void insertOnSide(bool isIn, T element);
  template <typename Event>
  void tell(Event Observer::* event) const {
    detail::notifyWithCopy(*this, event);
  }
  // For each observer, these blocks in turn.
  template <typename... Events>
  void tellEach(const T& element, Events... events) const {
    detail::tellWithCopy(*this, [&](Observer& observer, const FilterSet& copy) {
      (detail::call(observer.*events, copy, element), ...);
    });
  }

  Store in_;
  Store out_;
  std::shared_ptr<const FilterBlock> filterBlock_;
};

// Implementation

template <HashableElement T>
Optional<T> FilterSet<T>::randomInElement() const {
  const Int count = in_.count();
  if (count == 0) return {};
  if (count > std::numeric_limits<std::uint32_t>::max()) fatalOverflow();
  const std::uint32_t offset = systemRandom().uniform(static_cast<std::uint32_t>(count));
  return *std::next(in_.begin(), offset);
}

template <HashableElement T>
auto FilterSet<T>::split(const ElementArray<T>& elements) const -> std::pair<Store, Store> {
  const detail::ElementStore<T> all(elements);
  std::pair<Store, Store> sides;
  for (Int i = 0; i < all.count(); ++i) {
    (passes(all[i]) ? sides.first : sides.second).insert(all.handleAt(i));
  }
  return sides;
}

template <HashableElement T>
void FilterSet<T>::setFilterBlock(FilterBlock filterBlock) {
  filterBlock_ = std::make_shared<const FilterBlock>(std::move(filterBlock));
  auto [in, out] = split(ElementArray<T>(in_));
  const auto [inOfOut, outOfOut] = split(ElementArray<T>(out_));
  in.insertAll(inOfOut);
  out.insertAll(outOfOut);
  in_ = std::move(in);
  out_ = std::move(out);
  tell(&Observer::filterBlockChanged);
}

template <HashableElement T>
void FilterSet<T>::insert(T element) {
  const bool isIn = passes(element);
  insertOnSide(isIn, std::move(element));
}

template <HashableElement T>
void FilterSet<T>::insertOnSide(bool isIn, T element) {
  const Handle handle = (isIn ? in_ : out_).insertElement(std::move(element));
  // NOLINTNEXTLINE(bugprone-use-after-move): moved from only when it was inserted
  if (!handle) throw Errur::elementAlreadyPresent(detail::textFormOrTypeName(element));
  tellEach(*handle, isIn ? &Observer::inSetInserted : &Observer::outSetInserted,
           &Observer::inserted);
}

template <HashableElement T>
void FilterSet<T>::insert(const ElementArray<T>& elements) {
  for (const T& element : ElementArray<T>(elements)) insert(element);
}

template <HashableElement T>
Optional<T> FilterSet<T>::update(T element) {
  // Asked before all else, since the filter may change the set.
  const bool isIn = passes(element);
  const bool wasIn = in_.contains(element);
  if (!wasIn && !out_.contains(element)) {
    insertOnSide(isIn, std::move(element));
    return {};
  }
  const auto handle = Handle::make(std::move(element));
  Handle old;
  if (isIn == wasIn) {
    old = (isIn ? in_ : out_).replace(handle);
    tellEach(*handle, isIn ? &Observer::inSetUpdated : &Observer::outSetUpdated,
             &Observer::updated);
  } else {
    old = (wasIn ? in_ : out_).remove(*handle);
    (isIn ? in_ : out_).insert(handle);
    tellEach(*handle, wasIn ? &Observer::inSetRemoved : &Observer::outSetRemoved,
             isIn ? &Observer::inSetInserted : &Observer::outSetInserted, &Observer::updated);
  }
  return std::move(old).take();
}

template <HashableElement T>
void FilterSet<T>::replaceContent(const ElementArray<T>& elements) {
  auto [in, out] = split(elements);
  in_ = std::move(in);
  out_ = std::move(out);
  tell(&Observer::replacedContent);
}

template <HashableElement T>
void FilterSet<T>::removeAll() {
  in_.removeAll();
  out_.removeAll();
  tell(&Observer::removedAll);
}

template <HashableElement T>
Optional<T> FilterSet<T>::remove(const T& element) {
  Handle removed = in_.remove(element);
  const bool wasIn = static_cast<bool>(removed);
  if (!wasIn) removed = out_.remove(element);
  if (!removed) {
    detail::warnOfAbsent(element);
    return {};
  }
  tellEach(element, wasIn ? &Observer::inSetRemoved : &Observer::outSetRemoved, &Observer::removed);
  return std::move(removed).take();
}

}  // namespace tolvanite
