// What a view hears of the `Kerray` that it follows.
#pragma once

#include <vector>

#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/Followed.h>

namespace tolvanite::detail {

template <typename T>
class KerrayFollower : public Follower {
 public:
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
