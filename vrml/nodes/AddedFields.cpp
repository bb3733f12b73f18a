// The hash of a name is a polynomial in its characters, so that those of all beginnings, or of all ends, of a text come
// out of one pass over it: the look-up of a name's part asks for each of them. Names of one hash stand side by side and
// are compared.

#include "vrml/nodes/AddedFields.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace vrml {

namespace {

constexpr std::size_t kScanLimit = 16;  // up to here a scan is faster than a hash
constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

constexpr std::uint64_t kBase = 0x9e3779b97f4a7c15;

// Not 0, so that every character counts.
constexpr std::uint64_t valueOf(char c) noexcept {
  return static_cast<std::uint64_t>(static_cast<unsigned char>(c)) + 1;
}

}  // namespace

/// The places of the first bearers of all names of each list.
class AddedFields::Index {
 public:
  // Takes in the fields that are new since the last call.
  void extend(std::span<const Entry> entries);
  [[nodiscard]] std::size_t find(std::span<const Entry> entries, FieldList list, const NamePattern& wanted) const;

 private:
  using Table = std::unordered_multimap<std::uint64_t, std::size_t>;

  [[nodiscard]] static std::size_t placeOf(const Table& table, std::span<const Entry> entries, std::uint64_t hash,
                                           std::string_view name);

  std::array<Table, kFieldListCount> m_tables;
  std::size_t m_knownCount = 0;
};

void AddedFields::Index::extend(std::span<const Entry> entries) {
  for (; m_knownCount < entries.size(); ++m_knownCount) {
    const Entry& entry = entries[m_knownCount];
    const std::string_view name = entry.field->getName();
    Table& table = m_tables[static_cast<std::size_t>(entry.list)];
    std::uint64_t hash = 0;
    for (const char c : name) hash = hash * kBase + valueOf(c);
    if (placeOf(table, entries, hash, name) == kNowhere) table.emplace(hash, m_knownCount);
  }
}

std::size_t AddedFields::Index::find(std::span<const Entry> entries, FieldList list, const NamePattern& wanted) const {
  const Table& table = m_tables[static_cast<std::size_t>(list)];
  const std::string_view text = wanted.text;
  if (table.empty()) return kNowhere;
  std::size_t place = kNowhere;
  std::uint64_t hash = 0;
  for (std::size_t size = 1; size <= text.size(); ++size) {
    hash = hash * kBase + valueOf(text[size - 1]);
    if (wanted.isHead) place = std::min(place, placeOf(table, entries, hash, text.substr(0, size)));
  }
  if (wanted.isWhole) place = std::min(place, placeOf(table, entries, hash, text));
  hash = 0;
  std::uint64_t power = 1;
  for (std::size_t i = text.size(); wanted.isTail && i-- > 0; power *= kBase) {
    hash += valueOf(text[i]) * power;
    place = std::min(place, placeOf(table, entries, hash, text.substr(i)));
  }
  return place;
}

std::size_t AddedFields::Index::placeOf(const Table& table, std::span<const Entry> entries, std::uint64_t hash,
                                        std::string_view name) {
  for (auto [each, end] = table.equal_range(hash); each != end; ++each)
    if (name == entries[each->second].field->getName()) return each->second;
  return kNowhere;
}

AddedFields::AddedFields() noexcept = default;
AddedFields::~AddedFields() = default;

Field* AddedFields::add(FieldList list, std::unique_ptr<Field> field) {
  return m_entries.emplace_back(Entry{list, std::move(field)}).field.get();
}

Field* AddedFields::first(FieldList list, const NamePattern& wanted) const {
  if (m_entries.size() <= kScanLimit) {
    for (const Entry& entry : m_entries)
      if (entry.list == list && wanted.matches(entry.field->getName())) return entry.field.get();
    return nullptr;
  }
  if (!m_index) m_index = std::make_unique<Index>();
  m_index->extend(m_entries);
  const std::size_t place = m_index->find(m_entries, list, wanted);
  return place == kNowhere ? nullptr : m_entries[place].field.get();
}

}  // namespace vrml
