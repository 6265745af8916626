// Tracks that are to be on the disk: of a library in a keyed array, the set of those with four
// stars and more. The view tells what to download and what to delete.
#include <algorithm>
#include <cstddef>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnKerray.h>

using namespace tolvanite;

namespace {

struct Track {
  int key;
  std::string title;
  int stars;
  bool operator==(const Track& other) const { return key == other.key; }
};

}  // namespace

template <>
struct std::hash<Track> {
  std::size_t operator()(const Track& track) const noexcept { return std::hash<int>{}(track.key); }
};

namespace {

std::string titles(const ElementSet<Track>& tracks) {
  std::vector<std::string> list;
  for (const Track& track : tracks) list.push_back(track.title);
  std::ranges::sort(list);
  return textForm(list);
}

}  // namespace

int main() {
  using View = OptionallyFilteredSet_BasedOnKerray<Track>;
  const auto library = Kerray<Track>::make({{1, "Aria", 5}, {2, "Ballad", 2}, {3, "Canon", 4}});
  const auto offline = View::make(library, [](auto& track) { return track.stars >= 4; });
  std::cout << "on the disk: " << titles(offline->inSet()) << '\n';

  const OwnerToken disk;  // subscriptions end with it
  offline->observers.createNew(disk, [](auto& on) {
    on.inserted = [](View&, auto& track) { std::cout << "download " << track.title << '\n'; };
    on.removed = [](View&, auto& track) { std::cout << "delete " << track.title << '\n'; };
    on.updated = [](View&, auto& track) { std::cout << "rename to " << track.title << '\n'; };
    on.insertedMultiple = [](View&, auto& all) { std::cout << "download " << titles(all) << '\n'; };
    on.removedMultiple = [](View&, auto& all) { std::cout << "delete " << titles(all) << '\n'; };
    on.updatedMultiple = [](View&, auto& all) { std::cout << "rename to " << titles(all) << '\n'; };
  });

  library->update({2, "Ballad", 5});      // passes now
  library->update({3, "Canon in D", 5});  // passes as before
  library->move(0, 2);                    // a set has no order: silence
  // A batch is told in three parts, and the parts that are empty are told, too.
  library->update(std::vector<Track>{{1, "Aria", 1}, {2, "Ballade", 5}});

  // The view keeps the content that it took in; the base has the present one.
  std::cout << titles(offline->inSet()) << ", in the base " << library->elementWithKey(2)->title
            << " and " << library->elementWithKey(3)->title << '\n';
  library->removeElementWithKey(3);
  std::cout << *offline << '\n';
}
