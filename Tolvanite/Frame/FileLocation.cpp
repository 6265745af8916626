#include <Tolvanite/Frame/FileLocation.h>

#include <algorithm>
#include <ostream>

#include <Tolvanite/Frame/detail/NameExtension.h>
#include <Tolvanite/Frame/detail/PercentEncoding.h>

namespace tolvanite {

namespace {

constexpr std::string_view scheme = "file://";

// What a URL's path holds as it is, beside letters and digits: RFC 3986, section 3.3.
constexpr std::string_view plainMarks = "-._~!$&'()*+,;=:@/";

int hexadecimalDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

bool endsInSlash(std::string_view path) { return path.ends_with('/'); }

}  // namespace

FileLocation::FileLocation(std::string_view absolutePath, bool isDirectory)
    : path_("/"), isDirectory_(isDirectory || absolutePath.empty() || endsInSlash(absolutePath)) {
  path_.reserve(absolutePath.size());
  for (const char byte : absolutePath) {
    if (byte != '/' || path_.back() != '/') path_ += byte;
  }
  if (path_.size() > 1 && endsInSlash(path_)) path_.pop_back();
}

FileLocation::FileLocation(const std::filesystem::path& path)
    : FileLocation(
          path.is_absolute() ? path.native() : (std::filesystem::current_path() / path).native(),
          false) {}

FileLocation FileLocation::directory(const std::filesystem::path& path) {
  FileLocation result(path);
  result.isDirectory_ = true;
  return result;
}

Optional<FileLocation> FileLocation::fromAbsoluteString(std::string_view text) {
  if (!text.starts_with(scheme)) return {};
  text.remove_prefix(scheme.size());
  constexpr std::string_view thisMachine = "localhost";
  if (text.starts_with(thisMachine)) text.remove_prefix(thisMachine.size());
  if (!text.starts_with('/')) return {};
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      path += text[i];
      continue;
    }
    const int high = i + 2 < text.size() ? hexadecimalDigit(text[i + 1]) : -1;
    const int low = i + 2 < text.size() ? hexadecimalDigit(text[i + 2]) : -1;
    if (high < 0 || low < 0) return {};
    path += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return FileLocation(path, false);
}

std::string FileLocation::absoluteString() const {
  std::string result = std::string(scheme) + detail::percentEncoded(path_, plainMarks);
  if (isDirectory_ && !endsInSlash(result)) result += '/';
  return result;
}

FileLocation FileLocation::appendingPathComponent(std::string_view component,
                                                  bool isDirectory) const {
  std::string path = path_;
  path += '/';
  path += component;
  return FileLocation(path, isDirectory);
}

FileLocation FileLocation::appendingPathExtension(std::string_view extension) const {
  if (extension.empty() || path_ == "/") return *this;
  std::string path = path_;
  path += '.';
  path += extension;
  return FileLocation(path, isDirectory_);
}

std::string FileLocation::lastPathComponent() const {
  return path_ == "/" ? path_ : path_.substr(path_.rfind('/') + 1);
}

std::string FileLocation::pathExtension() const {
  const std::string name = lastPathComponent();
  const std::size_t dot = detail::extensionDot(name);
  return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

FileLocation FileLocation::deletingLastPathComponent() const {
  return FileLocation(path_.substr(0, path_.rfind('/')), true);
}

FileLocation FileLocation::deletingPathExtension() const {
  FileLocation result = *this;
  const std::size_t length = pathExtension().size();
  if (length > 0) result.path_.erase(path_.size() - length - 1);
  return result;
}

bool FileLocation::fileExists() const {
  std::error_code error;
  return std::filesystem::exists(path_, error);
}

bool FileLocation::fileExistsAndIsDirectory() const {
  std::error_code error;
  return std::filesystem::is_directory(path_, error);
}

bool FileLocation::fileExistsAndIsNotDirectory() const {
  std::error_code error;
  const auto status = std::filesystem::status(path_, error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::ostream& operator<<(std::ostream& out, const FileLocation& location) {
  return out << location.absoluteString();
}

}  // namespace tolvanite
