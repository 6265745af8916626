#if defined(TOLVANITE_PEER_QT)

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "../KeyedArrayDriver.h"

// Qt: a list model over a QList, with a QHash from key to row that is renumbered.
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

class Model : public QAbstractListModel {
 public:
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(items.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || role != ::Qt::DisplayRole) return {};
    return items[index.row()].name;
  }

  bool append(const QtItem& item) {
    if (rows.contains(item.key)) return false;
    const int row = static_cast<int>(items.size());
    beginInsertRows({}, row, row);
    items.append(item);
    rows.insert(item.key, row);
    endInsertRows();
    return true;
  }
  void update(quint64 key, double rank) {
    const int row = rows.value(key);
    items[row].rank = rank;
    const QModelIndex place = index(row);
    Q_EMIT dataChanged(place, place);
  }
  void remove(quint64 key) {
    const int row = rows.value(key);
    beginRemoveRows({}, row, row);
    items.removeAt(row);
    rows.remove(key);
    renumber(row, static_cast<int>(items.size()));
    endRemoveRows();
  }
  void move(int from, int to) {
    beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
    items.move(from, to);
    renumber(std::min(from, to), std::max(from, to) + 1);
    endMoveRows();
  }

  QList<QtItem> items;
  QHash<quint64, int> rows;

 private:
  void renumber(int first, int end) {
    const QtItem* const data = items.constData();
    for (int row = first; row < end; ++row) *rows.find(data[row].key) = row;
  }
};

class QtContender {
 public:
  using Native = QtItem;
  static QtItem native(const Item& item) {
    return {item.key, QString::fromStdString(item.name), item.rank, item.group};
  }

  QtContender() {
    using Base = QAbstractItemModel;
    QObject::connect(&model_, &Base::rowsInserted, &listener_,
                     [this](const QModelIndex&, int first, int) { tell(first); });
    QObject::connect(&model_, &Base::rowsRemoved, &listener_,
                     [this](const QModelIndex&, int first, int) { tell(first); });
    QObject::connect(&model_, &Base::dataChanged, &listener_,
                     [this](const QModelIndex& first) { tell(first.row()); });
    QObject::connect(&model_, &Base::rowsMoved, &listener_,
                     [this](const QModelIndex&, int from, int, const QModelIndex&, int before) {
                       tell(from);
                       tell(before > from ? before - 1 : before);
                     });
  }

  bool append(const QtItem& item) { return model_.append(item); }
  std::int64_t group(std::uint64_t key) const {
    return model_.items[*model_.rows.constFind(key)].group;
  }
  void update(std::uint64_t key, double rank) { model_.update(key, rank); }
  void remove(std::uint64_t key) { model_.remove(key); }
  void move(std::size_t from, std::size_t to) {
    model_.move(static_cast<int>(from), static_cast<int>(to));
  }
  std::uint64_t told() const { return told_; }
  template <class F>
  void forEachKey(F block) const {
    for (const QtItem& item : model_.items) block(item.key);
  }

 private:
  void tell(int row) { told_ += static_cast<std::uint64_t>(row); }

  Model model_;
  QObject listener_;
  std::uint64_t told_ = 0;
};

const bool registered = registerKeyedArray<QtContender>("qt", {.removals = 500, .moves = 500});

}  // namespace
}  // namespace bench

#endif
