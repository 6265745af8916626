#include <Tolvanite/Random/NameGenerator.h>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

NameGenerator::NameGenerator(Int minLength, Int maxLength, std::string_view lettersString,
                             std::string_view prefix)
    : maxLength_(maxLength), minLength_(minLength), prefix_(prefix) {
  for (const std::string_view letter : characters(lettersString)) letters_.emplace_back(letter);
}

std::shared_ptr<NameGenerator> NameGenerator::make(Int minLength, Int maxLength,
                                                   std::string_view lettersString,
                                                   std::string_view prefix) {
  return std::shared_ptr<NameGenerator>(
      new NameGenerator(minLength, maxLength, lettersString, prefix));
}

NameGenerator::Iterator::Iterator(std::shared_ptr<const NameGenerator> generator)
    : generator_(std::move(generator)), length_(generator_->minLength_) {}

Optional<std::string> NameGenerator::Iterator::next(std::source_location location) {
  if (isAtEnd_) return std::nullopt;
  if (indexes_.empty()) {
    start(location);
  } else if (!advance()) {
    // Only the one length after the last ends the names; what starts above it never meets it.
    isAtEnd_ = length_ == generator_->maxLength_;
    if (isAtEnd_) return std::nullopt;
    ++length_;
    start(location);
  }
  std::string name = generator_->prefix_;
  for (const std::size_t index : indexes_) name += generator_->letters_[index];
  return name;
}

// The first name of the length.
void NameGenerator::Iterator::start(std::source_location location) {
  if (length_ < 0) fatalFailure(fmt::format("a name of {} letters", length_), location);
  if (length_ > 0 && generator_->letters_.empty()) fatalIndexOutOfRange(0, 0, location);
  indexes_.assign(static_cast<std::size_t>(length_), 0);
}

// The next name of the same length, if there is one.
bool NameGenerator::Iterator::advance() {
  const std::size_t last = generator_->letters_.size() - 1;
  const auto place = std::find_if(indexes_.rbegin(), indexes_.rend(),
                                  [=](std::size_t index) { return index != last; });
  std::fill(indexes_.rbegin(), place, std::size_t{0});
  if (place == indexes_.rend()) return false;
  ++*place;
  return true;
}

}  // namespace tolvanite
