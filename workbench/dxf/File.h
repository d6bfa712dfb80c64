#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/Groups.h"
#include "dxf/Text.h"

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
  /// 0 if there is none.
  int number(int code, std::string_view subclass = {}) const;
  /// Puts the indices of the object's own groups into `indices`, in their order.
  void list(std::vector<size_t>& indices) const;

 private:
  template <class Predicate>
  std::optional<size_t> findOwn(Predicate isWanted) const;

  const DxfGroups& groups;
  DxfEntry entry;
};

/// A DXF file: its groups, where its parts stand, and how its text is written.
class DxfFile {
 public:
  /// @throws HostError if the bytes aren't a complete ASCII DXF file, or sections, tables or blocks
  /// don't end
  explicit DxfFile(std::string bytes);

  DxfGroups groups;
  DxfText text;

  DxfFields fields(DxfEntry entry) const { return {groups, entry}; }
  /// The objects of a section, or of all sections of that name.
  const std::vector<DxfEntry>& entries(std::string_view section) const;
  /// The entries of the table `name` in the section TABLES.
  std::vector<DxfEntry> table(std::string_view name) const;
  /// Value of a variable of the header, without blanks; empty if it isn't there.
  std::string_view variable(std::string_view name) const;
  /// The index of the variable's first group.
  std::optional<size_t> findVariable(std::string_view name) const;

  /// The first group of that code in an object, behind the mark of the class if one is named,
  /// decoded.
  std::wstring textOf(DxfEntry entry, int code, std::string_view subclass = {}) const;
  /// Changes it, or adds it behind the others of the class `subclass`.
  void setText(DxfEntry entry, int code, std::string_view subclass, std::wstring_view value);

 private:
  struct Section {
    DxfEntry range;
    std::vector<DxfEntry> entries;
  };
  size_t readSection(size_t start);
  std::optional<size_t> findField(DxfEntry entry, int code, std::string_view subclass) const;

  std::map<std::string, Section, std::less<>> sections;
};

/// What a BLOCK of the file says of itself.
struct DxfBlock {
  std::wstring name;
  std::wstring path;  ///< where an xref's file is, as stored
  bool isXref;
  bool isOverlay;

  DxfBlock(const DxfFile& file, DxfEntry entry)
      : name(file.text.decode(file.fields(entry).word(2))),
        path(file.text.decode(file.fields(entry).word(1))),
        isXref((file.fields(entry).number(70) & (xrefFlag | overlayFlag)) != 0),
        isOverlay((file.fields(entry).number(70) & overlayFlag) != 0) {}

 private:
  static constexpr int xrefFlag = 4;
  static constexpr int overlayFlag = 8;
};

}  // namespace wb
