#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/detail/Nodes.h>

// The subscripts of Json. Reading walks over references to the content; only its result counts one.

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

// The element behind a step; null when there is none, and why.
const Cell* child(const Cell& cell, const JsonPathStep& step, JsonError& error) noexcept {
  error = JsonError::invalidType;
  if (step.isIndex()) {
    if (cell.tag() != CellTag::list) return nullptr;
    const std::span<const Cell> elements = detail::elementsOf(cell);
    error = JsonError::indexOutOfBounds;
    // A negative index is a huge one here.
    const auto index = static_cast<std::uint64_t>(step.index());
    return index < elements.size() ? &elements[index] : nullptr;
  }
  if (cell.tag() != CellTag::dictionary) return nullptr;
  error = JsonError::notExist;
  return detail::findIn(cell, step.key());
}

Json readPath(const Cell& content, std::span<const JsonPathStep> path) {
  const Cell* at = &content;
  JsonError error{};
  for (const JsonPathStep& step : path) {
    if (at == nullptr) return Json::null(JsonError::invalidType);
    at = child(*at, step, error);
  }
  return at == nullptr ? Json::null(error) : Json(ManagedObject::of(*at));
}

// The same element in a container that only this document refers to.
Cell* changeableChild(Cell& cell, const JsonPathStep& step) {
  JsonError error{};
  if (child(cell, step, error) == nullptr) return nullptr;
  detail::makeChangeable(cell, cell.elementCount());
  return const_cast<Cell*>(child(cell, step, error));
}

[[noreturn]] void failWrite(const JsonPathStep& step, JsonType type) {
  const std::string name(nameOf(type));
  if (step.isIndex()) {
    fatalFailure("Json.subscript(index:" + std::to_string(step.index()) + " set on type " + name);
  }
  fatalFailure("Json.subscript(key:\"" + std::string(step.key()) + "\") on type " + name);
}

// The write with one step into a value of the given type.
void writeChild(Cell& cell, JsonType type, const JsonPathStep& step, const Json& value) {
  const ManagedObject content = value.managedJsonObject();
  const bool isGood = value.error().isNone();
  if (!step.isIndex()) {
    if (type != JsonType::dictionary || !isGood) failWrite(step, type);
    detail::setIn(cell, Cell::text(step.key()), content.cell());
    return;
  }
  if (type != JsonType::array) failWrite(step, type);
  const auto count = static_cast<Int>(cell.elementCount());
  if (step.index() >= count || !isGood) {
    fatalFailure("Json.subscript(index:" + std::to_string(step.index()) +
                 " set out of bounds: " + std::to_string(count));
  }
  if (step.index() < 0) fatalIndexOutOfRange(step.index(), count);
  *changeableChild(cell, step) = content.cell();
}

// The write with a path: a value with an error counts as null.
void writeThrough(Cell* cell, JsonType type, std::span<const JsonPathStep> path,
                  const Json& value) {
  for (; cell != nullptr && path.size() > 1; path = path.subspan(1)) {
    cell = changeableChild(*cell, path[0]);
    if (cell != nullptr) type = Json(ManagedObject::of(*cell)).type();
  }
  // What is not there reads as null, and so the last step fails on it.
  if (cell == nullptr) failWrite(path.back(), JsonType::null);
  writeChild(*cell, type, path.back(), value);
}

Json withoutError(const Json& value) { return value.managedJsonObject(); }

}  // namespace

Json Json::operator[](const JsonPathStep& step) const& { return readPath(content_, {&step, 1}); }
Json Json::operator[](std::span<const JsonPathStep> path) const& {
  return path.empty() ? *this : readPath(content_, path);
}
Json Json::operator[](std::initializer_list<JsonPathStep> path) const& {
  return (*this)[std::span(path)];
}
Json Json::operator[](const std::vector<JsonKey>& path) const& {
  return (*this)[std::vector<JsonPathStep>(path.begin(), path.end())];
}

JsonPlace Json::operator[](const JsonPathStep& step) & { return {*this, step}; }
JsonPlace Json::operator[](std::initializer_list<JsonPathStep> path) & {
  return {*this, std::vector<JsonPathStep>(path)};
}
JsonPlace Json::operator[](const std::vector<JsonKey>& path) & {
  return {*this, std::vector<JsonPathStep>(path.begin(), path.end())};
}

void Json::set(std::span<const JsonPathStep> path, const Json& value) {
  if (!path.empty()) writeThrough(&content_, type_, path, withoutError(value));
}

JsonPlace::JsonPlace(Json& root, std::vector<JsonPathStep> path)
    : Json(std::as_const(root)[std::span(path)]),
      root_(&root),
      isPath_(true),
      path_(std::move(path)) {}

JsonPlace::JsonPlace(Json& root, const JsonPathStep& step)
    : Json(std::as_const(root)[step]), root_(&root), step_(step) {}

JsonPlace::JsonPlace(JsonPlace& parent, const JsonPathStep& step)
    : Json(parent.asConst()[step]), root_(parent.root_), parent_(&parent), step_(step) {}

std::span<const JsonPathStep> JsonPlace::steps() const {
  return isPath_ ? std::span<const JsonPathStep>(path_) : std::span(&step_, 1);
}

// The content of this place, changeable; null if it is not there.
detail::Cell* JsonPlace::resolve() {
  Cell* cell = parent_ == nullptr ? &root_->content_ : parent_->resolve();
  for (const JsonPathStep& step : steps()) {
    if (cell != nullptr) cell = changeableChild(*cell, step);
  }
  return cell;
}

void JsonPlace::assign(const Json& value) && {
  const Json kept = isPath_ ? withoutError(value) : value;
  if (steps().empty()) return;
  if (root_ == nullptr) {
    static_cast<Json&>(*this) = kept;
    return;
  }
  forgetContent();
  if (parent_ != nullptr) {
    Cell* cell = parent_->resolve();
    const JsonType type = cell == nullptr ? JsonType::null : Json(ManagedObject::of(*cell)).type();
    writeThrough(cell, type, steps(), kept);
  } else {
    writeThrough(&root_->content_, root_->type_, steps(), kept);
  }
}

// What these temporaries read must not count as shared.
void JsonPlace::forgetContent() {
  for (JsonPlace* place = this; place != nullptr; place = place->parent_) place->content_ = Cell();
}

void JsonPlace::merge(const Json& other, bool typecheck) && {
  const bool isContainer = type() == JsonType::array || type() == JsonType::dictionary;
  if (!isContainer || other.type() != type() || root_ == nullptr || steps().empty()) {
    Json mergedValue = *this;
    mergedValue.merge(other, typecheck);
    std::move(*this).assign(mergedValue);
    return;
  }
  // In place: a list that grows piece by piece must not be copied each time.
  const Json kept = other;
  forgetContent();
  Cell* cell = resolve();
  if (cell == nullptr) failWrite(steps().back(), JsonType::null);
  mergeContent(*cell, kept.content_);
}

}  // namespace tolvanite
