#include <Tolvanite/Json/ManagedObject.h>

#include <algorithm>
#include <new>
#include <ostream>
#include <span>

#include <Tolvanite/Json/detail/Nodes.h>

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

void describe(std::string& out, const Cell& cell) {
  if (cell.isNumber()) {
    out += NumberValue(cell).stringValue();
  } else if (cell.isText()) {
    out += quoted(cell.textView());
  } else if (cell.tag() == CellTag::list) {
    const char* separator = "[";
    for (const Cell& element : detail::elementsOf(cell)) {
      out += std::exchange(separator, ", ");
      describe(out, element);
    }
    out += cell.elementCount() == 0 ? "[]" : "]";
  } else if (cell.tag() == CellTag::dictionary) {
    const char* separator = "{";
    const Cell* value = detail::valuesOf(cell).data();
    for (const Cell& key : detail::keysOf(cell)) {
      out += std::exchange(separator, ", ");
      out += quoted(key.textView()) + ": ";
      describe(out, *value++);
    }
    out += cell.elementCount() == 0 ? "{}" : "}";
  } else if (cell.tag() == CellTag::other) {
    const detail::OtherNode& node = detail::otherOf(cell);
    out += node.kind->describe(node.value);
  } else {
    out += "null";
  }
}

}  // namespace

Cell detail::makeOtherCell(std::any value, const OtherKind& kind) {
  return makeOther(std::move(value), kind);
}

Optional<std::string> ManagedObject::text() const {
  if (!cell_.isText()) return {};
  return std::string(cell_.textView());
}

Optional<ManagedArray> ManagedObject::list() const {
  if (cell_.tag() != CellTag::list) return {};
  return ManagedArray(cell_);
}

Optional<ManagedDictionary> ManagedObject::dictionary() const {
  if (cell_.tag() != CellTag::dictionary) return {};
  return ManagedDictionary(cell_);
}

const ManagedObject* ManagedObject::find(Int index) const& noexcept {
  if (cell_.tag() != CellTag::list) return nullptr;
  const std::span<const Cell> elements = detail::elementsOf(cell_);
  const auto place = static_cast<std::uint64_t>(index);  // a negative one is out of range, too
  return place < elements.size() ? &of(elements[place]) : nullptr;
}

const ManagedObject* ManagedObject::find(std::string_view key) const& noexcept {
  if (cell_.tag() != CellTag::dictionary) return nullptr;
  const Cell* found = detail::findIn(cell_, key);
  return found == nullptr ? nullptr : &of(*found);
}

ManagedItems ManagedObject::items() const& noexcept {
  if (cell_.tag() != CellTag::dictionary) return {{}, {}};
  const std::span<const Cell> values = detail::valuesOf(cell_);
  return {{detail::keysOf(cell_).data(), values.data()}, {nullptr, values.data() + values.size()}};
}

const std::any* ManagedObject::wrappedValue() const noexcept {
  return cell_.tag() == CellTag::other ? &detail::otherOf(cell_).value : nullptr;
}

bool ManagedObject::isDictionaryWithOtherKeys() const noexcept {
  return cell_.tag() == CellTag::other && detail::otherOf(cell_).kind->isDictionary;
}

std::string ManagedObject::description() const {
  std::string result;
  describe(result, cell_);
  return result;
}

bool operator==(const ManagedObject& a, const ManagedObject& b) noexcept {
  return detail::isEqual(a.cell(), b.cell());
}

std::ostream& operator<<(std::ostream& out, const ManagedObject& object) {
  return out << object.description();
}

ManagedArray::const_iterator ManagedArray::begin() const noexcept {
  return reinterpret_cast<const ManagedObject*>(detail::elementsOf(cell_).data());
}

void ManagedArray::set(Int index, ManagedObject element) {
  const std::size_t place = checked(index);
  detail::makeChangeable(cell_, size());
  detail::elementsOf(cell_)[place] = std::move(element.cell());
}

void ManagedArray::append(ManagedObject element) {
  detail::appendTo(cell_, std::move(element.cell()));
}

void ManagedArray::remove(Int index) { detail::eraseFrom(cell_, checked(index)); }

void ManagedArray::reserve(Int count) {
  if (count > this->count()) detail::makeChangeable(cell_, static_cast<std::size_t>(count));
}

ManagedDictionary::ManagedDictionary(std::initializer_list<Entry> entries) : ManagedDictionary() {
  detail::Shape* known = detail::ShapeMemory::ofThisThread().find(entries);
  if (known == nullptr) {
    detail::makeChangeable(cell_, entries.size());
    for (const Entry& entry : entries) set(entry.key, std::move(entry.value));
    return;
  }
  const auto isAdopted = [arena = detail::Arena::ofThisThread()](const Entry& entry) {
    return detail::adopt(entry.value.cell(), *arena);
  };
  detail::Arena* arena = detail::Arena::ofThisThread();
  Cell* out = nullptr;
  if (arena != nullptr && std::ranges::all_of(entries, isAdopted)) {
    out = detail::startDictionary(cell_, *known, *arena);
  }
  if (out != nullptr) {
    for (const Entry& entry : entries) {
      detail::putAdopted(out++, std::move(entry.value.cell()), *arena);
    }
  } else {
    out = detail::startDictionary(cell_, *known);
    for (const Entry& entry : entries) new (out++) Cell(std::move(entry.value.cell()));
  }
}

ManagedDictionary::Iterator ManagedDictionary::begin() const noexcept {
  return {detail::keysOf(cell_).data(), detail::valuesOf(cell_).data()};
}

ManagedDictionary::Iterator ManagedDictionary::end() const noexcept {
  const std::span<const Cell> values = detail::valuesOf(cell_);
  return {nullptr, values.data() + values.size()};
}

const ManagedObject* ManagedDictionary::find(std::string_view key) const noexcept {
  const Cell* found = detail::findIn(cell_, key);
  return found == nullptr ? nullptr : &ManagedObject::of(*found);
}

ManagedObject ManagedDictionary::operator[](std::string_view key) const {
  const ManagedObject* found = find(key);
  if (found == nullptr) fatalFailure("No key " + quoted(key) + " in the dictionary");
  return *found;
}

std::vector<std::string> ManagedDictionary::keys() const {
  std::vector<std::string> result;
  result.reserve(size());
  for (const Cell& key : detail::keysOf(cell_)) result.emplace_back(key.textView());
  return result;
}

void ManagedDictionary::set(std::string_view key, ManagedObject value) {
  detail::setIn(cell_, Cell::ownText(key), std::move(value.cell()));
}

bool ManagedDictionary::remove(std::string_view key) {
  const detail::Shape* shape = detail::shapeOf(cell_);
  const std::size_t place = shape == nullptr ? detail::Shape::absent : shape->find(key);
  if (place == detail::Shape::absent) return false;
  detail::eraseFrom(cell_, place);
  return true;
}

}  // namespace tolvanite

std::size_t std::hash<tolvanite::ManagedObject>::operator()(
    const tolvanite::ManagedObject& object) const noexcept {
  return tolvanite::detail::hashOf(object.cell());
}
