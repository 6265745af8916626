// A live sorted view: the host changes its tracks, and its table hears what to do, row by row.
#include <iostream>
#include <string>

#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

using namespace tolvanite;

namespace {

// In place of a widget.
struct Table {
  void insertRow(Int row, const std::string& text) const {
    std::cout << row << ": " << text << '\n';
  }
  void setRow(Int row, const std::string& text) const { std::cout << row << " = " << text << '\n'; }
  void moveRow(Int from, Int to) const { std::cout << from << " -> " << to << '\n'; }

  OwnerToken owner;  // subscriptions end with it
};

}  // namespace

int main() {
  const Table table;

  // [readme]
  struct Track {
    int key;
    std::string title;
    bool operator==(const Track& other) const { return key == other.key; }
  };
  const NamedSortBlock<Track> byTitle{"title", [](auto& a, auto& b) { return a.title < b.title; }};
  auto tracks = Kerray<Track>::make();
  auto view = OptionallyFilteredOptionallySortedArray_BasedOnKerray<Track>::make(
      tracks, /*filterBlock=*/nullptr, byTitle);
  view->observers.createNew(table.owner, [&](auto& on) {
    on.inserted = [&](auto&, Int row, auto& track) { table.insertRow(row, track.title); };
    on.updated = [&](auto&, Int row, auto& track) { table.setRow(row, track.title); };
    on.moved = [&](auto&, Int from, Int to, auto&) { table.moveRow(from, to); };
  });
  tracks->append({1, "Nocturne"});   // table.insertRow(0, "Nocturne")
  tracks->append({2, "Barcarole"});  // table.insertRow(0, "Barcarole")
  tracks->update({2, "Waltz"});      // table.moveRow(0, 1), then table.setRow(1, "Waltz")
  // [/readme]
}
