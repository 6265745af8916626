#include <Tolvanite/Json/detail/MappingScope.h>

#include <algorithm>
#include <utility>

#include <Tolvanite/Json/detail/Nodes.h>

namespace tolvanite::detail {

MappingScope::MappingScope(std::size_t count) : arena_(Arena::ofThisThread()) {
  constexpr std::size_t fewest = 64;
  if (arena_ != nullptr || count < fewest) return;
  // A limit on what elements may waste that are made and not kept.
  constexpr std::size_t mostPerItem = 1024;
  constexpr std::size_t usualPerItem = 128;
  constexpr std::size_t largestStep = 16 << 20;
  arena_ = Arena::make(std::min(count * usualPerItem, largestStep), count * mostPerItem);
  isOwner_ = true;
  Arena::setOfThisThread(arena_);
}

MappingScope::~MappingScope() {
  if (!isOwner_) return;
  Arena::setOfThisThread(nullptr);
  arena_->leave();
}

void MappingScope::adoptNode(Cell& element) {
  areAllAdopted_ = detail::adopt(element, *arena_) && areAllAdopted_;
}

ManagedArray MappingScope::adopted(ManagedArray list) const {
  if (arena_ == nullptr || list.isEmpty() || !areAllAdopted_) return list;
  Cell cell = std::move(list).takeCell();
  adoptContainer(cell, *arena_);
  return ManagedArray(std::move(cell));
}

OneByOneScope::OneByOneScope() : outer_(Arena::ofThisThread()) {
  constexpr std::size_t room = 64 << 10;
  arena_ = Arena::make(room, room);
  Arena::setOfThisThread(arena_);
}

OneByOneScope::~OneByOneScope() {
  Arena::setOfThisThread(outer_);
  arena_->leave();
}

void OneByOneScope::reuse() const noexcept { arena_->reuse(); }

}  // namespace tolvanite::detail
