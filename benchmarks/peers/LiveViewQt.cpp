#if defined(TOLVANITE_PEER_QT)

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>
#include <QVariant>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "../LiveViewDriver.h"

// Qt: a sort and filter proxy over a table model; its order either compares the items themselves
// ("direct") or is the stock one, which compares what data() gives ("stock").
namespace bench {
namespace {

struct QtItem {
  quint64 key;
  QString name;
  double rank;
  qint64 group;
};

}  // namespace
}  // namespace bench

Q_DECLARE_TYPEINFO(bench::QtItem, Q_RELOCATABLE_TYPE);

namespace bench {
namespace {

enum Column : int { keyColumn, nameColumn, rankColumn, groupColumn, columnCount };

QtItem qtItem(const Item& item) {
  return {item.key, QString::fromStdString(item.name), item.rank, item.group};
}

class Table : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(items.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : Column::columnCount;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || role != ::Qt::DisplayRole) return {};
    const QtItem& item = items[index.row()];
    switch (index.column()) {
      case keyColumn:
        return item.key;
      case nameColumn:
        return item.name;
      case rankColumn:
        return item.rank;
      default:
        return item.group;
    }
  }

  void insert(int row, const QtItem& item) {
    beginInsertRows({}, row, row);
    items.insert(row, item);
    endInsertRows();
  }
  void append(const std::vector<QtItem>& added) {
    const int first = static_cast<int>(items.size());
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    for (const QtItem& item : added) items.append(item);
    endInsertRows();
  }
  void update(int row, double rank) {
    items[row].rank = rank;
    const QModelIndex cell = index(row, rankColumn);
    Q_EMIT dataChanged(cell, cell);
  }
  void remove(int row) {
    beginRemoveRows({}, row, row);
    items.removeAt(row);
    endRemoveRows();
  }

  QList<QtItem> items;
};

class Proxy : public QSortFilterProxyModel {
 public:
  explicit Proxy(const Table& table) : table_(table) {}
  void letPassSecondFilter() {
    second_ = true;
    invalidateRowsFilter();
  }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex&) const override {
    const qint64 group = table_.items[row].group;
    return second_ ? passesSecondFilter(group) : passesFirstFilter(group);
  }
  const Table& table_;

 private:
  bool second_ = false;
};

class DirectProxy : public Proxy {
 public:
  using Proxy::Proxy;

 protected:
  bool lessThan(const QModelIndex& a, const QModelIndex& b) const override {
    const QtItem& left = table_.items[a.row()];
    const QtItem& right = table_.items[b.row()];
    return a.column() == rankColumn ? left.rank < right.rank : left.name < right.name;
  }
};

template <class ProxyType>
class QtView {
 public:
  using Native = QtItem;
  static QtItem native(const Item& item) { return qtItem(item); }

  explicit QtView(const std::vector<Item>& items) {
    for (const Item& item : items) table_.items.append(qtItem(item));
  }

  void build() {
    proxy_ = std::make_unique<ProxyType>(table_);
    listen();
    proxy_->setDynamicSortFilter(true);
    proxy_->setSourceModel(&table_);
    proxy_->sort(rankColumn);
  }
  std::size_t viewCount() const { return static_cast<std::size_t>(proxy_->rowCount()); }
  void insert(std::size_t index, const QtItem& item) {
    table_.insert(static_cast<int>(index), item);
  }
  void update(std::size_t index, double rank) { table_.update(static_cast<int>(index), rank); }
  void remove(std::size_t index) { table_.remove(static_cast<int>(index)); }
  void refilter() { proxy_->letPassSecondFilter(); }
  void resort() { proxy_->sort(nameColumn); }
  void appendBatch(const std::vector<QtItem>& items) { table_.append(items); }
  template <class F>
  void forEachViewKey(F block) const {
    for (int row = 0; row < proxy_->rowCount(); ++row) {
      block(table_.items[proxy_->mapToSource(proxy_->index(row, 0)).row()].key);
    }
  }
  ViewNotes notes() const { return notes_; }

 private:
  void hear(int rows) { notes_.hear(static_cast<std::uint64_t>(rows)); }
  void listen() {
    using Base = QAbstractItemModel;
    const ProxyType* const proxy = proxy_.get();
    const auto hearRange = [this](const QModelIndex&, int first, int last) {
      hear(last - first + 1);
    };
    const auto hearAll = [this, proxy] { hear(proxy->rowCount()); };
    QObject::connect(proxy, &Base::rowsInserted, &listener_, hearRange);
    QObject::connect(proxy, &Base::rowsRemoved, &listener_, hearRange);
    QObject::connect(proxy, &Base::layoutChanged, &listener_, hearAll);
    QObject::connect(proxy, &Base::modelReset, &listener_, hearAll);
    QObject::connect(proxy, &Base::dataChanged, &listener_,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                       hear(last.row() - first.row() + 1);
                     });
  }

  QObject listener_;
  Table table_;
  std::unique_ptr<ProxyType> proxy_;
  ViewNotes notes_;
};

const LiveViewWork largeWork{.insertionsAnywhere = 2'000, .movingUpdates = 5'000};

const bool registered = registerLiveView<QtView<DirectProxy>>("qt_direct", largeWork) &&
                        registerLiveView<QtView<Proxy>>("qt_stock", largeWork);

}  // namespace
}  // namespace bench

#endif
