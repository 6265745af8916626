// How a view follows its base: as an observer in the registry, called in its turn like any other,
// but told of the boxes and not of the elements in them. So a view shares its elements with the
// base, and learns of an update also what the element was before.
#pragma once

#include <cstdint>
#include <vector>

#include <Tolvanite/DataStructures/detail/ElementStore.h>

namespace tolvanite::detail {

template <typename T>
class KerrayFollower {
 public:
  /// Comes before each of the others, with the running number of the change: a gap in the numbers
  /// tells that a later change was heard of first.
  virtual void baseChanged(std::uint64_t change) = 0;
  /// Comes when a block has thrown in one of the others.
  virtual void baseChangeFailed() noexcept = 0;
  virtual void baseReplacedContent() = 0;
  virtual void baseRemovedAll() = 0;
  virtual void baseInserted(Int index, const Handle<T>& element) = 0;
  virtual void baseInsertedMultipleContinuous(Int index, const ElementStore<T>& elements) = 0;
  virtual void baseInsertedMultipleDistributed(const std::vector<Int>& indexes,
                                               const ElementStore<T>& elements) = 0;
  virtual void baseRemoved(Int index, const Handle<T>& element) = 0;
  virtual void baseRemovedMultiple(const std::vector<Int>& indexes,
                                   const ElementStore<T>& elements) = 0;
  virtual void baseUpdated(Int index, const Handle<T>& element, const Handle<T>& old) = 0;
  virtual void baseUpdatedMultiple(const std::vector<Int>& indexes,
                                   const ElementStore<T>& elements) = 0;
  virtual void baseMoved(Int from, Int to, const Handle<T>& element) = 0;
  virtual void baseMovedMultiple(const std::vector<Int>& fromIndexes, Int to,
                                 const ElementStore<T>& elements) = 0;

 protected:
  ~KerrayFollower() = default;
};

}  // namespace tolvanite::detail
