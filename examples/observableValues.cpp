// Single values that tell their listeners what becomes of them: every assignment, changes only, or
// new content of the same element.
#include <iostream>
#include <memory>
#include <string>

#include <Tolvanite/DataStructures/ObservableEquatable.h>
#include <Tolvanite/DataStructures/ObservableOptionalEquatable_WithContentUpdateFountain.h>
#include <Tolvanite/DataStructures/ObservableProperty.h>

using namespace tolvanite;

namespace {

struct Track {
  int key;
  std::string title;
  bool operator==(const Track& other) const { return key == other.key; }
  std::string description() const { return title; }
};

// Subscribes by a token: a class like this lives where its host likes, on the stack, too.
class Slider {
 public:
  Slider(std::string name, ObservableEquatable<int>& volume) : volume_(volume) {
    volume.fountain().add(owner_, [name = std::move(name)](int value) {
      std::cout << name << " shows " << value << '\n';
    });
  }
  // The slider that is dragged shows the value already.
  void drag(int value) { volume_.set(value, owner_); }

 private:
  ObservableEquatable<int>& volume_;
  OwnerToken owner_;
};

}  // namespace

int main() {
  const auto beats = ObservableProperty<int>::make(1);
  const auto window = std::make_shared<int>();
  beats->fountain().add(window, [](int beat) { std::cout << "beat " << beat << '\n'; });
  beats->set(1);  // told, although nothing changes
  beats->set(2);

  const auto volume = ObservableEquatable<int>::make(5);
  const Slider slider("the slider", *volume);
  {
    Slider popup("the popup", *volume);
    volume->set(5);  // an equal value: nobody is called
    volume->set(7);  // both show it
    popup.drag(9);   // the popup does not tell itself
  }
  volume->set(3);  // the popup is gone

  const auto current =
      ObservableOptionalEquatable_WithContentUpdateFountain<Track>::make(Track{1, "Aria"});
  current->fountain().add(window, [](const Optional<Track>& track) {
    std::cout << "now playing " << track.q() << '\n';
  });
  current->fountainContentUpdate().add(
      window, [](const Track& track) { std::cout << "retitled " << track.title << '\n'; });
  current->updateContent(Track{1, "Aria da capo"});  // the same track with another title
  current->set(Track{2, "Ballad"});
  current->set({});
}
