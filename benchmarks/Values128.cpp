#include <string>

#include <Tolvanite/Text/QInt128.h>

#include "Values128Driver.h"

namespace bench {
namespace {

struct Ours {
  using Value = tolvanite::QInt128;

  static bool read(const std::string& text, Value& value) {
    const auto result = Value::fromText(text);
    if (!result) return false;
    value = *result;
    return true;
  }
  static std::string print(const Value& value) { return value.asString(); }
};

const bool registered = registerValues<Ours>("tolvanite");

}  // namespace
}  // namespace bench
