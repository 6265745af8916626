// The text in which documents are stored: stable and readable, with sorted keys and a blank on
// either side of each colon.
//
//   const std::string text = JsonWriter::stringFrom(ManagedDictionary{{"b", 1}, {"a", true}});
//
// gives, with a tab before each key,
//
//   {
//   	"a" : true,
//   	"b" : 1
//   }
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <source_location>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/ManagedObject.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Writes one document.
class TOLVANITE_EXPORT JsonWriter final {
 public:
  class Errur;
  /// Keys in the order in which they are to be written, in each dictionary that has them.
  using SortKeyOrder = std::vector<std::string>;

  /// `indentString`: one level of indent; absent for a text without blanks and line feeds but the
  /// last. `sortKeys`: keys in ascending order, else in an order that nothing promises.
  /// `sortKeyOrder`: keys that come first, in this order, if keys are sorted; one that stands there
  /// twice is fatal.
  explicit JsonWriter(Optional<std::string> indentString = std::string("\t"), bool sortKeys = true,
                      Optional<SortKeyOrder> sortKeyOrder = {},
                      std::source_location location = std::source_location::current());
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;
  ~JsonWriter();

  /// A writer in a shared pointer, by the arguments of the constructor.
  static std::shared_ptr<JsonWriter> make(
      Optional<std::string> indentString = std::string("\t"), bool sortKeys = true,
      Optional<SortKeyOrder> sortKeyOrder = {},
      std::source_location location = std::source_location::current());

  /// The document's text, which ends in a line feed. Throws an Errur. Deliberately, a further call
  /// appends to the text of the one before, and one after an error to the part that was written.
  /// Texts are escaped as `stringEncodedForJson` does it; keys, deliberately, are not.
  /// @{
  const std::string& string(const ManagedObject& root) &;
  std::string string(const ManagedObject& root) &&;
  /// @}
  /// The same text as bytes.
  ByteBuffer data(const ManagedObject& root) { return ByteBuffer(string(root)); }

  /// The text by a new writer with an indent of one tab and sorted keys.
  /// @{
  static std::string stringFrom(const ManagedObject& root);
  static ByteBuffer dataFrom(const ManagedObject& root) { return ByteBuffer(stringFrom(root)); }
  /// @}

  /// What the writer was made with.
  /// @{
  const Optional<std::string>& indentString() const noexcept { return indentString_; }
  bool sortKeys() const noexcept { return sortKeys_; }
  const Optional<SortKeyOrder>& sortKeyOrder() const noexcept { return sortKeyOrder_; }
  /// Each key of `sortKeyOrder` with its place.
  const Optional<Dictionary<std::string, Int>>& sortKeyOrder_customOrderDictionary()
      const noexcept {
    return customOrder_;
  }
  /// @}

  /// The text so far, how deep it is nested at its end, and the indent there.
  /// @{
  const std::string& dest() const& noexcept { return dest_; }
  std::string dest() && noexcept;
  Int depth() const noexcept { return depth_; }
  std::string linePrefix() const;
  /// @}

  class List;

 private:
  class Pass;

  Optional<std::string> indentString_;
  bool sortKeys_;
  Optional<SortKeyOrder> sortKeyOrder_;
  Optional<Dictionary<std::string, Int>> customOrder_;
  std::string dest_;
  Int depth_ = 0;
};

/// Writes a document that is a list whose elements come one by one, as if it had been there at
/// once.
class TOLVANITE_EXPORT JsonWriter::List {
 public:
  /// Begins the document.
  explicit List(JsonWriter& writer);
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List();

  /// Writes an element behind those before. Throws an Errur.
  void append(const ManagedObject& element);
  /// Ends the document; nothing may follow.
  void end();

 private:
  std::unique_ptr<Pass> pass_;
  bool isEmpty_ = true;
};

class TOLVANITE_EXPORT JsonWriter::Errur final : public Error {
 public:
  /// Why a document was not written to its end.
  enum class Case { dictionaryWithNoStringKey, invalidValue, invalidRootObject };

  /// Anywhere in the document is a wrapped dictionary whose keys are no texts.
  static Errur dictionaryWithNoStringKey(ManagedObject dictionary);
  /// Below the root is a wrapped value of any other type.
  static Errur invalidValue(ManagedObject object);
  /// The root is neither an array nor a dictionary.
  static Errur invalidRootObject();
  ~Errur() override;

  /// Why it was not written.
  Case errorCase() const noexcept { return case_; }
  /// What could not be written; null for a root.
  const ManagedObject& object() const noexcept { return object_; }

  friend bool operator==(const Errur& a, const Errur& b) {
    return a.case_ == b.case_ && a.object_ == b.object_;
  }

 private:
  Errur(Case errorCase, std::string description, ManagedObject object)
      : Error(std::move(description)), case_(errorCase), object_(std::move(object)) {}

  Case case_;
  ManagedObject object_;
};

}  // namespace tolvanite
