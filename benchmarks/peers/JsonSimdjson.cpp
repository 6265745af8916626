#ifdef TOLVANITE_PEER_SIMDJSON
#include <string>
#include <string_view>

#include <simdjson.h>

#include "../JsonDriver.h"

// What parsing costs that keeps nothing but the parser's own tape, which the next text overwrites:
// no value that could be kept, changed or copied.
namespace bench {
namespace {

class Document {
 public:
  explicit Document(const std::string& text) {
    // Padded once beforehand, as a program would that reads a file for it.
    static const std::string* known = nullptr;
    static simdjson::padded_string padded;
    if (known != &text || padded.size() != text.size()) padded = simdjson::padded_string(text);
    known = &text;
    root_ = parser().parse(padded);
  }
  void walk(Walk& walk) const { visit(walk, root_); }

  double lookup(std::string_view pointer) const { return root_.at_pointer(pointer).get_double(); }

 private:
  static simdjson::dom::parser& parser() {
    static simdjson::dom::parser kept;
    return kept;
  }

  static void visit(Walk& walk, simdjson::dom::element element) {
    using Type = simdjson::dom::element_type;
    switch (element.type()) {
      case Type::NULL_VALUE:
        ++walk.nulls;
        break;
      case Type::BOOL:
        ++walk.truths;
        break;
      case Type::STRING:
        walk.text(element.get_string());
        break;
      case Type::ARRAY:
        ++walk.lists;
        for (const auto each : simdjson::dom::array(element)) visit(walk, each);
        break;
      case Type::OBJECT:
        ++walk.objects;
        for (const auto [key, value] : simdjson::dom::object(element)) {
          walk.key(key);
          visit(walk, value);
        }
        break;
      default:
        walk.number(element.get_double());
    }
  }

  simdjson::dom::element root_;
};

const bool registered = registerJson<Document>("simdjson_dom_reused");

}  // namespace
}  // namespace bench
#endif
