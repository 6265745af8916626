#include <Tolvanite/Frame/TextForm.h>

#include <cxxabi.h>
#include <fmt/format.h>

namespace tolvanite::detail {

std::string integerText(long long value) { return fmt::format("{}", value); }
std::string integerText(unsigned long long value) { return fmt::format("{}", value); }
std::string floatingText(double value) { return fmt::format("{}", value); }
std::string floatingText(float value) { return fmt::format("{}", value); }

namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

// The end of the template arguments that begin behind `start`.
std::size_t argumentsEnd(std::string_view name, std::size_t start) {
  int depth = 1;
  while (depth > 0 && start < name.size()) {
    depth += name[start] == '<' ? 1 : name[start] == '>' ? -1 : 0;
    ++start;
  }
  return start;
}

}  // namespace

std::string readableTypeName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  std::string result = status == 0 ? name.get() : type.name();
  replaceAll(result, "std::__cxx11::", "std::");
  replaceAll(result, "std::basic_string<char, std::char_traits<char>, std::allocator<char> >",
             "std::string");
  replaceAll(result, "std::basic_string_view<char, std::char_traits<char> >", "std::string_view");
  constexpr std::string_view allocator = ", std::allocator<";
  for (std::size_t at = result.find(allocator); at != std::string::npos;
       at = result.find(allocator, at)) {
    result.erase(at, argumentsEnd(result, at + allocator.size()) - at);
  }
  replaceAll(result, " >", ">");
  return result;
}

}  // namespace tolvanite::detail
