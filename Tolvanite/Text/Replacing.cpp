#include <Tolvanite/Text/Replacing.h>

#include <Tolvanite/Text/detail/TextSearch.h>

namespace tolvanite {

std::string stringByReplacingOccurrences(std::string_view text, std::string_view of,
                                         std::string_view with) {
  std::size_t size = text.size();
  if (with.size() > of.size()) {
    size += detail::countOccurrences(text, of) * (with.size() - of.size());
  }
  std::string result;
  result.reserve(size);
  std::size_t start = 0;
  detail::visitOccurrences(text, of, 0, [&](std::size_t place) {
    result.append(text.data() + start, place - start).append(with);
    start = place + of.size();
    return true;
  });
  return result.append(text.substr(start));
}

}  // namespace tolvanite
