// A playlist whose header can be clicked: sorted by title, and back in the order in which its user
// put the tracks. Both orders are kept at once.
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include <Tolvanite/DataStructures/OptionallySortedUrray.h>

using namespace tolvanite;

namespace {

struct Track {
  int key;
  std::string title;
  std::string description() const { return title; }
};

using Playlist = OptionallySortedUrray<Track>;

}  // namespace

int main() {
  const NamedSortBlock<Track> byTitle{"title", [](auto& a, auto& b) { return a.title < b.title; }};
  Playlist playlist;
  std::vector<std::string> rows;  // in place of a widget
  const auto redraw = [&](const Playlist& list, Int first, Int last) {
    for (Int i = first; i <= last; ++i) rows[static_cast<std::size_t>(i)] = list[i].title;
  };
  const OwnerToken table;  // subscriptions end with it
  playlist.observers.createNew(table, [&](auto& on) {
    on.inserted = [&](auto&, Int row, const Track& track) {
      rows.insert(rows.begin() + row, track.title);
    };
    on.removed = [&](auto&, Int row, Int /*naturalRow*/, auto&) { rows.erase(rows.begin() + row); };
    on.updated = [&](auto& list, Int row, auto&) { redraw(list, row, row); };
    on.moved = [&](auto& list, Int from, Int to, auto&) {  // comes behind `updated`
      redraw(list, std::min(from, to), std::max(from, to));
    };
    on.sortingChanged = [&](auto& list, const Optional<std::string>& code) {
      redraw(list, 0, list.count() - 1);
      std::cout << "sorted by " << code.value_or("hand") << ": ";
    };
  });

  playlist.append({{1, "Nocturne"}, {2, "Waltz"}, {3, "Barcarole"}});
  playlist.moveFromIndex(0, 2);
  std::cout << textForm(rows) << '\n';
  playlist.setSortBlock(byTitle);
  std::cout << textForm(rows) << '\n';
  playlist.append({4, "Étude"});    // last in the order by hand, too
  playlist.update({3, "Prelude"});  // takes another row
  playlist.removeElementWithKey(2);
  std::cout << textForm(rows) << '\n';

  // While sorted, `update` changes what is on show alone: the order by hand keeps the old track.
  playlist.setSortBlock({});
  std::cout << textForm(rows) << '\n';
  playlist.update({3, "Prelude"});  // now it has the new one
  std::cout << playlist << '\n';
}
