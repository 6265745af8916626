#include <Tolvanite/Frame/Tv.h>

#include <string>

#include <fmt/format.h>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Diagnostics/QLogging.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Platform/HttpRequest.h>

namespace tolvanite {

namespace {

bool isAsciiLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// What may stand in the path of a location, but for the slash.
bool isAllowed(char c) {
  return isAsciiLetterOrDigit(c) ||
         std::string_view("!$&'()*+,-.:=@_~").find(c) != std::string_view::npos;
}

std::string percentEncoded(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (isAllowed(c)) {
      result += c;
    } else {
      result += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return result;
}

}  // namespace

void tv::openUrlOnMac(std::string_view urlString) {
  if (!isValidUtf8(urlString)) return;
  const std::string location =
      "http://localhost:2912/command/" + percentEncoded("open \"" + std::string(urlString) + "\"");
  printLine("urlString = " + location);
  startHttpGet(location, [location](const HttpResult& result) {
    if (!result.body.has_value()) {
      qlog::iferror("Error opening " + location, Error(result.error));
    } else if (isValidUtf8(*result.body)) {
      printLine(*result.body);
    }
  });
}

}  // namespace tolvanite
