// All the names over an alphabet, the short ones first.
//
//   auto names = tolvanite::NameGenerator::make(1, 2, "ab", "x");
//   for (const std::string& name : *names) use(name);      // xa, xb, xaa, xab, xba, xbb
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/detail/NextIterator.h>

namespace tolvanite {

class TOLVANITE_EXPORT NameGenerator : public std::enable_shared_from_this<NameGenerator> {
 public:
  /// Counts through the names of a generator, the last letter fastest, and keeps the generator.
  class TOLVANITE_EXPORT Iterator {
   public:
    /// The next name; absent after the last one. Without letters a name of any length is fatal, and
    /// so is a negative length.
    Optional<std::string> next(std::source_location location = std::source_location::current());

   private:
    friend NameGenerator;
    explicit Iterator(std::shared_ptr<const NameGenerator> generator);

    void start(std::source_location location);
    bool advance();

    std::shared_ptr<const NameGenerator> generator_;
    Int length_;
    std::vector<std::size_t> indexes_;
    bool isAtEnd_ = false;
  };

  NameGenerator(const NameGenerator&) = delete;
  NameGenerator& operator=(const NameGenerator&) = delete;

  /// Names of `minLength` to `maxLength` characters of `lettersString`, in its order, behind
  /// `prefix`. Two cases have no end, deliberately: a `minLength` of 0 gives the bare prefix for
  /// ever, and one above `maxLength` goes on to ever longer names.
  static std::shared_ptr<NameGenerator> make(Int minLength, Int maxLength,
                                             std::string_view lettersString,
                                             std::string_view prefix);

  /// What the generator was made with: the number of characters behind the prefix. Nothing is
  /// checked before names are asked for.
  /// @{
  Int maxLength() const { return maxLength_; }
  Int minLength() const { return minLength_; }
  /// @}
  /// The characters, as a reader sees them, each a text of its own.
  const std::vector<std::string>& letters() const { return letters_; }
  /// How many characters there are to choose from for each place of a name.
  Int lettersCount() const { return static_cast<Int>(letters_.size()); }
  /// What every name begins with; does not count in its length.
  const std::string& prefix() const { return prefix_; }

  /// An iterator at the first name.
  Iterator makeIterator() const { return Iterator(shared_from_this()); }

  /// The names from the first on as an input range for `for` and std::views. The iterator keeps the
  /// generator, and makes a name when it is looked at.
  /// @{
  auto begin() const { return detail::NextIterator(makeIterator()); }
  std::default_sentinel_t end() const { return {}; }
  /// @}

 private:
  NameGenerator(Int minLength, Int maxLength, std::string_view lettersString,
                std::string_view prefix);

  Int maxLength_;
  Int minLength_;
  std::vector<std::string> letters_;
  std::string prefix_;
};

}  // namespace tolvanite
