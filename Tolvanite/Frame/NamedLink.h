// A place to open, with the name to show for it: a file or a page of the web.
//
//   const tolvanite::NamedLink manual("Manual", tolvanite::FileLocation("/usr/share/doc"));
//   const tolvanite::NamedLink home("Home page", "https://example.org/");
//   open(home.urlText());
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <variant>

#include <Tolvanite/Frame/FileLocation.h>

namespace tolvanite {

class NamedLink {
 public:
  /// A file location, or the text of a web location.
  using Url = std::variant<FileLocation, std::string>;

  /// A link to a file.
  NamedLink(std::string name, FileLocation url) : name_(std::move(name)), url_(std::move(url)) {}
  /// A link to a web location, whose text is taken as it is.
  /// @{
  NamedLink(std::string name, std::string url) : name_(std::move(name)), url_(std::move(url)) {}
  NamedLink(std::string name, const char* url) : NamedLink(std::move(name), std::string(url)) {}
  /// @}

  /// The name to show.
  const std::string& name() const { return name_; }
  /// Where it leads.
  const Url& url() const { return url_; }
  /// The location as a text to hand on: `file:` and the path, or that of the web location.
  std::string urlText() const {
    if (const auto* file = std::get_if<FileLocation>(&url_)) return file->absoluteString();
    return std::get<std::string>(url_);
  }

  /// The name.
  const std::string& description() const { return name_; }

  friend bool operator==(const NamedLink&, const NamedLink&) = default;
  friend std::ostream& operator<<(std::ostream& out, const NamedLink& link) {
    return out << link.name_;
  }

 private:
  std::string name_;
  Url url_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::NamedLink> {
  std::size_t operator()(const tolvanite::NamedLink& link) const noexcept {
    return std::hash<std::string>{}(link.name()) * 31 +
           std::hash<tolvanite::NamedLink::Url>{}(link.url());
  }
};
