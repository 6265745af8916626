#if defined(TOLVANITE_PEER_GTK)

#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>

#include <glib-object.h>

#include "../NotificationDriver.h"

// GObject signals, connected with g_signal_connect_object.
namespace bench {
namespace {

GType simpleType(const char* name, gsize instanceSize) {
  return g_type_register_static_simple(G_TYPE_OBJECT, name, sizeof(GObjectClass), nullptr,
                                       static_cast<guint>(instanceSize), nullptr, GTypeFlags(0));
}

GType senderType() {
  static const GType type = simpleType("BenchNotificationSender", sizeof(GObject));
  return type;
}

guint changedSignal() {
  static const guint signal = [] {
    const guint id = g_signal_new("changed", senderType(), G_SIGNAL_RUN_LAST, 0, nullptr, nullptr,
                                  g_cclosure_marshal_VOID__UINT, G_TYPE_NONE, 1, G_TYPE_UINT);
    g_signal_set_va_marshaller(id, senderType(), g_cclosure_marshal_VOID__UINTv);
    return id;
  }();
  return signal;
}

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};

template <class Sum>
class Gobject {
 public:
  struct Listener {
    GObject parent;
    Sum count;
  };
  using Owner = std::unique_ptr<Listener, Unref>;
  using Handle = gulong;

  Gobject() : signal_(changedSignal()) {
    sender_.reset(static_cast<GObject*>(g_object_new(senderType(), nullptr)));
  }
  Owner makeListener() {
    static_assert(std::is_trivially_destructible_v<Sum>);
    static const GType type = simpleType(
        std::is_same_v<Sum, OwnSum> ? "BenchListener" : "BenchCommonListener", sizeof(Listener));
    Owner owner(static_cast<Listener*>(g_object_new(type, nullptr)));
    new (&owner->count) Sum();
    return owner;
  }
  Handle subscribe(Owner& owner) {
    return g_signal_connect_object(sender_.get(), "changed", G_CALLBACK(hear), owner.get(),
                                   GConnectFlags(0));
  }
  void unsubscribe(Handle handle) { g_signal_handler_disconnect(sender_.get(), handle); }
  void fire(std::uint32_t payload) { g_signal_emit(sender_.get(), signal_, 0, payload); }
  static std::uint64_t sum(const Owner& owner) { return owner->count.sum; }

 private:
  static void hear(GObject*, guint payload, gpointer listener) {
    static_cast<Listener*>(listener)->count.receive(payload);
  }

  guint signal_;
  std::unique_ptr<GObject, Unref> sender_;
};

const bool registered = registerNotification<Gobject>("gobject");

}  // namespace
}  // namespace bench

#endif
