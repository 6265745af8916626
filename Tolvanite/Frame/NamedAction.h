// Actions with the texts that menus, buttons and lists show for them. Actions cannot be compared,
// so these types have no equality.
//
//   tolvanite::NamedAction rewind("Rewind", [player] { player->rewind(); });
//   rewind.action();
//   const tolvanite::TitledAction save("file.save", "Save as ...", [] {});
#pragma once

#include <ostream>
#include <string>
#include <utility>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// An action with a name.
class NamedAction {
 public:
  /// An action under a name.
  NamedAction(std::string name, Block<void()> actionBlock)
      : action(std::move(actionBlock)), name_(std::move(name)) {}

  /// The name, which stays.
  const std::string& name() const { return name_; }
  /// The name.
  const std::string& description() const { return name_; }
  friend std::ostream& operator<<(std::ostream& out, const NamedAction& action) {
    return out << action.name_;
  }

  /// What to do; it may be replaced.
  Block<void()> action;

 private:
  std::string name_;
};

/// An action with a code that identifies it and a title to show.
class TitledAction {
 public:
  /// An action under a code, shown by a title.
  TitledAction(std::string code, std::string title, Block<void()> actionBlock)
      : action(std::move(actionBlock)), code_(std::move(code)), title_(std::move(title)) {}
  /// One text for both: it is the code and the title.
  TitledAction(std::string codeAndTitle, Block<void()> actionBlock)
      : action(std::move(actionBlock)), code_(codeAndTitle), title_(std::move(codeAndTitle)) {}

  /// What identifies the action.
  const std::string& code() const { return code_; }
  /// What is shown of it.
  const std::string& title() const { return title_; }
  /// The title.
  const std::string& description() const { return title_; }
  friend std::ostream& operator<<(std::ostream& out, const TitledAction& action) {
    return out << action.title_;
  }

  /// What to do; it may be replaced.
  Block<void()> action;

 private:
  std::string code_;
  std::string title_;
};

}  // namespace tolvanite
