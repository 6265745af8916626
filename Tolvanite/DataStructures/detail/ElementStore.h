// The changing side of an element array, kept by the collections for themselves.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/ElementArray.h>

namespace tolvanite::detail {

/// An element array whose owner may change it. Bad indexes are fatal.
template <typename T>
class ElementStore : public ElementArray<T> {
 public:
  ElementStore() = default;
  ElementStore(ElementArray<T> elements) : ElementArray<T>(std::move(elements)) {}

  /// Whether a copy holds the same content.
  bool isShared() const noexcept { return this->content_.isShared(); }

  /// The box at `index`, which must be in range.
  Box<T>* boxAt(Int index) const noexcept {
    return boxOf<T>(this->content_->handles.data()[index]);
  }
  /// Whether this very box stands at `index`, which may be any number.
  bool isAt(Int index, const Box<T>* box) const noexcept {
    return index >= 0 && index < this->count() && boxAt(index) == box;
  }
  Handle<T> handleAt(Int index) const {
    this->checkIndex(index, this->count());
    return Handle<T>::sharing(boxAt(index));
  }
  /// All boxes, in order.
  std::span<BoxHeader* const> boxes() const noexcept {
    if (!this->content_) return {};
    return {this->content_->handles.data(), this->size()};
  }
  /// All boxes, to be put into another order.
  std::span<BoxHeader*> boxesToReorder() {
    auto& handles = this->handles();
    return {handles.data(), static_cast<std::size_t>(handles.count())};
  }

  void reserve(Int count) { this->handles().reserve(count); }
  void append(Handle<T> handle) {
    this->handles().append(handle.get());
    handle.leak();
  }
  void insert(Int index, Handle<T> handle) {
    checkGap(index);
    auto& handles = this->handles();
    if (index == handles.count()) {
      handles.append(handle.get());
    } else {
      handles.openGap(index, 1);
      handles.data()[index] = handle.get();
    }
    handle.leak();
  }
  /// Inserts all elements as one block before `index`.
  void insert(Int index, const ElementArray<T>& elements) {
    checkGap(index);
    const ElementStore source(elements);
    this->handles().openGap(index, source.count());
    for (BoxHeader* box : source.boxes()) {
      this->handles().data()[index++] = Handle<T>::sharing(box).leak();
    }
  }
  /// Inserts elements one after the other, each at its index in the growing array.
  void insertEach(std::span<const Int> indexes, const ElementArray<T>& elements) {
    const ElementStore source(elements);
    if (isStrictlyAscending(indexes) && canOpenAll(indexes)) {
      // Ascending places are final, so all gaps are opened at once.
      std::vector<Int> before(indexes.begin(), indexes.end());
      for (std::size_t i = 0; i < before.size(); ++i) before[i] -= static_cast<Int>(i);
      this->handles().openGaps(before);
      for (std::size_t i = 0; i < indexes.size(); ++i) {
        this->handles().data()[indexes[i]] =
            Handle<T>::sharing(source.boxAt(static_cast<Int>(i))).leak();
      }
    } else {
      for (std::size_t i = 0; i < indexes.size(); ++i) {
        insert(indexes[i], source.handleAt(static_cast<Int>(i)));
      }
    }
  }
  /// Puts `handle` at `index` and gives back what stood there.
  Handle<T> replace(Int index, Handle<T> handle) {
    this->checkIndex(index, this->count());
    auto old = Handle<T>::adopting(this->handles().data()[index]);
    this->handles().data()[index] = handle.leak();
    return old;
  }
  Handle<T> removeAt(Int index) {
    this->checkIndex(index, this->count());
    auto& handles = this->handles();
    auto removed = Handle<T>::adopting(handles.data()[index]);
    handles.closeGap(index, 1);
    return removed;
  }
  /// Removes at the ascending `indexes` from the largest to the smallest and gives the elements in
  /// that order. A repeated index removes again at the same place.
  ElementStore removeAtAscending(std::span<const Int> indexes) {
    ElementStore removed;
    if (indexes.empty()) return removed;
    removed.reserve(static_cast<Int>(indexes.size()));
    if (!isStrictlyAscending(indexes)) {
      for (std::size_t i = indexes.size(); i > 0; --i) removed.append(removeAt(indexes[i - 1]));
      return removed;
    }
    this->checkIndex(indexes.front(), this->count());
    this->checkIndex(indexes.back(), this->count());
    auto& handles = this->handles();
    for (std::size_t i = indexes.size(); i > 0; --i) {
      removed.append(Handle<T>::adopting(handles.data()[indexes[i - 1]]));
    }
    handles.closeGaps(indexes);
    return removed;
  }
  /// Moves one element so that it stands at `to`.
  void move(Int from, Int to) {
    this->checkIndex(from, this->count());
    this->checkIndex(to, this->count());
    this->handles().move(from, to);
  }
  /// Moves the elements at the ascending indexes, in their order, so that the first one stands at
  /// `to` of the array without them. Gives them highest index first.
  ElementStore moveAscending(std::span<const Int> fromIndexes, Int to) {
    ElementStore moved = removeAtAscending(fromIndexes);
    checkGap(to);
    ElementStore block = moved;
    std::ranges::reverse(block.boxesToReorder());
    insert(to, block);
    return moved;
  }
  void removeAll() noexcept { this->content_ = {}; }

  /// Those elements for which `filter` answers true, in their order.
  template <typename Filter>
  ElementStore passing(const Filter& filter) const {
    const ElementStore all = *this;  // The filter may change the array that it is asked for.
    ElementStore result;
    for (BoxHeader* box : all.boxes()) {
      if (filter(std::as_const(boxOf<T>(box)->value))) result.append(Handle<T>::sharing(box));
    }
    return result;
  }

  /// The index of this very box, sought from `guess` outward; -1 if it is not among the `reach`
  /// elements on either side.
  Int findNear(const Box<T>* box, Int guess,
               Int reach = std::numeric_limits<Int>::max() / 2) const {
    if (!this->content_) return -1;
    return this->content_->handles.findNear(const_cast<Box<T>*>(box), guess, reach);
  }

  static bool isStrictlyAscending(std::span<const Int> indexes) {
    return std::ranges::adjacent_find(indexes, std::ranges::greater_equal{}) == indexes.end();
  }

 private:
  // Behind the last element is a place to insert at, too.
  void checkGap(Int index) const {
    if (index < 0 || index > this->count()) fatalIndexOutOfRange(index, this->count());
  }
  bool canOpenAll(std::span<const Int> indexes) const {
    return indexes.empty() || (indexes.front() >= 0 &&
                               indexes.back() < this->count() + static_cast<Int>(indexes.size()));
  }
};

}  // namespace tolvanite::detail
