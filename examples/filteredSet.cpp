// The downloads that are under way: a live view of the set of all downloads. Changes are made to
// the set; the view hears of them and tells what they mean to it.
#include <cstddef>
#include <functional>
#include <iostream>
#include <string>

#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnObservableSet.h>

using namespace tolvanite;

namespace {

struct Download {
  std::string file;
  int percent = 0;
  bool operator==(const Download& other) const { return file == other.file; }
};

}  // namespace

template <>
struct std::hash<Download> {
  std::size_t operator()(const Download& download) const noexcept {
    return std::hash<std::string>{}(download.file);
  }
};

int main() {
  using View = OptionallyFilteredSet_BasedOnObservableSet<Download>;
  const auto downloads = ObservableSet<Download>::make();
  const auto running = View::make(downloads, [](auto& download) { return download.percent < 100; });

  const OwnerToken window;  // subscriptions end with it
  running->observers.createNew(window, [](auto& on) {
    on.inserted = [](View& view, const Download& download) {
      std::cout << "bar for " << download.file << ", " << view.count() << " running\n";
    };
    on.removed = [](View& view, const Download& download) {
      std::cout << "no bar for " << download.file << ", " << view.count() << " running\n";
    };
    on.updated = [](View& view, const Download& download) {
      if (!view.contains(download)) return;  // updates outside the view are told, too
      std::cout << download.file << " at " << download.percent << "%\n";
    };
    on.filterChanged = [](View& view) { std::cout << view << '\n'; };
  });

  downloads->insert({"disk.iso"});
  running->insert({"notes.pdf", 100});  // into the base; it does not pass, so the view is silent
  downloads->update({"disk.iso", 40});

  // Under a filter the view keeps the content that it took in: the new one is in the event, and in
  // the base.
  const Download disk{"disk.iso"};
  std::cout << (*running)[disk]->percent << "% in the view, " << (*downloads)[disk]->percent
            << "% in the base\n";

  downloads->update({"disk.iso", 100});  // done: it leaves the view
  downloads->update({"notes.pdf", 10});  // again: it comes into the view
  running->setFilterBlock(nullptr);      // shows the base as it is, and holds nothing
  downloads->remove(disk);
}
