// Work for the main thread of a host that runs its own loop. Any thread posts blocks; the host
// calls `drain` on its main thread whenever the descriptor is readable, from whatever loop it has.
//
//   MainQueue::async([] { refreshTable(); });
//   MainQueue::after(std::chrono::milliseconds(500), [] { hideHint(); });
//
//   pollfd waiting{MainQueue::descriptor(), POLLIN, 0};
//   while (running) {
//     poll(&waiting, 1, -1);
//     MainQueue::drain();
//   }
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The one queue of the process. All operations may be called from any thread and from within a
/// running block. Blocks still waiting when the process ends never run and are not destroyed.
struct TOLVANITE_EXPORT MainQueue {
  MainQueue() = delete;

  /// Lets `block` run in a coming drain, after all blocks posted before. An empty block is ignored.
  static void async(std::function<void()> block);

  /// The same once `delay` has passed, on a clock that never jumps. Delayed blocks run in the order
  /// of their due times, then of their calls. A delay that is not positive is none.
  static void after(std::chrono::nanoseconds delay, std::function<void()> block);

  /// Runs every block that is due now on the calling thread and returns how many ran. A block
  /// posted meanwhile waits for the next drain. A drain inside a block runs what the outer one has
  /// still to run. When a block throws, the exception leaves the drain and the rest stays queued.
  static std::size_t drain();

  /// A descriptor that is readable while a block is due; the same for the life of the process. It
  /// is for polling only: nobody but the queue may read or close it.
  static int descriptor();
};

}  // namespace tolvanite
