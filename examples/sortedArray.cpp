// A score table: the players stand in the order of their points, whoever comes and whatever they
// win. A `Serray` finds the places by itself and tells them.
#include <iostream>
#include <string>

#include <Tolvanite/DataStructures/Serray.h>

using namespace tolvanite;

namespace {

struct Score {
  std::string key;  // the player
  int points;
  std::string description() const { return key + " " + std::to_string(points); }
};

}  // namespace

int main() {
  const auto scores = Serray<Score>::make();
  scores->setSortBlock({"points", [](auto& a, auto& b) { return a.points > b.points; }});

  const OwnerToken board;  // subscriptions end with it
  scores->observers.createNew(board, [](auto& on) {
    on.inserted = [](auto&, Int row, const Score& score) {
      std::cout << "row " << row << ": " << textForm(score) << '\n';
    };
    on.updated = [](auto&, Int row, const Score& score) {
      std::cout << "row " << row << " stays: " << textForm(score) << '\n';
    };
    on.moved = [](auto&, Int from, Int to, const Score& score) {  // no `updated` for these
      std::cout << "row " << from << " goes to " << to << ": " << textForm(score) << '\n';
    };
    on.removed = [](auto&, Int row, const Score& score) {
      std::cout << "row " << row << " is out: " << score.key << '\n';
    };
    on.sortingChanged = [](auto& array, const std::string& code) {
      std::cout << "by " << code << ": " << array.array() << '\n';
    };
  });

  scores->insert({{"Ada", 7}, {"Grace", 12}, {"Edsger", 9}});
  scores->update({"Edsger", 11});
  scores->update({"Ada", 15});
  const Optional<Score> before = scores->update({"Barbara", 10});  // unknown, so inserted
  std::cout << "before: " << before.q() << '\n';
  try {
    scores->insert({"Ada", 0});
  } catch (const SerrayErrur& errur) {
    std::cout << "plays already: " << errur.text << '\n';
  }
  scores->removeWith("Grace");

  if (const Score* score = scores->elementWithKey("Edsger")) {
    std::cout << score->key << " is number " << *scores->indexWith("Edsger") + 1 << '\n';
  }
  scores->setSortBlock({"player", [](auto& a, auto& b) { return a.key < b.key; }});
}
