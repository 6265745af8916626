// A live sorted view: the host changes its tracks, and the table hears what to do, row by row.
// [readme]
#include <iostream>
#include <string>

#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

using namespace tolvanite;

struct Track {
  int key;
  std::string title;
  // Of the keys alone: the view finds a track by it again after its title has changed.
  bool operator==(const Track& other) const { return key == other.key; }
};
using TrackView = OptionallyFilteredOptionallySortedArray_BasedOnKerray<Track>;

int main() {
  const NamedSortBlock<Track> byTitle{"title", [](auto& a, auto& b) { return a.title < b.title; }};
  auto tracks = Kerray<Track>::make();
  auto view = TrackView::make(tracks, nullptr, byTitle);  // no filter
  OwnerToken table;                                       // the subscription ends with its owner
  view->observers.createNew(table, [](TrackView::Observer& on) {
    on.inserted = [](auto&, Int row, auto& t) {
      std::cout << "+ " << row << ' ' << t.title << '\n';
    };
    on.updated = [](auto&, Int row, auto& t) {
      std::cout << "= " << row << ' ' << t.title << '\n';
    };
    on.moved = [](auto&, Int from, Int to, auto&) { std::cout << from << " -> " << to << '\n'; };
    on.removed = [](auto&, Int row, auto& t) {
      std::cout << "- " << row << ' ' << t.title << '\n';
    };
  });
  tracks->append({1, "Nocturne"});   // + 0 Nocturne
  tracks->append({2, "Barcarole"});  // + 0 Barcarole
  tracks->update({2, "Waltz"});      // 0 -> 1 and = 1 Waltz
  tracks->removeElementWithKey(1);   // - 0 Nocturne
}
// [/readme]
