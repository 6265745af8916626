#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/Frame/ArrayShapes.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/TextTable.h>

#include "Demo.h"
#include "Listing.h"
#include "Printing.h"
#include "TableController.h"

namespace demo {

namespace {

using tolvanite::ElementArray;
using tolvanite::Kerray;

/// What a phase did, and what it expects the table to be told.
struct Outcome {
  Int files = 0;
  EventCounts expected;
};

// Up to `limit` of the elements, evenly spread.
template <typename Elements>
std::vector<FileRecord> sampleOf(const Elements& elements, Int limit) {
  const Int count = std::min(limit, elements.count());
  std::vector<FileRecord> result;
  result.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) result.push_back(elements[i * elements.count() / count]);
  return result;
}

class Demo {
 public:
  explicit Demo(FolderScan scan) : scanned_(std::move(scan.files)) {
    *shownKind_ = kindsByFrequency(scanned_)[0];
    // A view asks the filter that it was made with about every insertion, whatever filter is set
    // later. So this one filter stays, and looks up what is chosen.
    const auto filter = [kind = shownKind_](const FileRecord& file) { return file.kind == *kind; };
    view_ = FileView::make(files_, filter, bySize());
    table_ = std::make_unique<TableController>(*view_);
    table_->takeCounts();
  }

  bool run() {
    const Stopwatch stopwatch;
    runPhase("Load in batches", &Demo::loadInBatches);
    runPhase("Insert one by one", &Demo::insertOneByOne);
    runPhase("Update in place", &Demo::updateInPlace);
    runPhase("Update and move to the front", &Demo::updateToFront);
    runPhase("Undo both", &Demo::undoUpdates);
    runPhase("Rename out of the filter", &Demo::renameOutOfFilter);
    runPhase("Rename back into the filter", &Demo::renameIntoFilter);
    runPhase("Remove one by one", &Demo::removeOneByOne);
    runPhase("Remove in a batch", &Demo::removeInBatch);
    runPhase("Sort by name", &Demo::sortAnew);
    runPhase("Filter by another kind", &Demo::filterAnew);
    runPhase("Put back what was removed", &Demo::putBack);
    saveListing();
    if (failures_ > 0) {
      fmt::print("\n{} of {} checks FAILED\n", failures_, checks_);
    } else {
      fmt::print("\nAll {} checks passed: {} files, {} rows shown, {} changes of rows, {}\n",
                 checks_, grouped(files_->count()), grouped(view_->count()), grouped(changes_),
                 stopwatch.text());
    }
    return failures_ == 0;
  }

 private:
  Outcome loadInBatches() {
    const Int heldBackEach = std::max<Int>(2, std::ssize(scanned_) / 500);
    std::vector<FileRecord> loaded;
    for (FileRecord& file : scanned_) {
      (file.key % heldBackEach == 1 ? heldBack_ : loaded).push_back(std::move(file));
    }
    for (auto& batch : tolvanite::chunk(std::move(loaded), 4096)) appendBatch(std::move(batch));
    return {files_->count(), {.inserted = countShown(*files_)}};
  }

  // A view ignores a batch of which every element passes its filter: such a batch goes in one by
  // one. With any other element among them all can go at once.
  void appendBatch(std::vector<FileRecord> batch) {
    if (countShown(batch) < std::ssize(batch)) {
      files_->appendMultiple(std::move(batch));
    } else {
      for (FileRecord& file : batch) files_->append(std::move(file));
    }
  }

  Outcome insertOneByOne() {
    for (const FileRecord& file : heldBack_) files_->insert(file, files_->count() / 2);
    for (const FileRecord& file : sampleOf(*files_, 1)) {
      bool isRefused = false;
      try {
        files_->append(file);
      } catch (const tolvanite::KerrayErrur&) {
        isRefused = true;
      }
      check(isRefused, "a file that is there already is refused");
    }
    return {std::ssize(heldBack_), {.inserted = countShown(heldBack_)}};
  }

  // A call for each: a view cannot follow an `update` of several elements at once, which would end
  // the process.
  Outcome updateInPlace() {
    touched_ = sampleOf(*files_, 500);
    for (const FileRecord& file : touched_) {
      files_->updateWithKey(file.key, [](FileRecord& content) { content.modified += 3600; });
    }
    return {std::ssize(touched_), {.updated = countShown(touched_)}};
  }

  // The smallest files become the largest, each larger than the one before.
  Outcome updateToFront() {
    const Int count = std::min<Int>(500, view_->count() / 2);
    for (Int i = view_->count() - count; i < view_->count(); ++i) grown_.push_back((*view_)[i]);
    for (FileRecord file : grown_) {
      file.size = (*view_)[0].size + 1;
      files_->update(std::move(file));
    }
    return {count, {.updated = count, .moved = count}};
  }

  Outcome undoUpdates() {
    for (const FileRecord& file : grown_) files_->update(file);
    for (const FileRecord& file : touched_) files_->update(file);
    const Int moved = std::ssize(grown_);
    return {moved + std::ssize(touched_),
            {.updated = moved + countShown(touched_), .moved = moved}};
  }

  Outcome renameOutOfFilter() {
    renamed_ = sampleOf(*view_, 250);
    for (FileRecord file : renamed_) {
      file.path += ".old";
      file.kind = file.kind == FileKind::other ? FileKind::archive : FileKind::other;
      files_->update(std::move(file));
    }
    return {std::ssize(renamed_), {.removed = std::ssize(renamed_)}};
  }

  // An `update` that makes an element pass the filter would put it behind its neighbour in the
  // base, not where the sort order has it. To be sorted in, it leaves the base and comes back.
  Outcome renameIntoFilter() {
    for (const FileRecord& file : renamed_) {
      const Int index = files_->indexOfKey(file.key).forced("it was only renamed");
      files_->removeAtIndex(index);
      files_->insert(file, index);
    }
    return {std::ssize(renamed_), {.inserted = std::ssize(renamed_)}};
  }

  Outcome removeOneByOne() {
    const auto unwanted = sampleOf(*view_, 250);
    for (const FileRecord& file : unwanted) {
      if (auto gone = view_->removeElementWithKey(file.key)) removed_.push_back(*std::move(gone));
    }
    return {std::ssize(unwanted), {.removed = std::ssize(unwanted)}};
  }

  Outcome removeInBatch() {
    const auto gone = files_->remove(ElementArray<FileRecord>(sampleOf(*files_, 5000)));
    removed_.insert(removed_.end(), gone.begin(), gone.end());
    return {gone.count(), {.removed = countShown(gone)}};
  }

  Outcome sortAnew() {
    view_->setSortBlock(byName());
    view_->setSortBlock(byName());  // the same by its code, so nothing happens
    return {files_->count(), {.reloads = 1}};
  }

  Outcome filterAnew() {
    *shownKind_ = kindsByFrequency(*files_)[1];
    view_->setFilterBlock(view_->filterBlock());
    return {files_->count(), {.reloads = 1}};
  }

  Outcome putBack() {
    const Outcome outcome{std::ssize(removed_), {.inserted = countShown(removed_)}};
    appendBatch(std::move(removed_));
    return outcome;
  }

  void saveListing() {
    const Stopwatch stopwatch;
    try {
      const tolvanite::FileLocation location = writeListing(*view_);
      fmt::print("\nThe listing stands in {}, written in {}\n", printable(location.path()),
                 stopwatch.text());
      check(listingEquals(location, *view_), "the listing reads as it was written");
    } catch (const tolvanite::Error& error) {
      check(false, error.description());
    }
  }

  // Running and checking

  void runPhase(std::string_view title, Outcome (Demo::*phase)()) {
    const Stopwatch stopwatch;
    const Outcome outcome = (this->*phase)();
    const std::string time = stopwatch.text();
    const EventCounts told = table_->takeCounts();
    fmt::print("\n{}. {}: {} files, {}\n", ++phases_, title, grouped(outcome.files), time);
    fmt::print("   rows inserted {}, removed {}, updated {}, moved {}; reloads {}\n",
               grouped(told.inserted), grouped(told.removed), grouped(told.updated),
               grouped(told.moved), told.reloads);
    changes_ += told.inserted + told.removed + told.updated + told.moved;
    check(told == outcome.expected, "the table is told of every change once");
    checkContents();
    printFirstRows();
  }

  void check(bool isFulfilled, std::string_view what) {
    ++checks_;
    if (isFulfilled) return;
    ++failures_;
    fmt::print("   FAILED: {}\n", what);
  }

  // The table against the view, and the view against a filtering and sorting from scratch.
  void checkContents() {
    const auto contentOf = [](const TableController::Row& row) -> const FileRecord& {
      return *row;
    };
    std::vector<FileRecord> anew;
    for (const FileRecord& file : *files_) {
      if (isShown(file)) anew.push_back(file);
    }
    std::ranges::sort(anew, view_->sortBlock()->sortBlock);
    const auto shown = view_->filteredsortedArray().forced("there is a filter");
    check(std::ranges::equal(table_->rows(), shown, haveSameContent, contentOf),
          "the table equals the view");
    check(std::ranges::equal(anew, shown, haveSameContent), "the view is filtered and sorted");
  }

  void printFirstRows() const {
    using Column = tolvanite::TextTable::Column;
    tolvanite::TextTable table(
        {Column("size", Column::right), Column("modified"), Column("name")},
        fmt::format("{} files of the kind {}, by {}", grouped(view_->count()), nameOf(*shownKind_),
                    view_->sortBlock()->code));
    for (Int i = 0; i < std::min<Int>(4, view_->count()); ++i) {
      const FileRecord& file = (*view_)[i];
      const std::string name = printable(file.name());
      table.addRow(grouped(file.size), file.modified, tolvanite::characterPrefix(name, 44));
    }
    fmt::print("{}\n", table.render(true));
  }

  bool isShown(const FileRecord& file) const { return file.kind == *shownKind_; }
  template <typename Files>
  Int countShown(const Files& files) const {
    Int count = 0;
    for (const FileRecord& file : files) count += isShown(file) ? 1 : 0;
    return count;
  }
  // All kinds, the most frequent first.
  template <typename Files>
  static std::array<FileKind, kindCount> kindsByFrequency(const Files& files) {
    std::array<Int, kindCount> counts{};
    const auto countOf = [&](FileKind kind) -> Int& {
      return counts.at(static_cast<std::size_t>(kind));
    };
    for (const FileRecord& file : files) ++countOf(file.kind);
    std::array<FileKind, kindCount> kinds{};
    for (std::size_t i = 0; i < kindCount; ++i) kinds.at(i) = static_cast<FileKind>(i);
    std::ranges::stable_sort(kinds, std::ranges::greater(), countOf);
    return kinds;
  }

  std::vector<FileRecord> scanned_;
  std::vector<FileRecord> heldBack_;  // for the insertions one by one
  // As they were before; an undo has to go backward.
  std::vector<FileRecord> touched_;
  std::vector<FileRecord> grown_;
  std::vector<FileRecord> renamed_;
  std::vector<FileRecord> removed_;

  // What the user of the table has chosen.
  const std::shared_ptr<FileKind> shownKind_ = std::make_shared<FileKind>();
  const std::shared_ptr<Kerray<FileRecord>> files_ = Kerray<FileRecord>::make();
  std::shared_ptr<FileView> view_;
  std::unique_ptr<TableController> table_;

  Int phases_ = 0;
  Int checks_ = 0;
  Int failures_ = 0;
  Int changes_ = 0;
};

}  // namespace

bool runDemo(FolderScan scan) { return Demo(std::move(scan)).run(); }

}  // namespace demo
