// A plain HTTP request that does not hold up its caller.
//
//   startHttpGet("http://localhost:8080/status", [](const HttpResult& result) {
//     std::puts(result.body ? result.body->c_str() : result.error.c_str());
//   });
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// How a request ended: with the bytes of an answer, of whatever status, or with an error.
struct HttpResult {
  /// The bytes of the answer; absent after an error.
  std::optional<std::string> body;
  /// What went wrong, for people; empty when there is a body.
  std::string error;
};

/// Sends a GET request for `url`, whose path goes out byte for byte, and returns at once. Redirects
/// are followed, proxies are not used. A minute without a connection or without a byte is an error.
/// `completion` is called once, on a background thread, and must not throw; it is not called any
/// more when the process ends first.
TOLVANITE_EXPORT void startHttpGet(const std::string& url,
                                   std::function<void(const HttpResult&)> completion);

}  // namespace tolvanite
