#pragma once

#include <QString>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quorvane::lookups {

/// Brings single records of a list up to date: those of the keys leave it, and what was read of
/// them again comes to its place in the order of `less`. `key_of` gives the key of an item.
template <class Item, class KeyOf, class Less>
void Patch(std::vector<Item>& list, std::span<const int> keys, std::vector<Item> read,
           const KeyOf& key_of, const Less& less) {
  std::erase_if(
      list, [&](const Item& item) { return std::ranges::find(keys, key_of(item)) != keys.end(); });
  for (Item& item : read) {
    const auto place = std::upper_bound(list.begin(), list.end(), item, less);
    list.insert(place, std::move(item));
  }
}

/// A text by which names are in the order of the database.
inline QString OrderOf(const QString& text) {
  return text.toUpper();
}

/// "?,?,?": so many places in a list of a statement.
inline std::string Places(std::size_t count) {
  std::string places;
  for (std::size_t i = 0; i < count; ++i) {
    places += places.empty() ? "?" : ",?";
  }
  return places;
}

}  // namespace quorvane::lookups
