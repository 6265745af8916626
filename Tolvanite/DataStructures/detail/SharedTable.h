// A hash table of boxed elements with copy-on-write content: a copy costs one reference.
#pragma once

#include <span>
#include <utility>

#include <Tolvanite/DataStructures/detail/Counted.h>
#include <Tolvanite/DataStructures/detail/ElementTable.h>
#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

template <typename T, typename Keying>
class SharedTable {
 public:
  using Table = ElementTable<T, Keying>;
  using Key = typename Keying::Key;
  using Slot = typename Table::Slot;

  Int count() const noexcept { return content_ ? content_->table.count() : 0; }
  Box<T>* find(const Key& key) const { return content_ ? content_->table.find(key) : nullptr; }
  std::span<const Slot> slots() const noexcept {
    return content_ ? content_->table.slots() : std::span<const Slot>();
  }
  /// Whether a copy holds the same content.
  bool isShared() const noexcept { return content_.isShared(); }
  bool hasContentOf(const SharedTable& other) const noexcept { return content_ == other.content_; }

  /// The table to read; it must not be without any element.
  const Table& table() const noexcept { return content_->table; }
  /// The table to change: content that a copy shares is left to the copy.
  Table& tableToChange() {
    if (!content_) {
      content_ = Counted<Content>::make();
    } else if (content_.isShared()) {
      content_ = Counted<Content>::make(content_->table);
    }
    return content_->table;
  }

 private:
  struct Content {
    Content() = default;
    explicit Content(const Table& other) : table(other) {}

    SharedCount references{1};
    Table table;
  };

  Counted<Content> content_;
};

}  // namespace tolvanite::detail
