#if defined(TOLVANITE_PEER_SIGC)

#include <cstdint>
#include <memory>

#include <sigc++/sigc++.h>

#include "../NotificationDriver.h"

// sigc++, its listeners trackable.
namespace bench {
namespace {

template <class Sum>
class Sigc {
 public:
  struct Listener : public sigc::trackable, public Sum {
    void hear(std::uint32_t payload) { this->receive(payload); }
  };
  using Owner = std::unique_ptr<Listener>;
  using Handle = sigc::connection;

  Owner makeListener() { return std::make_unique<Listener>(); }
  Handle subscribe(Owner& owner) { return signal_.connect(sigc::mem_fun(*owner, &Listener::hear)); }
  void unsubscribe(Handle& handle) { handle.disconnect(); }
  void fire(std::uint32_t payload) { signal_.emit(payload); }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  sigc::signal<void(std::uint32_t)> signal_;
};

const bool registered = registerNotification<Sigc>("sigc");

}  // namespace
}  // namespace bench

#endif
