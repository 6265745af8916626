// Where the raw elements of mapped values are made: a dictionary as listed and a long text that a
// thread makes while it maps are put behind one another in an arena, instead of each into memory of
// its own.
#pragma once

#include <cstddef>

#include <Tolvanite/Json/ManagedObject.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

class Arena;

/// For a list of mapped items. What is within a larger one shares the arena of that.
class TOLVANITE_EXPORT MappingScope {
 public:
  /// `count`: how many items there are; few ones have no need of an arena.
  explicit MappingScope(std::size_t count);
  MappingScope(const MappingScope&) = delete;
  MappingScope& operator=(const MappingScope&) = delete;
  ~MappingScope();

  /// Moves what an element consists of into the arena, as far as it is this element's alone.
  void adopt(Cell& element) {
    if (arena_ != nullptr && element.hasNode()) adoptNode(element);
  }
  /// The same for the list itself, whose elements went through `adopt` and which nobody shares.
  ManagedArray adopted(ManagedArray list) const;

 private:
  void adoptNode(Cell& element);

  Arena* arena_;
  bool isOwner_ = false;
  bool areAllAdopted_ = true;
};

/// For items that are mapped and gone one by one, so that the same memory serves each.
class TOLVANITE_EXPORT OneByOneScope {
 public:
  OneByOneScope();
  OneByOneScope(const OneByOneScope&) = delete;
  OneByOneScope& operator=(const OneByOneScope&) = delete;
  ~OneByOneScope();

  /// Begins anew with the next item, unless something of those before is still there.
  void reuse() const noexcept;

 private:
  Arena* arena_;
  Arena* outer_;
};

}  // namespace tolvanite::detail
