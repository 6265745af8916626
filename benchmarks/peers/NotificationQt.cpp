#if defined(TOLVANITE_PEER_QT)

#include <QMetaObject>
#include <QObject>
#include <QSignalMapper>
#include <cstdint>
#include <memory>

#include "../NotificationDriver.h"

// Qt signals, the listener being the context object of its connection. QSignalMapper lends a plain
// signal with a 32-bit argument, so that no class here needs the meta object compiler.
namespace bench {
namespace {

template <class Sum>
class Qt {
 public:
  class Listener : public QObject, public Sum {
   public:
    void hear(int payload) { this->receive(static_cast<std::uint32_t>(payload)); }
  };
  using Owner = std::unique_ptr<Listener>;
  using Handle = QMetaObject::Connection;

  Owner makeListener() { return std::make_unique<Listener>(); }
  Handle subscribe(Owner& owner) {
    return QObject::connect(&sender_, &QSignalMapper::mappedInt, owner.get(), &Listener::hear);
  }
  void unsubscribe(Handle& handle) { QObject::disconnect(handle); }
  void fire(std::uint32_t payload) { Q_EMIT sender_.mappedInt(static_cast<int>(payload)); }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  QSignalMapper sender_;
};

const bool registered = registerNotification<Qt>("qt");

}  // namespace
}  // namespace bench

#endif
