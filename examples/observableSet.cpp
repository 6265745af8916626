// The devices that are connected: a set that tells what comes, changes and goes. Two devices are
// the same when their serial numbers are; name and charge are content, which `update` replaces.
#include <Tolvanite/DataStructures/ObservableSet.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

using namespace tolvanite;

namespace {

struct Device {
  std::string serial;
  std::string name;
  int charge = 100;
  bool operator==(const Device& other) const { return serial == other.serial; }
  std::string description() const { return name + " " + std::to_string(charge) + "%"; }
};

}  // namespace

template <>
struct std::hash<Device> {
  std::size_t operator()(const Device& device) const noexcept {
    return std::hash<std::string>{}(device.serial);
  }
};

namespace {

// A set is in no order, so what is to be shown is sorted.
std::string sortedByName(const ElementSet<Device>& devices) {
  std::vector<Device> list(devices.begin(), devices.end());
  std::ranges::sort(list, {}, &Device::name);
  return textForm(list);
}

}  // namespace

int main() {
  const auto devices = ObservableSet<Device>::make();
  const OwnerToken panel;  // subscriptions end with it
  devices->observers.createNew(panel, [](auto& on) {
    on.inserted = [](auto&, const Device& device) { std::cout << "+ " << device.name << '\n'; };
    on.insertedMultiple = [](auto&, const ElementArray<Device>& batch) {
      std::cout << "+ " << batch << ", some of them perhaps present before\n";
    };
    on.updated = [](auto&, const Device& device) { std::cout << "= " << textForm(device) << '\n'; };
    on.removed = [](auto&, const Device& device) { std::cout << "- " << device.name << '\n'; };
    on.replacedContentOldContent = [](auto& set, const ElementSet<Device>& old) {
      std::cout << sortedByName(old) << " became " << sortedByName(set.elements()) << '\n';
    };
  });

  devices->insert({"A1", "mouse", 80});
  const Optional<Device> before = devices->update({"A1", "mouse", 79});  // the same device
  std::cout << "it was " << before.q() << '\n';
  try {
    devices->insertMultiple({{"B7", "keyboard", 60}, {"A1", "mouse", 20}, {"C3", "headset", 55}});
  } catch (const SetErrur& errur) {  // after the new ones are in and told
    std::cout << "connected already: " << errur.text << '\n';
  }
  devices->remove(Device{"C3", "a headset", 0});  // equal, as its serial number is
  devices->remove(Device{"D9", "camera", 0});     // prints a warning, and nobody is told
  devices->replaceContent({{"B7", "keyboard", 58}, {"E5", "pen", 90}});
}
