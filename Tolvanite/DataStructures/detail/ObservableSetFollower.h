// What a view hears of the `ObservableSet` that it follows.
#pragma once

#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/Followed.h>

namespace tolvanite::detail {

template <typename T>
class ObservableSetFollower : public Follower {
 public:
  virtual void baseReplacedContent() = 0;
  virtual void baseRemovedAll() = 0;
  virtual void baseInserted(const Handle<T>& element) = 0;
  /// `areAllNew` is false when some of the elements were in the base already, which keeps other
  /// boxes of them.
  virtual void baseInsertedMultiple(const ElementStore<T>& elements, bool areAllNew) = 0;
  virtual void baseUpdated(const Handle<T>& element, const Handle<T>& old) = 0;
  virtual void baseUpdatedMultiple() = 0;
  /// `removed` is the base's element, which equals the one that the base was asked to remove.
  virtual void baseRemoved(const T& element, const Handle<T>& removed) = 0;
  virtual void baseRemovedMultiple(const ElementSet<T>& removed) = 0;

 protected:
  ~ObservableSetFollower() = default;
};

}  // namespace tolvanite::detail
