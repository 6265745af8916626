#include <Tolvanite/Platform/MainQueue.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>

#include <errno.h>
#include <sys/timerfd.h>

namespace tolvanite {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::nanoseconds;

// Blocks by due time, then by call. The descriptor is a timer that is set to the earliest due time;
// a timer that went off stays readable until it is set anew, which is all the waking that is
// needed.
class Queue {
 public:
  Queue() : timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
    if (timer_ < 0) throw std::system_error(errno, std::generic_category(), "timerfd_create");
  }

  void post(nanoseconds delay, std::function<void()> block) {
    const std::lock_guard lock(mutex_);
    const auto now = Clock::now();
    const auto due = delay <= nanoseconds::zero()             ? now
                     : delay > Clock::time_point::max() - now ? Clock::time_point::max()
                                                              : now + delay;
    const auto place = blocks_.emplace(Place{due, nextCall_++}, std::move(block)).first;
    if (place == blocks_.begin()) setTimer();
  }

  std::size_t drain() {
    std::unique_lock lock(mutex_);
    const auto now = Clock::now();
    const std::uint64_t firstNewCall = nextCall_;
    const SetTimerAtEnd atEnd(*this, lock);
    std::size_t count = 0;
    while (!blocks_.empty()) {
      const auto& [due, call] = blocks_.begin()->first;
      if (due > now || call >= firstNewCall) break;
      auto node = blocks_.extract(blocks_.begin());
      lock.unlock();
      ++count;
      node.mapped()();
      // Whatever the block holds is let go before the lock is taken again.
      node = {};
      lock.lock();
    }
    return count;
  }

  int descriptor() const { return timer_; }

 private:
  using Place = std::pair<Clock::time_point, std::uint64_t>;

  struct SetTimerAtEnd {
    SetTimerAtEnd(Queue& owner, std::unique_lock<std::mutex>& held) : queue(owner), lock(held) {}
    SetTimerAtEnd(const SetTimerAtEnd&) = delete;
    SetTimerAtEnd& operator=(const SetTimerAtEnd&) = delete;
    ~SetTimerAtEnd() {
      if (!lock.owns_lock()) lock.lock();
      queue.setTimer();
    }
    Queue& queue;
    std::unique_lock<std::mutex>& lock;
  };

  void setTimer() const {
    itimerspec when{};
    if (!blocks_.empty()) {
      const auto due = blocks_.begin()->first.first.time_since_epoch();
      const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(due);
      when.it_value.tv_sec = seconds.count();
      when.it_value.tv_nsec = nanoseconds(due - seconds).count();
    }
    ::timerfd_settime(timer_, TFD_TIMER_ABSTIME, &when, nullptr);
  }

  const int timer_;
  std::mutex mutex_;
  std::map<Place, std::function<void()>> blocks_;
  std::uint64_t nextCall_ = 0;
};

// Never destroyed: a thread may post to it while the process ends.
Queue& queue() {
  static Queue& instance = *new Queue;
  return instance;
}

}  // namespace

void MainQueue::async(std::function<void()> block) { after(nanoseconds::zero(), std::move(block)); }

void MainQueue::after(nanoseconds delay, std::function<void()> block) {
  if (block) queue().post(delay, std::move(block));
}

std::size_t MainQueue::drain() { return queue().drain(); }

int MainQueue::descriptor() { return queue().descriptor(); }

}  // namespace tolvanite
