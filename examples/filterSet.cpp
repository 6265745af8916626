// A mailbox that a filter splits in two: the messages that are on show and the others. The badge
// listens to the side that is on show alone.
#include <Tolvanite/DataStructures/FilterSet.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

using namespace tolvanite;

namespace {

struct Mail {
  int id;
  std::string subject;
  bool isRead = false;
  bool operator==(const Mail& other) const { return id == other.id; }
};

}  // namespace

template <>
struct std::hash<Mail> {
  std::size_t operator()(const Mail& mail) const noexcept { return std::hash<int>{}(mail.id); }
};

namespace {

std::string subjects(const ElementSet<Mail>& mails) {
  std::vector<std::string> list;
  for (const Mail& mail : mails) list.push_back(mail.subject);
  std::ranges::sort(list);
  return textForm(list);
}

}  // namespace

int main() {
  FilterSet<Mail> mailbox;
  mailbox.setFilterBlock([](const Mail& mail) { return !mail.isRead; });
  const OwnerToken badge;  // subscriptions end with it
  mailbox.observers.createNew(badge, [](auto& on) {
    on.inSetInserted = [](auto& mails, const Mail& mail) {
      std::cout << mails.inElements().count() << " unread, new: " << mail.subject << '\n';
    };
    on.inSetRemoved = [](auto& mails, const Mail& mail) {
      std::cout << mails.inElements().count() << " unread without " << mail.subject << '\n';
    };
    on.filterBlockChanged = [](auto& mails) {  // no events for those that cross over
      std::cout << "on show: " << subjects(mails.inElements()) << '\n';
    };
  });

  mailbox.insert({{1, "Invoice"}, {2, "Holiday", true}, {3, "Lunch?"}});
  mailbox.update({1, "Invoice", true});         // crosses over: it is read now
  mailbox.update({2, "Holiday photos", true});  // stays among the read ones
  mailbox.setFilterBlock([](const Mail& mail) { return mail.subject.starts_with("Ho"); });
  mailbox.setFilterBlock(nullptr);  // all pass

  FilterSet<Mail> draft = mailbox;  // a value: it goes its own way, but tells the same observers
  draft.remove({3, "Lunch?"});
  draft.observers = {};  // from now on nobody hears of the draft
  draft.removeAll();
  std::cout << mailbox << ", " << draft << '\n';
}
