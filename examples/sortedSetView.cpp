// Contacts in a table: they stand in a set, and the view gives them an order and turns every change
// of the set into rows to insert, remove, move and redraw.
#include <cstddef>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <Tolvanite/DataStructures/OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet.h>

using namespace tolvanite;

namespace {

struct Contact {
  int key;
  std::string name;
  bool operator==(const Contact& other) const { return key == other.key; }
  std::string description() const { return name; }
};

}  // namespace

template <>
struct std::hash<Contact> {
  std::size_t operator()(const Contact& contact) const noexcept {
    return std::hash<int>{}(contact.key);
  }
};

int main() {
  using View = OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<Contact>;
  const NamedSortBlock<Contact> byName{"name", [](auto& a, auto& b) { return a.name < b.name; }};
  const auto contacts = ObservableSet<Contact>::make({{1, "Grace"}, {2, "Ada"}});
  const auto view = View::make(contacts, byName);

  std::vector<std::string> rows;  // in place of a widget
  const auto reload = [&](View& shown) {
    rows.clear();
    for (const Contact& contact : shown) rows.push_back(contact.name);
  };
  reload(*view);
  const OwnerToken table;  // subscriptions end with it
  view->observers.createNew(table, [&](auto& on) {
    on.inserted = [&](View&, Int row, auto& who) { rows.insert(rows.begin() + row, who.name); };
    on.insertedMultiple = [&](View&, auto& at, auto& batch) {  // each index counts those before it
      for (Int i = 0; i < batch.count(); ++i)
        rows.insert(rows.begin() + at.begin()[i], batch[i].name);
    };
    on.removed = [&](View&, Int row, auto&) { rows.erase(rows.begin() + row); };
    on.removedMultiple = [&](View&, auto& at, auto&) {
      for (auto row = at.rbegin(); row != at.rend(); ++row) rows.erase(rows.begin() + *row);
    };
    on.moved = [&](View&, Int from, Int to, auto& who) {  // `updated` follows
      rows.erase(rows.begin() + from);
      rows.insert(rows.begin() + to, who.name);
    };
    on.updated = [&](View&, Int row, auto& who) { rows.begin()[row] = who.name; };
    on.sortingChanged = [&](View& shown, auto&) { reload(shown); };
    on.filterChanged = on.replacedContent = on.removedAll = reload;
  });

  contacts->insertMultiple({{3, "Edsger"}, {4, "Barbara"}, {5, "Donald"}});
  std::cout << textForm(rows) << '\n';
  contacts->update({2, "Lady Lovelace"});  // takes another row
  contacts->remove(Contact{5, ""});
  contacts->remove(std::vector<Contact>{{1, ""}, {4, ""}});  // a batch prints what it removes
  view->setSortBlock(byName.reversed());
  std::cout << textForm(rows) << '\n' << *view << '\n';
}
