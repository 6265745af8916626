#include <algorithm>
#include <iterator>
#include <utility>

#include <Tolvanite/Frame/ArrayMoves.h>
#include <Tolvanite/Frame/ArrayRemoval.h>

#include "TableController.h"

namespace demo {

using tolvanite::ElementArray;

TableController::TableController(FileView& view) {
  reload(view);
  counts_ = {};
  view.observers.createNew(owner_, [this](FileView::Observer& observer) { subscribe(observer); });
}

// `movedMultiple` and `insertedMultipleContinuous` come from views in the base's own order only;
// this table's view is always sorted.
void TableController::subscribe(FileView::Observer& observer) {
  observer.sortingChanged = [this](FileView& view, const auto&) { reload(view); };
  observer.filterChanged = [this](FileView& view) { reload(view); };
  observer.replacedContent = [this](FileView& view) { reload(view); };
  observer.removedAll = [this](FileView& view) { reload(view); };
  observer.inserted = [this](FileView&, Int index, const FileRecord& file) {
    rows_.insert(rows_.begin() + index, file);
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
    rows_.at(static_cast<std::size_t>(index)) = file;
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
  for (const FileRecord& file : view) rows_.push_back(file);
  ++counts_.reloads;
}

// The indexes hold one after the other. What stands before an index is in `merged` by then; while
// the indexes ascend, that makes one pass over the rows.
void TableController::insert(const std::vector<Int>& indexes,
                             const ElementArray<FileRecord>& files) {
  std::vector<FileRecord> merged;
  merged.reserve(rows_.size() + indexes.size());
  auto next = rows_.begin();
  for (Int i = 0; i < files.count(); ++i) {
    const Int index = indexes[static_cast<std::size_t>(i)];
    while (std::ssize(merged) < index) merged.push_back(std::move(*next++));
    merged.insert(merged.begin() + index, files[i]);
  }
  std::move(next, rows_.end(), std::back_inserter(merged));
  rows_ = std::move(merged);
}

}  // namespace demo
