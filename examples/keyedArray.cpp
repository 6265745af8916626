// A Kerray through its whole life: single and batch insertions, the error for a key that is there
// already, updates, moves and removals, and subscriptions that end with their owners.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <Tolvanite/DataStructures/Kerray.h>

using namespace tolvanite;

namespace {

struct Track {
  int key;
  std::string title;
  std::string description() const { return title; }
};

struct Playlist {};

void subscribe(Kerray<Track>& tracks, const std::shared_ptr<Playlist>& owner) {
  tracks.observers.createNew(owner, [](KerrayObserver<Track>& on) {
    on.inserted = [](Kerray<Track>&, Int index, const Track& track) {
      std::cout << "  inserted " << track.title << " at " << index << '\n';
    };
    on.insertedMultipleContinuous = [](Kerray<Track>&, Int index,
                                       const ElementArray<Track>& batch) {
      std::cout << "  inserted " << batch << " from " << index << '\n';
    };
    on.updated = [](Kerray<Track>&, Int index, const Track& track) {
      std::cout << "  updated " << index << " to " << track.title << '\n';
    };
    on.moved = [](Kerray<Track>&, Int from, Int to, const Track& track) {
      std::cout << "  moved " << track.title << " from " << from << " to " << to << '\n';
    };
    on.movedMultiple = [](Kerray<Track>&, const std::vector<Int>& from, Int to,
                          const ElementArray<Track>& batch) {
      std::cout << "  moved " << batch << " from " << textForm(from) << " to " << to << '\n';
    };
    on.removed = [](Kerray<Track>&, Int index, const Track& track) {
      std::cout << "  removed " << track.title << " at " << index << '\n';
    };
  });
}

}  // namespace

int main() {
  const auto tracks = Kerray<Track>::make();
  auto playlist = std::make_shared<Playlist>();
  subscribe(*tracks, playlist);

  tracks->append({1, "Aria"});
  tracks->insert({2, "Ballad"}, 0);
  try {
    // What is new goes in and is told; then the batch reports what was there before.
    tracks->appendMultiple({{3, "Canon"}, {1, "Aria again"}, {4, "Duet"}});
  } catch (const KerrayErrur& errur) {
    std::cout << "present already: " << errur.text << '\n';
  }
  tracks->update({3, "Canon in D"});
  tracks->updateWithKey(4, [](Track& track) { track.title += " for two"; });
  if (tracks->update({9, "Nobody"}).isNone()) std::cout << "no track 9 to update\n";

  tracks->move(0, 3);
  tracks->move({1, 3}, 0);
  tracks->removeElementWithKey(1);
  std::cout << tracks->array() << '\n';
  if (const Track* track = tracks->elementWithKey(3)) std::cout << "3 is " << track->title << '\n';

  playlist.reset();  // and with it the subscription
  tracks->append({5, "Encore"});
  std::cout << tracks->description2() << '\n';
}
