// The changing side of an element set, kept by the collections for themselves.
#pragma once

#include <span>
#include <utility>

#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/IndexSeeker.h>

namespace tolvanite::detail {

/// An element set whose owner may change it.
template <HashableElement T>
class ElementSetStore : public ElementSet<T> {
 public:
  using Handle = detail::Handle<T>;
  using Table = ElementTable<T, ByElement<T>>;

  ElementSetStore() = default;
  ElementSetStore(ElementSet<T> elements) : ElementSet<T>(std::move(elements)) {}

  bool isShared() const noexcept { return this->table_.isShared(); }
  /// The box of the stored element that equals this one, or null.
  Box<T>* boxOf(const T& element) const { return this->table_.find(element); }

  void reserve(Int count) { this->table_.tableToChange().reserve(count); }
  /// Adds an element unless an equal one is stored; whether it did.
  bool insert(Handle handle) { return this->insertBox(std::move(handle)); }
  /// Adds the elements that have no equal in here.
  void insertAll(const ElementSet<T>& elements) {
    ElementSetStore(elements).forEachBox([this](Box<T>* box) { insert(Handle::sharing(box)); });
  }
  /// Makes a box of an element and adds it, unless an equal one is stored: then the result is null.
  template <typename Element>
  Handle insertElement(Element&& element, Int lastIndex = 0) {
    if (isShared() && this->contains(element)) return {};
    auto& table = this->table_.tableToChange();
    table.reserveOne();
    const auto spot = table.spotOf(element);
    if (table.boxAt(spot)) return {};
    auto handle = Handle::make(std::forward<Element>(element));
    table.insertAt(spot, handle, lastIndex);
    return handle;
  }
  /// Puts an element in the place of the one that equals it, which it gives back; null, without
  /// effect, when there is none.
  Handle replace(const Handle& handle) {
    if (this->isEmpty()) return {};
    if (isShared() && !boxOf(*handle)) return {};
    auto& table = this->table_.tableToChange();
    const auto spot = table.spotOf(*handle);
    return table.boxAt(spot) ? table.replaceAt(spot, handle) : Handle();
  }
  /// Removes the element that equals this one and gives it back, or null.
  Handle remove(const T& element) {
    if (this->isEmpty()) return {};
    if (isShared() && !boxOf(element)) return {};
    return this->table_.tableToChange().remove(element);
  }
  void removeAll() noexcept { this->table_ = {}; }

  /// The index of the equal element in an array that shares the boxes, or -1.
  Int seek(const T& element, const ElementStore<T>& array, IndexSeeker& seeker) const {
    if (this->isEmpty()) return -1;
    const Table& table = this->table_.table();
    const auto spot = table.spotOf(element);
    return table.boxAt(spot) ? seeker.indexAt(spot, table, array, !isShared()) : -1;
  }

  /// Those elements for which `filter` answers true.
  template <typename Filter>
  ElementSetStore passing(const Filter& filter) const {
    const ElementSetStore all = *this;  // The filter may change the set that it is asked for.
    ElementSetStore result;
    all.forEachBox([&](Box<T>* box) {
      if (filter(std::as_const(box->value))) result.insert(Handle::sharing(box));
    });
    return result;
  }

  /// Calls `call` with each box.
  template <typename Call>
  void forEachBox(const Call& call) const {
    for (const auto& slot : this->table_.slots()) {
      if (slot.box) call(slot.box);
    }
  }
};

}  // namespace tolvanite::detail
