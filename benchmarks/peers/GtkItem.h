#pragma once

#include <memory>
#include <utility>

#include <gio/gio.h>

#include "../Workload.h"

// The item of the benchmarks as a GObject with the properties "rank" and "name".
namespace bench {

struct GtkItem {
  GObject parent;
  guint64 key;
  char* name;
  double rank;
  gint64 group;
};

struct GtkItemProperties {
  enum : guint { rank = 1, name = 2 };
  static inline GParamSpec* rankSpec = nullptr;
};

namespace detail {

inline void gtkItemGet(GObject* object, guint id, GValue* value, GParamSpec*) {
  const auto* const item = reinterpret_cast<const GtkItem*>(object);
  if (id == GtkItemProperties::rank) {
    g_value_set_double(value, item->rank);
  } else {
    g_value_set_string(value, item->name);
  }
}

inline void gtkItemFinalize(GObject* object) {
  g_free(reinterpret_cast<GtkItem*>(object)->name);
  G_OBJECT_CLASS(g_type_class_peek(G_TYPE_OBJECT))->finalize(object);
}

inline void gtkItemClass(gpointer itemClass, gpointer) {
  GObjectClass* const object = G_OBJECT_CLASS(itemClass);
  object->get_property = gtkItemGet;
  object->finalize = gtkItemFinalize;
  const auto flags =
      GParamFlags(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS | G_PARAM_EXPLICIT_NOTIFY);
  GtkItemProperties::rankSpec = g_param_spec_double("rank", nullptr, nullptr, 0, 3, 0, flags);
  g_object_class_install_property(object, GtkItemProperties::rank, GtkItemProperties::rankSpec);
  g_object_class_install_property(object, GtkItemProperties::name,
                                  g_param_spec_string("name", nullptr, nullptr, nullptr, flags));
}

}  // namespace detail

inline GType gtkItemType() {
  static const GType type =
      g_type_register_static_simple(G_TYPE_OBJECT, "BenchItem", sizeof(GObjectClass),
                                    detail::gtkItemClass, sizeof(GtkItem), nullptr, GTypeFlags(0));
  return type;
}

// A counted reference to an item.
class GtkItemRef {
 public:
  explicit GtkItemRef(const Item& item)
      : item_(static_cast<GtkItem*>(g_object_new(gtkItemType(), nullptr))) {
    item_->key = item.key;
    item_->name = g_strdup(item.name.c_str());
    item_->rank = item.rank;
    item_->group = item.group;
  }
  GtkItemRef(const GtkItemRef& other) : item_(static_cast<GtkItem*>(g_object_ref(other.item_))) {}
  GtkItemRef(GtkItemRef&& other) noexcept : item_(std::exchange(other.item_, nullptr)) {}
  GtkItemRef& operator=(GtkItemRef other) noexcept {
    std::swap(item_, other.item_);
    return *this;
  }
  ~GtkItemRef() {
    if (item_) g_object_unref(item_);
  }
  GtkItem* get() const { return item_; }

 private:
  GtkItem* item_;
};

// The item at an index of a list model; null past the end. The model keeps it alive.
inline GtkItem* gtkItemAt(GListModel* model, std::size_t index) {
  gpointer const item = g_list_model_get_item(model, static_cast<guint>(index));
  if (item) g_object_unref(item);
  return static_cast<GtkItem*>(item);
}

}  // namespace bench
