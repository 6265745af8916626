#include <iostream>
#include <map>
#include <string>
#include <vector>

#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>

namespace {

struct Track {
  int key;
  std::string title;
  bool operator==(const Track& other) const { return key == other.key; }
  std::string description() const { return title; }
};
using View = tolvanite::OptionallyFilteredOptionallySortedArray_BasedOnKerray<Track>;

// Instantiates the templates in this program, which so uses what the library exports for them.
void showView() {
  const auto tracks = tolvanite::Kerray<Track>::make();
  const tolvanite::NamedSortBlock<Track> byTitle{
      "title", [](const Track& a, const Track& b) { return a.title < b.title; }};
  const auto view = View::make(tracks, [](const Track& t) { return t.key < 9; }, byTitle);
  const tolvanite::OwnerToken owner;
  view->observers.createNew(owner, [](View::Observer& observer) {
    observer.inserted = [](View&, tolvanite::Int index, const Track& track) {
      std::cout << "inserted " << track.title << " at " << index << '\n';
    };
  });
  tracks->append({1, "Nocturne"});
  tracks->append({9, "Aria"});
  tracks->append({2, "Barcarole"});
  try {
    tracks->append({2, "Waltz"});
  } catch (const tolvanite::KerrayErrur&) {
    std::cout << "refused\n";
  }
  for (const Track& track : *view) std::cout << track.title << '\n';
}

}  // namespace

int main() {
  const std::map<std::string, std::vector<int>> pages{{"first", {1, 2}}, {"second", {}}};
  std::cout << tolvanite::textForm(pages) << '\n'
            << tolvanite::checkedAdd<tolvanite::Int>(40, 2) << '\n';
  showView();
}
