#ifdef TOLVANITE_PEER_BOOST_JSON
#include <memory>
#include <string>
#include <string_view>

#include <boost/json.hpp>

#include "../JsonDriver.h"

namespace bench {
namespace {

namespace json = boost::json;

json::storage_ptr makeStorage(bool isMonotonic) {
  return isMonotonic ? json::make_shared_resource<json::monotonic_resource>() : json::storage_ptr();
}

template <bool isMonotonic>
class Document {
 public:
  explicit Document(const std::string& text)
      : value_(json::parse(text, makeStorage(isMonotonic))) {}
  void walk(Walk& walk) const { visit(walk, value_); }
  std::string compact() const { return json::serialize(value_); }
  Document copied() const { return Document(json::value(value_, makeStorage(isMonotonic))); }
  double lookup(std::string_view pointer) const {
    return value_.at_pointer(json::string_view(pointer.data(), pointer.size())).to_number<double>();
  }

 private:
  explicit Document(json::value&& value) : value_(std::move(value)) {}

  static void visit(Walk& walk, const json::value& value) {
    switch (value.kind()) {
      case json::kind::null:
        ++walk.nulls;
        break;
      case json::kind::bool_:
        ++walk.truths;
        break;
      case json::kind::int64:
        walk.number(static_cast<double>(value.get_int64()));
        break;
      case json::kind::uint64:
        walk.number(static_cast<double>(value.get_uint64()));
        break;
      case json::kind::double_:
        walk.number(value.get_double());
        break;
      case json::kind::string:
        walk.text({value.get_string().data(), value.get_string().size()});
        break;
      case json::kind::array:
        ++walk.lists;
        for (const json::value& element : value.get_array()) visit(walk, element);
        break;
      case json::kind::object:
        ++walk.objects;
        for (const auto& [key, element] : value.get_object()) {
          walk.key({key.data(), key.size()});
          visit(walk, element);
        }
    }
  }

  json::value value_;
};

const bool registered = registerJson<Document<false>>("boost_json") &&
                        registerJson<Document<true>>("boost_json_monotonic");

}  // namespace
}  // namespace bench
#endif
