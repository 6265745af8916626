#include <cstddef>
#include <cstdint>
#include <memory>

#include <Tolvanite/DataStructures/Kerray.h>

#include "KeyedArrayDriver.h"

namespace bench {
namespace {

// Kerray with one observer.
class KerrayContender {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  KerrayContender() {
    using tolvanite::Int;
    using Items = tolvanite::Kerray<Item>;
    items_->observers.createNew(owner_, [this](tolvanite::KerrayObserver<Item>& observer) {
      observer.inserted = [this](Items&, Int index, const Item&) { tell(index); };
      observer.updated = [this](Items&, Int index, const Item&) { tell(index); };
      observer.removed = [this](Items&, Int index, const Item&) { tell(index); };
      observer.moved = [this](Items&, Int from, Int to, const Item&) { tell(from + to); };
    });
  }
  KerrayContender(const KerrayContender&) = delete;
  KerrayContender& operator=(const KerrayContender&) = delete;

  bool append(const Item& item) {
    try {
      items_->append(item);
      return true;
    } catch (const tolvanite::Kerray<Item>::Errur&) {
      return false;
    }
  }
  std::int64_t group(std::uint64_t key) const { return items_->elementWithKey(key)->group; }
  void update(std::uint64_t key, double rank) {
    items_->updateWithKey(key, [=](Item& item) { item.rank = rank; });
  }
  void remove(std::uint64_t key) { items_->removeElementWithKey(key); }
  void move(std::size_t from, std::size_t to) {
    items_->move(static_cast<tolvanite::Int>(from), static_cast<tolvanite::Int>(to));
  }
  std::uint64_t told() const { return told_; }
  template <class F>
  void forEachKey(F block) const {
    for (const Item& item : items_->array()) block(item.key);
  }

 private:
  void tell(tolvanite::Int index) { told_ += static_cast<std::uint64_t>(index); }

  std::shared_ptr<tolvanite::Kerray<Item>> items_ = tolvanite::Kerray<Item>::make();
  std::uint64_t told_ = 0;
  tolvanite::OwnerToken owner_;
};

const bool registered = registerKeyedArray<KerrayContender>("tolvanite");

}  // namespace
}  // namespace bench
