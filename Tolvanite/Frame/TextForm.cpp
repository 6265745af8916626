#include <Tolvanite/Frame/TextForm.h>

#include <cxxabi.h>
#include <fmt/format.h>

namespace tolvanite::detail {

std::string integerText(long long value) { return fmt::format("{}", value); }
std::string integerText(unsigned long long value) { return fmt::format("{}", value); }
std::string floatingText(double value) { return fmt::format("{}", value); }
std::string floatingText(float value) { return fmt::format("{}", value); }

std::string readableTypeName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  return status == 0 ? name.get() : type.name();
}

}  // namespace tolvanite::detail
