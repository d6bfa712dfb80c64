#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/Groups.h"

namespace wb {

/// The groups of one object: the one with its type, those that follow, and the objects that belong
/// to it, such as a polyline's vertices.
struct DxfEntry {
  size_t begin = 0;
  size_t end = 0;
};

/// Reads an object's own groups: not what applications added in braces or as extended data, and
/// not an object embedded in it.
class DxfFields {
 public:
  DxfFields(const DxfGroups& groups, DxfEntry entry) : groups(groups), entry(entry) {}

  std::string_view type() const { return groups.word(entry.begin); }
  /// The first group of that code; behind the mark `subclass` if one is named.
  std::optional<size_t> find(int code, std::string_view subclass = {}) const;
  /// The index behind the object's own groups, or behind those of the class if it is there.
  size_t endOf(std::string_view subclass) const;
  /// Its value without blanks, empty if there is none.
  std::string_view word(int code, std::string_view subclass = {}) const;
  int number(int code, int otherwise = 0) const;
  /// Puts the indices of the object's own groups into `indices`, in their order.
  void list(std::vector<size_t>& indices) const;

 private:
  const DxfGroups& groups;
  DxfEntry entry;
};

/// Where the parts of a DXF file stand.
class DxfOutline {
 public:
  /// @throws HostError if sections, tables or blocks don't end
  void read(const DxfGroups& groups);

  /// The objects of a section, or of all sections of that name.
  const std::vector<DxfEntry>& entries(std::string_view section) const;
  /// The entries of the table `name` in the section TABLES.
  std::vector<DxfEntry> table(const DxfGroups& groups, std::string_view name) const;
  /// Value of a variable of the header, without blanks; empty if it isn't there.
  std::string_view variable(const DxfGroups& groups, std::string_view name) const;
  /// The index of the variable's first group.
  std::optional<size_t> findVariable(const DxfGroups& groups, std::string_view name) const;

 private:
  struct Section {
    std::string name;
    DxfEntry range;
    std::vector<DxfEntry> entries;
  };
  void readSection(const DxfGroups& groups, size_t& index);
  Section& section(std::string_view name);

  std::vector<Section> sections;
};

}  // namespace wb
