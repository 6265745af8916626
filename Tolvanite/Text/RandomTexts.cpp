#include <Tolvanite/Text/RandomTexts.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/QInt128.h>

namespace tolvanite {

std::string tvRandomAlphanumericString(std::string_view letterPool, Int length,
                                       std::source_location location) {
  if (length < 0) fatalFailure("Negative length: " + std::to_string(length), location);
  const std::vector<std::string_view> letters = characters(letterPool);
  if (letters.empty() && length > 0) fatalFailure("No letters to draw from", location);
  std::string result;
  for (Int i = 0; i < length; ++i) {
    const Int drawn = detail::drawBelow(static_cast<Int>(letters.size()), location);
    result += letters[static_cast<std::size_t>(drawn)];
  }
  return result;
}

std::string tvRandomAlphanumericString(Int length, std::source_location location) {
  return tvRandomAlphanumericString(
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", length, location);
}

std::string tvRandomAlphanumericStringWithLength(Int length, std::source_location location) {
  return tvRandomAlphanumericString(length, location);
}

std::string randomBase32(Int length, std::source_location location) {
  return tvRandomAlphanumericString("ABCDEFGHIJKLMNOPQRSTUVWXYZ234567", length, location);
}

std::string randomBase32WithLength(Int length, std::source_location location) {
  return randomBase32(length, location);
}

std::string tvUuidString() { return QInt128::createNewUuid().asUuidString(); }

}  // namespace tolvanite
