// A table as a host writes it: it keeps rows of its own, and changes them by what the view tells,
// row by row. With a toolkit, each block would also tell the widget which rows to touch.
#pragma once

#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

#include "FileRecord.h"

namespace demo {

using FileView = tolvanite::OptionallyFilteredOptionallySortedArray_BasedOnKerray<FileRecord>;

/// How many rows were told of, by what was told.
struct EventCounts {
  Int inserted = 0;
  Int removed = 0;
  Int updated = 0;
  Int moved = 0;
  Int reloads = 0;  // whole contents
};

class TableController {
 public:
  explicit TableController(FileView& view);
  // The blocks refer to this very object.
  TableController(const TableController&) = delete;
  TableController& operator=(const TableController&) = delete;

  const std::vector<FileRecord>& rows() const { return rows_; }
  /// What was told since the last call.
  EventCounts takeCounts() { return std::exchange(counts_, {}); }

 private:
  void subscribe(FileView::Observer& observer);
  void reload(const FileView& view);
  void insert(const std::vector<Int>& indexes, const tolvanite::ElementArray<FileRecord>& files);

  std::vector<FileRecord> rows_;
  EventCounts counts_;
  tolvanite::OwnerToken owner_;  // the last member: no block is called when the others are gone
};

}  // namespace demo
