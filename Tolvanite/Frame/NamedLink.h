// A place to open, with the name to show for it: a file or a page of the web.
//
//   const tolvanite::NamedLink manual("Manual", tolvanite::FileLocation("/usr/share/doc"));
//   const tolvanite::NamedLink home("Home page", "https://example.org/");
//   open(home.urlText());
#pragma once

#include <compare>
#include <string>
#include <utility>
#include <variant>

#include <Tolvanite/Frame/FileLocation.h>

namespace tolvanite {

class NamedLink {
 public:
  /// A file location, or the text of a web location.
  using Url = std::variant<FileLocation, std::string>;

  NamedLink(std::string name, FileLocation url) : name_(std::move(name)), url_(std::move(url)) {}
  /// With the text of a web location, which is taken as it is.
  NamedLink(std::string name, std::string url) : name_(std::move(name)), url_(std::move(url)) {}
  NamedLink(std::string name, const char* url) : NamedLink(std::move(name), std::string(url)) {}

  const std::string& name() const { return name_; }
  const Url& url() const { return url_; }
  /// The location as a text to hand on: `file:` and the path, or that of the web location.
  std::string urlText() const {
    if (const auto* file = std::get_if<FileLocation>(&url_)) return file->absoluteString();
    return std::get<std::string>(url_);
  }

  /// The name.
  const std::string& description() const { return name_; }

  friend bool operator==(const NamedLink&, const NamedLink&) = default;

 private:
  std::string name_;
  Url url_;
};

}  // namespace tolvanite
