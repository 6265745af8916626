// The few names that every interface of the library is written in.
//
//   tolvanite::Block<bool(const std::string&)> isLong = [](const auto& s) { return s.size() > 9; };
//   tolvanite::Set<tolvanite::Int> seen{1, 2, 3};
#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <unordered_set>

namespace tolvanite {

/// Integers, indexes and counts: signed, 64 bits.
using Int = std::int64_t;

/// A closure that the library calls. An empty one stands for an absent block.
template <typename Signature>
using Block = std::function<Signature>;

/// An unordered set. The order of iteration is free.
template <typename T, typename Hash = std::hash<T>, typename Equal = std::equal_to<>>
using Set = std::unordered_set<T, Hash, Equal>;

/// An unordered map. The order of iteration is free.
template <typename Key, typename Value, typename Hash = std::hash<Key>,
          typename Equal = std::equal_to<>>
using Dictionary = std::unordered_map<Key, Value, Hash, Equal>;

}  // namespace tolvanite
