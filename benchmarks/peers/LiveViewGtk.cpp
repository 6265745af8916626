#if defined(TOLVANITE_PEER_GTK)

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <gtk/gtk.h>

#include "../LiveViewDriver.h"
#include "GtkItem.h"

// GTK: a sort model over a filter model over a GListStore; the order either compares the items
// themselves ("custom") or is a stock sorter over a property expression ("expression").
namespace bench {
namespace {

gboolean firstFilter(gpointer item, gpointer) {
  return passesFirstFilter(static_cast<const GtkItem*>(item)->group);
}

gboolean secondFilter(gpointer item, gpointer) {
  return passesSecondFilter(static_cast<const GtkItem*>(item)->group);
}

struct CustomOrder {
  static GtkSorter* byRank() {
    return GTK_SORTER(gtk_custom_sorter_new(
        [](gconstpointer a, gconstpointer b, gpointer) {
          const double left = static_cast<const GtkItem*>(a)->rank;
          const double right = static_cast<const GtkItem*>(b)->rank;
          return left < right ? -1 : left > right ? 1 : 0;
        },
        nullptr, nullptr));
  }
  static GtkSorter* byName() {
    return GTK_SORTER(gtk_custom_sorter_new(
        [](gconstpointer a, gconstpointer b, gpointer) {
          return std::strcmp(static_cast<const GtkItem*>(a)->name,
                             static_cast<const GtkItem*>(b)->name);
        },
        nullptr, nullptr));
  }
};

struct ExpressionOrder {
  static GtkSorter* byRank() {
    return GTK_SORTER(
        gtk_numeric_sorter_new(gtk_property_expression_new(gtkItemType(), nullptr, "rank")));
  }
  static GtkSorter* byName() {
    GtkStringSorter* const sorter =
        gtk_string_sorter_new(gtk_property_expression_new(gtkItemType(), nullptr, "name"));
    gtk_string_sorter_set_ignore_case(sorter, FALSE);
    return GTK_SORTER(sorter);
  }
};

template <class Order>
class GtkView {
 public:
  using Native = GtkItemRef;
  static Native native(const Item& item) { return GtkItemRef(item); }

  explicit GtkView(const std::vector<Item>& items) : store_(g_list_store_new(gtkItemType())) {
    for (const Item& item : items) g_list_store_append(store_, native(item).get());
  }
  GtkView(const GtkView&) = delete;
  GtkView& operator=(const GtkView&) = delete;
  ~GtkView() {
    g_clear_object(&view_);
    g_clear_object(&filter_);
    g_clear_object(&store_);
  }

  void build() {
    filter_ = gtk_custom_filter_new(firstFilter, nullptr, nullptr);
    GtkFilterListModel* const filtered = gtk_filter_list_model_new(
        G_LIST_MODEL(g_object_ref(store_)), GTK_FILTER(g_object_ref(filter_)));
    gtk_filter_list_model_set_incremental(filtered, FALSE);
    view_ = gtk_sort_list_model_new(G_LIST_MODEL(filtered), Order::byRank());
    gtk_sort_list_model_set_incremental(view_, FALSE);
    g_signal_connect(view_, "items-changed", G_CALLBACK(hearChange), this);
  }
  std::size_t viewCount() const { return g_list_model_get_n_items(G_LIST_MODEL(view_)); }
  void insert(std::size_t index, const Native& item) {
    g_list_store_insert(store_, static_cast<guint>(index), item.get());
  }
  // The models learn of a changed item only when it is replaced, here by itself.
  void update(std::size_t index, double rank) {
    gpointer item = g_list_model_get_item(G_LIST_MODEL(store_), static_cast<guint>(index));
    static_cast<GtkItem*>(item)->rank = rank;
    g_list_store_splice(store_, static_cast<guint>(index), 1, &item, 1);
    g_object_unref(item);
  }
  void remove(std::size_t index) { g_list_store_remove(store_, static_cast<guint>(index)); }
  void refilter() { gtk_custom_filter_set_filter_func(filter_, secondFilter, nullptr, nullptr); }
  void resort() {
    GtkSorter* const sorter = Order::byName();
    gtk_sort_list_model_set_sorter(view_, sorter);
    g_object_unref(sorter);
  }
  void appendBatch(std::vector<Native>& items) {
    std::vector<gpointer> objects;
    objects.reserve(items.size());
    for (const Native& item : items) objects.push_back(item.get());
    const guint count = g_list_model_get_n_items(G_LIST_MODEL(store_));
    g_list_store_splice(store_, count, 0, objects.data(), static_cast<guint>(objects.size()));
  }
  template <class F>
  void forEachViewKey(F block) const {
    const std::size_t count = viewCount();
    for (std::size_t i = 0; i < count; ++i) block(gtkItemAt(G_LIST_MODEL(view_), i)->key);
  }
  ViewNotes notes() const { return notes_; }

 private:
  static void hearChange(GListModel*, guint, guint removed, guint added, gpointer self) {
    static_cast<GtkView*>(self)->notes_.hear(std::uint64_t{removed} + added);
  }

  GListStore* store_;
  GtkCustomFilter* filter_ = nullptr;
  GtkSortListModel* view_ = nullptr;
  ViewNotes notes_;
};

const LiveViewWork largeWork{.insertionsAtEnd = 2'000,
                             .insertionsAnywhere = 1'000,
                             .movingUpdates = 1'000,
                             .stayingUpdates = 1'000};

const bool registered = registerLiveView<GtkView<CustomOrder>>("gtk_custom", largeWork) &&
                        registerLiveView<GtkView<ExpressionOrder>>("gtk_expression", largeWork);

}  // namespace
}  // namespace bench

#endif
