#ifdef TOLVANITE_PEER_RAPIDJSON
#include <memory>
#include <string>
#include <string_view>

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "../JsonDriver.h"

// Keys are written in the order of the document; the default parser may be off in the last digits.
namespace bench {
namespace {

template <unsigned flags>
class Document {
 public:
  explicit Document(const std::string& text) : document_(std::make_unique<rapidjson::Document>()) {
    document_->Parse<flags>(text.data(), text.size());
  }
  void walk(Walk& walk) const { visit(walk, *document_); }
  std::string pretty() const { return written<rapidjson::PrettyWriter<rapidjson::StringBuffer>>(); }
  std::string compact() const { return written<rapidjson::Writer<rapidjson::StringBuffer>>(); }
  Document copied() const {
    Document result;
    result.document_->CopyFrom(*document_, result.document_->GetAllocator());
    return result;
  }
  double lookup(std::string_view pointer) const {
    return rapidjson::Pointer(pointer.data(), pointer.size()).Get(*document_)->GetDouble();
  }

 private:
  Document() : document_(std::make_unique<rapidjson::Document>()) {}

  template <class Writer>
  std::string written() const {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    document_->Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
  }

  static void visit(Walk& walk, const rapidjson::Value& value) {
    switch (value.GetType()) {
      case rapidjson::kNullType:
        ++walk.nulls;
        break;
      case rapidjson::kFalseType:
      case rapidjson::kTrueType:
        ++walk.truths;
        break;
      case rapidjson::kStringType:
        walk.text({value.GetString(), value.GetStringLength()});
        break;
      case rapidjson::kNumberType:
        walk.number(value.GetDouble());
        break;
      case rapidjson::kArrayType:
        ++walk.lists;
        for (const auto& element : value.GetArray()) visit(walk, element);
        break;
      case rapidjson::kObjectType:
        ++walk.objects;
        for (const auto& member : value.GetObject()) {
          walk.key({member.name.GetString(), member.name.GetStringLength()});
          visit(walk, member.value);
        }
    }
  }

  std::unique_ptr<rapidjson::Document> document_;
};

const bool registered =
    registerJson<Document<rapidjson::kParseDefaultFlags>>("rapidjson") &&
    registerJson<Document<rapidjson::kParseFullPrecisionFlag>>("rapidjson_exact");

}  // namespace
}  // namespace bench
#endif
