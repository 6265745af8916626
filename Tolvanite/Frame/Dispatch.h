// Casual delays on the main queue.
//
//   Block<void(bool)> answerNow = qdispatch::onMainQueueDelayedOrManual(2.0, [](bool byHand) {
//     closePanel(byHand);
//   });
//   button.onClick = [answerNow] { answerNow(true); };
#pragma once

#include <source_location>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct TOLVANITE_EXPORT qdispatch {
  qdispatch() = delete;

  /// Calls `closure` with false on the main queue after `seconds`, exact to a nanosecond, unless
  /// the returned trigger was called before. Each call of the trigger calls `closure` at once with
  /// the trigger's flag; so does one after the timed call, and a second one. The trigger belongs to
  /// the main thread. An empty closure is never called. Fatal, without a message, when the
  /// nanoseconds are not finite or do not fit an Int.
  static Block<void(bool)> onMainQueueDelayedOrManual(
      double seconds, Block<void(bool)> closure,
      std::source_location location = std::source_location::current());
};

}  // namespace tolvanite
