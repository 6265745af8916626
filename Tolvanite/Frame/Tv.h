// The namespace `tv`.
#pragma once

#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct TOLVANITE_EXPORT tv {
  tv() = delete;

  /// Does nothing.
  static void dummyMethod() {}

  /// Asks a service on this machine, at port 2912, to open a location, and returns at once. Prints
  /// "urlString = " and the location of the request; the answer is printed when it comes, if it is
  /// UTF-8, and a failure goes to `qlog`. A text that is not UTF-8 is ignored.
  static void openUrlOnMac(std::string_view urlString);
};

}  // namespace tolvanite
