// A section of a list of actions, with texts above and below it. Sections are shared: whoever holds
// one sees what others change in it.
//
//   auto section = tolvanite::NamedSection::make("Playback", {}, {{"Rewind", [] {}}});
//   section->code = "playback";
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/NamedAction.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite {

/// A section of actions, by reference.
class NamedSection {
 public:
  /// A section without a code.
  static std::shared_ptr<NamedSection> make(Optional<std::string> header,
                                            Optional<std::string> footer = {},
                                            std::vector<NamedAction> actions = {}) {
    return std::shared_ptr<NamedSection>(
        new NamedSection(std::move(header), std::move(footer), std::move(actions)));
  }
  NamedSection(const NamedSection&) = delete;
  NamedSection& operator=(const NamedSection&) = delete;

  /// What identifies the section; absent until it is set.
  Optional<std::string> code;
  /// The texts above and below it.
  /// @{
  Optional<std::string> headerText;
  Optional<std::string> footerText;
  /// @}
  /// What it offers, in this order.
  std::vector<NamedAction> namedActions;

 private:
  NamedSection(Optional<std::string> header, Optional<std::string> footer,
               std::vector<NamedAction> actions)
      : headerText(std::move(header)),
        footerText(std::move(footer)),
        namedActions(std::move(actions)) {}
};

}  // namespace tolvanite
