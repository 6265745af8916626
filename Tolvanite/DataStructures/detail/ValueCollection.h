// How the collections that are values tell their observers of a change.
#pragma once

#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>

namespace tolvanite::detail {

/// Calls `tell` with each observer and with the collection as it stands, of which it makes one copy
/// before the pass, and none without observers.
template <typename Collection, typename Tell>
void tellWithCopy(const Collection& collection, const Tell& tell) {
  if (collection.observers.isEmpty()) return;
  const Collection copy(collection);
  copy.observers.forEach([&](auto& observer) { tell(observer, copy); });
}

/// The same for one event.
template <typename Collection, typename Observer, typename Event, typename... Arguments>
void notifyWithCopy(const Collection& collection, Event Observer::* event,
                    const Arguments&... arguments) {
  tellWithCopy(collection, [&](Observer& observer, const Collection& copy) {
    call(observer.*event, copy, arguments...);
  });
}

}  // namespace tolvanite::detail
