#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <ranges>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include <Tolvanite/Frame/ArrayShapes.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/TextTable.h>

#include "Demo.h"
#include "ModelDocument.h"
#include "Printing.h"
#include "TableController.h"

namespace demo {

namespace {

// Up to `limit` of the elements and at most half of them, evenly spread.
template <typename Elements>
std::vector<FileRecord> sampleOf(const Elements& elements, Int limit) {
  const Int count = std::min(limit, elements.count() / 2);
  std::vector<FileRecord> result;
  result.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) result.push_back(elements[i * elements.count() / count]);
  return result;
}

// With all content, of which the equality of the elements knows nothing.
template <typename Some, typename Others>
bool areEqual(const Some& some, const Others& others) {
  return std::ranges::equal(some, others, {}, &FileRecord::content, &FileRecord::content);
}

// The kind that most of the files have, if `except` is left out of account.
template <typename Files>
std::string mostFrequentKind(const Files& files, std::string_view except) {
  std::map<std::string, Int, std::less<>> counts{{"", 0}};
  for (const FileRecord& file : files) {
    if (!file.kind().empty() && file.kind() != except) ++counts[std::string(file.kind())];
  }
  return std::ranges::max_element(counts, {}, &decltype(counts)::value_type::second)->first;
}

class Demo {
 public:
  explicit Demo(std::vector<FileRecord> files)
      : scanned_(std::move(files)), shownKind_(mostFrequentKind(scanned_, "")) {}

  bool run() {
    const Stopwatch stopwatch;
    runPhase("Load in batches", &Demo::loadInBatches);
    runPhase("Insert one by one", &Demo::insertOneByOne);
    runPhase("Update in place", &Demo::updateInPlace);
    runPhase("Update and move to the front", &Demo::updateToFront);
    runPhase("Rename out of the filter", &Demo::renameOutOfFilter);
    runPhase("Rename back into the filter", &Demo::renameIntoFilter);
    runPhase("Remove one by one", &Demo::removeOneByOne);
    runPhase("Remove in a batch", &Demo::removeInBatch);
    runPhase("Sort by name", &Demo::sortAnew);
    runPhase("Filter by another kind", &Demo::filterAnew);
    saveListing();
    saveAndLoad({"model"});
    saveAndLoad({"packed-model", true});
    fmt::print("\n{} of {} checks passed: {} files, {} rows shown, {} changes of rows, {}\n",
               checks_ - failures_, checks_, grouped(files_->count()), grouped(view_->count()),
               grouped(changes_), stopwatch.text());
    return failures_ == 0;
  }

 private:
  // The phases. Each gives the number of files that it changed or looked at.

  Int loadInBatches() {
    const auto loaded = scanned_.end() - std::min<Int>(500, std::ssize(scanned_) / 2);
    heldBack_.assign(loaded, scanned_.end());
    scanned_.erase(loaded, scanned_.end());
    for (auto& batch : tolvanite::chunk(std::move(scanned_), 4096)) {
      // A view ignores a batch of which every element passes its filter: that goes in one by one.
      if (std::ranges::all_of(batch, isShown_)) {
        for (FileRecord& file : batch) files_->append(std::move(file));
      } else {
        files_->appendMultiple(std::move(batch));
      }
    }
    return files_->count();
  }

  Int insertOneByOne() {
    for (const FileRecord& file : heldBack_) files_->insert(file, files_->count() / 2);
    bool isRefused = files_->isEmpty();
    try {
      if (!isRefused) files_->append((*files_)[0]);
    } catch (const tolvanite::KerrayErrur&) {
      isRefused = true;
    }
    check(isRefused, "a file that is there already is refused");
    return std::ssize(heldBack_);
  }

  // A call for each: a view cannot follow an `update` of several elements at once, which would end
  // the process.
  Int updateInPlace() {
    const auto touched = sampleOf(*files_, 500);
    for (const FileRecord& file : touched) {
      files_->updateWithKey(file.key, [](FileRecord& content) { content.modified += 3600; });
    }
    return std::ssize(touched);
  }

  // The smallest files become the largest, each larger than the one before.
  Int updateToFront() {
    const Int count = std::min<Int>(500, view_->count() / 2);
    for (Int i = 0; i < count; ++i) {
      FileRecord file = (*view_)[view_->count() - 1];
      file.size = (*view_)[0].size + 1;
      files_->update(std::move(file));
    }
    return count;
  }

  Int renameOutOfFilter() {
    renamed_ = sampleOf(*view_, 250);
    for (FileRecord file : renamed_) {
      file.path += ".renamed";
      files_->update(std::move(file));
    }
    return std::ssize(renamed_);
  }

  // An `update` that makes an element pass the filter would put it behind its neighbour in the
  // base, not where the sort order has it. To be sorted in, it leaves the base and comes back.
  Int renameIntoFilter() {
    for (const FileRecord& file : renamed_) {
      const Int index = files_->indexOfKey(file.key).forced("it was only renamed");
      files_->removeAtIndex(index);
      files_->insert(file, index);
    }
    return std::ssize(renamed_);
  }

  Int removeOneByOne() {
    const auto unwanted = sampleOf(*view_, 250);
    for (const FileRecord& file : unwanted) view_->removeElementWithKey(file.key);
    return std::ssize(unwanted);
  }

  Int removeInBatch() { return files_->remove(sampleOf(*files_, 5000)).count(); }

  Int sortAnew() {
    view_->setSortBlock(byName());
    view_->setSortBlock(byName());  // the same by its code, so nothing happens
    return files_->count();
  }

  Int filterAnew() {
    shownKind_ = mostFrequentKind(*files_, shownKind_);
    view_->setFilterBlock(view_->filterBlock());
    return files_->count();
  }

  // The folder is made if it is missing.
  void saveListing() {
    const Stopwatch stopwatch;
    const auto location =
        documentFolder().vendUrl(nullptr, true).appendingPathComponent("listing.txt");
    std::ostringstream listing;
    for (const FileRecord& file : *view_) {
      listing << file.size << '\t' << file.modified << '\t' << printable(file.path) << '\n';
    }
    std::ofstream(location.filesystemPath()) << listing.str();
    fmt::print("\nThe listing in {}: {}\n", printable(location.path()), stopwatch.text());
    std::ifstream file(location.filesystemPath());
    const std::string found(std::istreambuf_iterator<char>(file), {});
    check(file.is_open() && found == listing.str(), "the listing reads as it was written");
  }

  void saveAndLoad(const ModelDocument& document) {
    try {
      Stopwatch stopwatch;
      const StoredDocument stored = store(*files_, document);
      const std::string writing = stopwatch.text();
      stopwatch = Stopwatch();
      const auto loaded = load(document);
      fmt::print("\nThe model in {}: {} files, {} bytes for {} of text\n",
                 printable(stored.location.path()), grouped(loaded->count()),
                 grouped(stored.fileSize), grouped(stored.textSize));
      fmt::print("   written in {}, read in {}\n", writing, stopwatch.text());
      check(areEqual(*loaded, *files_), "the model reads as it was written");
      const auto view = FileView::make(loaded, isShown_, *view_->sortBlock());
      check(areEqual(*view, *view_), "a view of what was read equals the view");
    } catch (const tolvanite::Error& error) {
      check(false, error.description());
    }
  }

  void runPhase(std::string_view title, Int (Demo::*phase)()) {
    const Stopwatch stopwatch;
    const Int files = (this->*phase)();
    const std::string time = stopwatch.text();
    const EventCounts told = table_.takeCounts();
    fmt::print("\n{}. {}: {} files, {}\n", ++phases_, title, grouped(files), time);
    fmt::print("   rows inserted {}, removed {}, updated {}, moved {}; reloads {}\n", told.inserted,
               told.removed, told.updated, told.moved, told.reloads);
    changes_ += told.inserted + told.removed + told.updated + told.moved;
    checkRows();
    printFirstRows();
  }

  void check(bool isFulfilled, std::string_view what) {
    ++checks_;
    if (isFulfilled) return;
    ++failures_;
    fmt::print("   FAILED: {}\n", what);
  }

  // The table against the view, and the view against a filtering and sorting from scratch.
  void checkRows() {
    check(areEqual(table_.rows(), *view_), "the table equals the view");
    std::vector<FileRecord> anew;
    std::ranges::copy_if(*files_, std::back_inserter(anew), isShown_);
    std::ranges::sort(anew, view_->sortBlock()->sortBlock);
    check(areEqual(anew, *view_), "the view is filtered and sorted");
  }

  void printFirstRows() const {
    using Column = tolvanite::TextTable::Column;
    tolvanite::TextTable table(
        {Column("size", Column::right), Column("modified"), Column("name")},
        fmt::format("{} files of the kind {}, by {}", grouped(view_->count()),
                    printable(shownKind_), view_->sortBlock()->code));
    for (const FileRecord& file : *view_ | std::views::take(4)) {
      const std::string name = printable(file.name());
      table.addRow(grouped(file.size), file.modified, tolvanite::characterPrefix(name, 44));
    }
    fmt::print("{}\n", table.render(true));
  }

  std::vector<FileRecord> scanned_;
  std::vector<FileRecord> heldBack_;  // for the insertions one by one
  std::vector<FileRecord> renamed_;   // as they were before

  // What the user of the table has chosen. A view asks the filter that it was made with about every
  // insertion, whatever filter is set later: so one filter stays, and looks up what is chosen.
  std::string shownKind_;
  const FileView::FilterBlock isShown_ = [this](const FileRecord& file) {
    return file.kind() == shownKind_;
  };

  const std::shared_ptr<Files> files_ = Files::make();
  const std::shared_ptr<FileView> view_ = FileView::make(files_, isShown_, bySize());
  TableController table_{*view_};

  Int phases_ = 0;
  Int checks_ = 0;
  Int failures_ = 0;
  Int changes_ = 0;
};

}  // namespace

bool runDemo(std::vector<FileRecord> files) { return Demo(std::move(files)).run(); }

}  // namespace demo
