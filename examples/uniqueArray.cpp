// The menu of recent files: each file once, the last one that was opened on top. A `Urray` keeps
// the order that it is given and lets no element in twice.
#include <iostream>
#include <string>

#include <Tolvanite/DataStructures/Urray.h>

using namespace tolvanite;

namespace {

constexpr Int most = 3;

void opened(const std::string& file, Urray<std::string>& recent) {
  if (const Optional<Int> index = recent.indexOf(file)) {
    if (*index != 0) recent.move(*index, 0);  // `moved` is sent also for equal indexes
    return;
  }
  recent.insert(file, 0);
  if (recent.count() > most) recent.removeElementAtIndex(most);
}

}  // namespace

int main() {
  Urray<std::string> recent;
  const OwnerToken menu;  // subscriptions end with it
  recent.observers.createNew(menu, [](auto& on) {
    on.inserted = [](auto&, Int index, const std::string& file) {
      std::cout << "  item " << index << ": " << file << '\n';
    };
    on.moved = [](auto&, Int from, Int to, const std::string& file) {
      std::cout << "  " << file << ": item " << from << " to " << to << '\n';
    };
    on.removed = [](auto& files, Int index, const std::string& file) {
      std::cout << "  no " << file << " at " << index << ", " << files.count() << " are left\n";
    };
  });

  try {
    // As the settings give them. What stands before the repeated one is in, the rest is not tried.
    recent.insert({"notes.txt", "plan.odt", "notes.txt", "photo.png"}, 0);
  } catch (const OrderedSetErrors& error) {
    std::cout << "listed twice: " << error.text << '\n';
  }
  const Urray<std::string> atStart = recent;  // a value: it stays as it is

  opened("plan.odt", recent);
  opened("budget.ods", recent);
  opened("letter.odt", recent);
  opened("letter.odt", recent);
  std::cout << "at the start " << atStart.array() << ", now " << recent.array() << '\n';

  if (!recent.contains("notes.txt")) std::cout << "notes.txt is recent no more\n";
  if (recent.remove("notes.txt").isNone()) std::cout << "so it cannot be removed\n";
  std::cout << recent << '\n';
}
