#ifdef TOLVANITE_PEER_NLOHMANN
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "../JsonDriver.h"

namespace bench {
namespace {

using Value = nlohmann::json;

class Document {
 public:
  explicit Document(const std::string& text) : value_(Value::parse(text)) {}
  void walk(Walk& walk) const { visit(walk, value_); }
  std::string pretty() const { return value_.dump(4); }
  std::string compact() const { return value_.dump(); }
  Document copied() const { return *this; }
  double lookup(std::string_view pointer) const {
    return value_.at(Value::json_pointer(std::string(pointer))).get<double>();
  }

 private:
  static void visit(Walk& walk, const Value& value) {
    switch (value.type()) {
      case Value::value_t::null:
        ++walk.nulls;
        break;
      case Value::value_t::boolean:
        ++walk.truths;
        break;
      case Value::value_t::string:
        walk.text(value.get_ref<const std::string&>());
        break;
      case Value::value_t::array:
        ++walk.lists;
        for (const Value& element : value) visit(walk, element);
        break;
      case Value::value_t::object:
        ++walk.objects;
        for (const auto& [key, element] : value.get_ref<const Value::object_t&>()) {
          walk.key(key);
          visit(walk, element);
        }
        break;
      default:
        walk.number(value.get<double>());
    }
  }

  Value value_;
};

const bool registered = registerJson<Document>("nlohmann");

}  // namespace
}  // namespace bench
#endif
