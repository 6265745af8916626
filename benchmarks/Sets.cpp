#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include <Tolvanite/DataStructures/FilterSet.h>
#include <Tolvanite/DataStructures/ObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnKerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnObservableSet.h>

#include "SetsDriver.h"

namespace bench {
namespace {

// Adds up the keys that its observer is told.
class Listening {
 public:
  Listening() = default;
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  std::uint64_t told() const { return told_; }

 protected:
  void tell(const Item& item) { told_ += item.key; }

  tolvanite::OwnerToken owner_;

 private:
  std::uint64_t told_ = 0;
};

// Whether the collection takes an item; its error says that an equal one is there.
template <class Insert>
bool isTaken(Insert insert) {
  try {
    insert();
    return true;
  } catch (const tolvanite::Error&) {
    return false;
  }
}

template <class Collection>
class Observed : public Listening {
 public:
  explicit Observed(std::shared_ptr<Collection> collection) : collection_(std::move(collection)) {
    collection_->observers.createNew(owner_, [this](typename Collection::Observer& observer) {
      const auto hear = [this](Collection&, const Item& item) { tell(item); };
      observer.inserted = hear;
      observer.updated = hear;
      observer.removed = hear;
    });
  }

 protected:
  std::shared_ptr<Collection> collection_;
};

using ObservableSet = tolvanite::ObservableSet<Item>;

class Plain : public Observed<ObservableSet> {
 public:
  Plain() : Observed(ObservableSet::make()) {}

  bool insert(const Item& item) {
    return isTaken([&] { collection_->insert(item); });
  }
  std::int64_t group(const Item& item) const { return collection_->find(item)->group; }
  void update(const Item& item) { collection_->update(item); }
  void remove(const Item& item) { collection_->remove(item); }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : collection_->elements()) block(item);
  }
};

// The view of a set.
class OverSet : public Observed<tolvanite::OptionallyFilteredSet_BasedOnObservableSet<Item>> {
 public:
  OverSet() : Observed(View::make(ObservableSet::make(), passesFilter)) {}

  bool insert(const Item& item) {
    return isTaken([&] { base().insert(item); });
  }
  void update(const Item& item) { base().update(item); }
  void remove(const Item& item) { base().remove(item); }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : base().elements()) block(item);
  }
  template <class F>
  void forEachPassing(F block) const {
    for (const Item& item : *collection_) block(item);
  }

 private:
  using View = tolvanite::OptionallyFilteredSet_BasedOnObservableSet<Item>;
  ObservableSet& base() const { return *collection_->baseSet(); }
};

// The view of a keyed array as a set.
class OverKerray : public Observed<tolvanite::OptionallyFilteredSet_BasedOnKerray<Item>> {
 public:
  OverKerray() : Observed(View::make(Kerray::make(), passesFilter)) {}

  bool insert(const Item& item) {
    return isTaken([&] { base().append(item); });
  }
  void update(const Item& item) { base().update(item); }
  void remove(const Item& item) { base().remove(item); }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : base().array()) block(item);
  }
  template <class F>
  void forEachPassing(F block) const {
    for (const Item& item : *collection_) block(item);
  }

 private:
  using Kerray = tolvanite::Kerray<Item>;
  using View = tolvanite::OptionallyFilteredSet_BasedOnKerray<Item>;
  Kerray& base() const { return *collection_->baseKerray(); }
};

using FilterSet = tolvanite::FilterSet<Item>;

class Filtered : public Listening {
 public:
  Filtered() {
    items_.setFilterBlock(passesFilter);
    items_.observers.createNew(owner_, [this](FilterSet::Observer& observer) {
      const auto hear = [this](const FilterSet&, const Item& item) { tell(item); };
      observer.inSetInserted = hear;
      observer.inSetUpdated = hear;
      observer.inSetRemoved = hear;
    });
  }

  bool insert(const Item& item) {
    return isTaken([&] { items_.insert(item); });
  }
  void update(const Item& item) { items_.update(item); }
  void remove(const Item& item) { items_.remove(item); }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : items_) block(item);
  }
  template <class F>
  void forEachPassing(F block) const {
    for (const Item& item : items_.inElements()) block(item);
  }

 private:
  FilterSet items_;
};

const bool registered = registerSet<Plain>("tolvanite") &&
                        registerFilteredSet<Filtered>("tolvanite", "filter_set") &&
                        registerFilteredSet<OverSet>("tolvanite", "view_of_set") &&
                        registerFilteredSet<OverKerray>("tolvanite", "view_of_kerray");

}  // namespace
}  // namespace bench
