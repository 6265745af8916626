#if defined(TOLVANITE_PEER_GTK)

#include <cstddef>
#include <cstdint>

#include <gio/gio.h>

#include "../KeyedArrayDriver.h"
#include "GtkItem.h"

// GListStore, the list model of GTK, with a GHashTable from key to object. The place of an object
// is found by g_list_store_find.
namespace bench {
namespace {

class ListStore {
 public:
  using Native = GtkItemRef;
  static Native native(const Item& item) { return GtkItemRef(item); }

  ListStore() : store_(g_list_store_new(gtkItemType())) {
    byKey_ = g_hash_table_new(g_int64_hash, g_int64_equal);
    g_signal_connect(store_, "items-changed", G_CALLBACK(hearChange), this);
  }
  ListStore(const ListStore&) = delete;
  ListStore& operator=(const ListStore&) = delete;
  ~ListStore() {
    g_hash_table_unref(byKey_);
    g_object_unref(store_);
  }

  bool append(const Native& item) {
    if (g_hash_table_contains(byKey_, &item.get()->key)) return false;
    g_hash_table_insert(byKey_, &item.get()->key, item.get());
    g_list_store_append(store_, item.get());
    return true;
  }
  std::int64_t group(std::uint64_t key) const { return find(key)->group; }
  void update(std::uint64_t key, double rank) {
    GtkItem* const item = find(key);
    item->rank = rank;
    gpointer self = g_object_ref(item);  // The store lets go of it before it takes it again.
    g_list_store_splice(store_, placeOf(item), 1, &self, 1);
    g_object_unref(item);
  }
  void remove(std::uint64_t key) {
    GtkItem* const item = find(key);
    const guint place = placeOf(item);
    g_hash_table_remove(byKey_, &key);
    g_list_store_remove(store_, place);
  }
  void move(std::size_t from, std::size_t to) {
    const auto item = g_list_model_get_item(G_LIST_MODEL(store_), static_cast<guint>(from));
    g_list_store_remove(store_, static_cast<guint>(from));
    g_list_store_insert(store_, static_cast<guint>(to), item);
    g_object_unref(item);
  }
  std::uint64_t told() const { return told_; }
  template <class F>
  void forEachKey(F block) const {
    GListModel* const model = G_LIST_MODEL(store_);
    const guint count = g_list_model_get_n_items(model);
    for (guint i = 0; i < count; ++i) block(gtkItemAt(model, i)->key);
  }

 protected:
  GtkItem* find(std::uint64_t key) const {
    return static_cast<GtkItem*>(g_hash_table_lookup(byKey_, &key));
  }
  std::uint64_t told_ = 0;

 private:
  guint placeOf(GtkItem* item) const {
    guint place = 0;
    g_list_store_find(store_, item, &place);
    return place;
  }
  static void hearChange(GListModel*, guint place, guint, guint, gpointer self) {
    static_cast<ListStore*>(self)->told_ += place;
  }

  GListStore* store_;
  GHashTable* byKey_;
};

// An update is told by the object's own "notify::rank", without an index.
class NotifyingListStore : public ListStore {
 public:
  bool append(const Native& item) {
    if (!ListStore::append(item)) return false;
    g_signal_connect(item.get(), "notify::rank", G_CALLBACK(hearRank), this);
    return true;
  }
  void update(std::uint64_t key, double rank) {
    GtkItem* const item = find(key);
    item->rank = rank;
    g_object_notify_by_pspec(&item->parent, GtkItemProperties::rankSpec);
  }
  std::uint64_t updates() const { return updates_; }

 private:
  static void hearRank(GObject*, GParamSpec*, gpointer self) {
    ++static_cast<NotifyingListStore*>(self)->updates_;
  }

  std::uint64_t updates_ = 0;
};

const bool registered =
    registerKeyedArray<ListStore>("gliststore", {.updates = 500, .removals = 500}) &&
    registerKeyedArray<NotifyingListStore>("gliststore_notify", {.tellsUpdatesByIndex = false},
                                           KeyedArrayRows::inPlace);

}  // namespace
}  // namespace bench

#endif
