// SPDX-License-Identifier: BSL-1.0
/// @file
/// A list whose entries have unique ids.

#ifndef CALCULATIONS_STATIONS_IDENTIFIED_LIST_H
#define CALCULATIONS_STATIONS_IDENTIFIED_LIST_H

#include "foundation/MakeRoom.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Entries in the order of adding, found by id without walking through the list.
template <class T>
class IdentifiedList {
 public:
  IdentifiedList() = default;
  IdentifiedList(const IdentifiedList&) = delete;  // refers to its own keys
  IdentifiedList& operator=(const IdentifiedList&) = delete;

  /// @return false, with nothing stored, when the id is empty or has an entry already
  bool add(const std::wstring& id, const T& entry) {
    if (id.empty()) return false;
    makeRoomFor(1, m_entries);  // no id without its entry
    makeRoomFor(1, m_ids);
    const auto [place, isNew] = m_indices.emplace(id, m_entries.size());
    if (!isNew) return false;
    try {
      m_ids.push_back(&place->first);
      m_entries.push_back(entry);
    } catch (...) {  // an id without an entry would be found for ever
      m_ids.resize(m_entries.size());
      m_indices.erase(place);
      throw;
    }
    return true;
  }

  void clear() {
    m_entries.clear();
    m_ids.clear();
    m_indices.clear();
  }

  const std::vector<T>& entries() const { return m_entries; }
  const std::wstring& id(std::size_t index) const { return *m_ids[index]; }

  std::optional<std::size_t> indexOf(const std::wstring& id) const {
    const auto found = m_indices.find(id);
    if (found == m_indices.end()) return std::nullopt;
    return found->second;
  }

  std::vector<std::size_t> indicesInIdOrder() const {
    std::vector<std::size_t> indices;
    indices.reserve(m_entries.size());
    for (const auto& [id, index] : m_indices) {
      indices.push_back(index);
    }
    return indices;
  }

 private:
  std::vector<T> m_entries;
  std::vector<const std::wstring*> m_ids;
  std::map<std::wstring, std::size_t> m_indices;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
