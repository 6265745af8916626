#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include <Tolvanite/Frame/ArrayMoves.h>
#include <Tolvanite/Frame/ArrayRemoval.h>

#include "TableController.h"

namespace demo {

using tolvanite::ElementArray;

static TableController::Row rowOf(const FileRecord& file) {
  return std::make_unique<FileRecord>(file);
}

TableController::TableController(FileView& view) {
  reload(view);
  view.observers.createNew(owner_, [this](FileView::Observer& observer) { subscribe(observer); });
}

// `movedMultiple` and `insertedMultipleContinuous` come from views in the base's own order only;
// this table's view is always sorted.
void TableController::subscribe(FileView::Observer& observer) {
  observer.sortingChanged = [this](FileView& view, const auto&) { reload(view); };
  observer.filterChanged = [this](FileView& view) { reload(view); };
  observer.replacedContent = [this](FileView& view) { reload(view); };
  observer.removedAll = [this](FileView&) {
    counts_.removed += std::ssize(rows_);
    rows_.clear();
  };
  observer.inserted = [this](FileView&, Int index, const FileRecord& file) {
    rows_.insert(rows_.begin() + index, rowOf(file));
    ++counts_.inserted;
  };
  observer.insertedMultipleDistributed = [this](FileView&, const std::vector<Int>& indexes,
                                                const ElementArray<FileRecord>& files) {
    insert(indexes, files);
    counts_.inserted += files.count();
  };
  observer.removed = [this](FileView&, Int index, const FileRecord&) {
    rows_.erase(rows_.begin() + index);
    ++counts_.removed;
  };
  observer.removedMultiple = [this](FileView&, const std::vector<Int>& indexes,
                                    const ElementArray<FileRecord>&) {
    tolvanite::removeAtIndexes(rows_, indexes);
    counts_.removed += std::ssize(indexes);
  };
  observer.updated = [this](FileView&, Int index, const FileRecord& file) {
    *rows_.at(static_cast<std::size_t>(index)) = file;
    ++counts_.updated;
  };
  // The row with its old content: `updated` follows with the new one.
  observer.moved = [this](FileView&, Int from, Int to, const FileRecord&) {
    tolvanite::moveFromIndexToIndex(rows_, from, to);
    ++counts_.moved;
  };
}

void TableController::reload(const FileView& view) {
  rows_.clear();
  rows_.reserve(static_cast<std::size_t>(view.count()));
  for (const FileRecord& file : view) rows_.push_back(rowOf(file));
  ++counts_.reloads;
}

// The indexes hold one after the other. While they ascend, each is also the row's last place, and
// one pass over the rows does what would be a shift for each.
void TableController::insert(const std::vector<Int>& indexes,
                             const ElementArray<FileRecord>& elements) {
  if (std::ranges::adjacent_find(indexes, std::ranges::greater_equal()) != indexes.end()) {
    for (Int i = 0; i < elements.count(); ++i) {
      rows_.insert(rows_.begin() + indexes[static_cast<std::size_t>(i)], rowOf(elements[i]));
    }
    return;
  }
  std::vector<Row> merged;
  merged.reserve(rows_.size() + indexes.size());
  auto row = rows_.begin();
  for (Int i = 0; i < elements.count(); ++i) {
    const auto before = indexes[static_cast<std::size_t>(i)] - std::ssize(merged);
    std::move(row, row + before, std::back_inserter(merged));
    row += before;
    merged.push_back(rowOf(elements[i]));
  }
  std::move(row, rows_.end(), std::back_inserter(merged));
  rows_ = std::move(merged);
}

}  // namespace demo
