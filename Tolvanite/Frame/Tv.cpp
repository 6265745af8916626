#include <Tolvanite/Frame/Tv.h>

#include <string>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Diagnostics/QLogging.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Frame/detail/PercentEncoding.h>
#include <Tolvanite/Platform/HttpRequest.h>

namespace tolvanite {

namespace {

// What the path of a location takes as it is, beside letters and digits, but for the slash.
constexpr std::string_view plainMarks = "!$&'()*+,-.:=@_~";

}  // namespace

void tv::openUrlOnMac(std::string_view urlString) {
  if (!isValidUtf8(urlString)) return;
  const std::string command = "open \"" + std::string(urlString) + "\"";
  const std::string location =
      "http://localhost:2912/command/" + detail::percentEncoded(command, plainMarks);
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
