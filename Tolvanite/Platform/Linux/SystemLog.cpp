#include <Tolvanite/Platform/SystemLog.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>

#include <errno.h>
#include <unistd.h>

namespace tolvanite {

namespace {

std::string stamp() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  std::tm local{};
  ::localtime_r(&seconds, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%d %H:%M:%S", &local);
  std::array<char, 32> fraction{};
  std::snprintf(fraction.data(), fraction.size(), ".%03d", static_cast<int>(milliseconds));
  return std::string(date.data()) + fraction.data() + " " + ::program_invocation_short_name + "[" +
         std::to_string(::getpid()) + ":" + std::to_string(::gettid()) + "] ";
}

}  // namespace

void writeSystemLog(std::string_view format) {
  std::string line = stamp();
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format.substr(i, 2) == "%%") ++i;
    line += format[i];
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace tolvanite
