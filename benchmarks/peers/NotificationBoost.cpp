#if defined(TOLVANITE_PEER_BOOST)

#include <cstdint>
#include <memory>

#include <boost/signals2.hpp>

#include "../NotificationDriver.h"

// Boost.Signals2, its listeners tracked by shared pointer; with its default mutex and without one.
namespace bench {
namespace {

namespace signals2 = boost::signals2;

template <class Sum, class Signal>
class TrackedSignal {
 public:
  using Owner = std::shared_ptr<Sum>;
  using Handle = signals2::connection;

  Owner makeListener() { return std::make_shared<Sum>(); }
  Handle subscribe(Owner& owner) {
    using Slot = typename Signal::slot_type;
    return signal_.connect(Slot([listener = owner.get()](std::uint32_t p) {
                             listener->receive(p);
                           }).track_foreign(owner));
  }
  void unsubscribe(Handle& handle) { handle.disconnect(); }
  void fire(std::uint32_t payload) { signal_(payload); }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  Signal signal_;
};

template <class Sum>
using WithMutex = TrackedSignal<Sum, signals2::signal<void(std::uint32_t)>>;

template <class Sum>
using WithoutMutex = TrackedSignal<
    Sum, typename signals2::signal_type<
             void(std::uint32_t), signals2::keywords::mutex_type<signals2::dummy_mutex>>::type>;

const bool registered = registerNotification<WithMutex>("boost_signals2") &&
                        registerNotification<WithoutMutex>("boost_signals2_nomutex");

}  // namespace
}  // namespace bench

#endif
