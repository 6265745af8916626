#include <Tolvanite/Frame/Dispatch.h>

#include <chrono>
#include <memory>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Platform/MainQueue.h>

namespace tolvanite {

Block<void(bool)> qdispatch::onMainQueueDelayedOrManual(double seconds, Block<void(bool)> closure,
                                                        std::source_location location) {
  const double nanoseconds = seconds * 1'000'000'000;
  if (!(nanoseconds >= -0x1p63 && nanoseconds < 0x1p63)) fatalFailure("", location);

  if (!closure) return [](bool) {};

  using Shared = std::shared_ptr<const Block<void(bool)>>;
  const auto shared = std::make_shared<const Block<void(bool)>>(std::move(closure));
  // Emptied by whichever comes first, the trigger or the timed run, which alone looks into it.
  const auto holder = std::make_shared<Shared>(shared);

  MainQueue::after(std::chrono::nanoseconds(static_cast<Int>(nanoseconds)), [holder] {
    if (const Shared waiting = std::exchange(*holder, nullptr)) (*waiting)(false);
  });
  return [shared, holder](bool flag) {
    // The closure may let go of the trigger that it runs in.
    const Shared kept = shared;
    holder->reset();
    (*kept)(flag);
  };
}

}  // namespace tolvanite
