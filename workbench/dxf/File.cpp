#include "dxf/File.h"

#include "core/Text.h"

namespace wb {

namespace {

constexpr int commentCode = 999;

struct Pairing {
  std::string_view section, begin, end;
};
constexpr Pairing pairings[] = {{"TABLES", "TABLE", "ENDTAB"}, {"BLOCKS", "BLOCK", "ENDBLK"}};

// The next object, extended data, or an object embedded in this one.
bool endsFields(int code) { return code == 0 || code >= 1000 || code == 101; }

}  // namespace

/// @return the first of the object's own groups for which `isWanted(index)` holds
template <class Predicate>
std::optional<size_t> DxfFields::findOwn(Predicate isWanted) const {
  int depth = 0;
  for (size_t index = entry.begin + 1; index < entry.end; ++index) {
    const int current = groups.code(index);
    if (endsFields(current)) break;
    if (current == 102) {
      depth += groups.word(index).substr(0, 1) == "{" ? 1 : -1;
    } else if (depth <= 0 && isWanted(index)) {
      return index;
    }
  }
  return std::nullopt;
}

std::optional<size_t> DxfFields::find(int code, std::string_view subclass) const {
  bool reached = subclass.empty();
  return findOwn([&](size_t index) {
    if (reached && groups.code(index) == code) return true;
    reached = reached || groups.is(index, 100, subclass);
    return false;
  });
}

void DxfFields::list(std::vector<size_t>& indices) const {
  indices.clear();
  findOwn([&](size_t index) {
    indices.push_back(index);
    return false;
  });
}

size_t DxfFields::endOf(std::string_view subclass) const {
  bool reached = false;
  size_t index = entry.begin + 1;
  for (; index < entry.end && !endsFields(groups.code(index)); ++index) {
    if (groups.code(index) != 100) continue;
    if (reached) break;
    reached = groups.word(index) == subclass;
  }
  return index;
}

std::string_view DxfFields::word(int code, std::string_view subclass) const {
  const auto index = find(code, subclass);
  return index ? groups.word(*index) : std::string_view();
}

int DxfFields::number(int code, std::string_view subclass) const {
  const auto index = find(code, subclass);
  return index ? groups.number(*index) : 0;
}

DxfFile::DxfFile(std::string bytes) : groups(std::move(bytes)) {
  for (size_t index = 0; !groups.is(index, 0, "EOF");) {
    if (groups.code(index) == commentCode) {
      ++index;
    } else if (groups.is(index, 0, "SECTION")) {
      index = readSection(index);
    } else {
      throw DxfGroups::error(index, L"a section is expected here");
    }
  }
  text = DxfText(variable("$ACADVER"), variable("$DWGCODEPAGE"));
}

/// @return the index behind the section's end
size_t DxfFile::readSection(size_t start) {
  size_t index = start + 1;
  if (groups.code(index) != 2) throw DxfGroups::error(index, L"a section without a name");
  const std::string name(groups.word(index++));
  const Pairing* pairing = nullptr;
  for (const Pairing& one : pairings) {
    if (one.section == name) pairing = &one;
  }
  auto& [range, objects] = sections[name];
  range.begin = index;
  bool open = false;
  for (;; ++index) {
    if (groups.code(index) != 0) continue;
    if (!objects.empty() && objects.back().end == 0) objects.back().end = index;
    const std::string_view type = groups.word(index);
    if (type == "EOF" || type == "SECTION") {
      throw DxfGroups::error(start, L"the section " + fromUtf8(name) + L" doesn't end");
    }
    const bool begins = pairing && type == pairing->begin;
    const bool ends = pairing && type == pairing->end;
    if ((begins && open) || (ends && !open) || (type == "ENDSEC" && open)) {
      throw DxfGroups::error(index, L"in " + fromUtf8(name) + L" " + fromUtf8(type) +
                                        L" is out of place: something before it doesn't end");
    }
    if (begins || ends) open = begins;
    if (type == "ENDSEC") break;
    objects.push_back({index, 0});
  }
  range.end = index;
  return index + 1;
}

const std::vector<DxfEntry>& DxfFile::entries(std::string_view section) const {
  static const std::vector<DxfEntry> none;
  const auto found = sections.find(section);
  return found == sections.end() ? none : found->second.entries;
}

std::vector<DxfEntry> DxfFile::table(std::string_view name) const {
  std::vector<DxfEntry> result;
  bool inside = false;
  for (const DxfEntry& entry : entries("TABLES")) {
    const std::string_view type = fields(entry).type();
    if (type == "TABLE") {
      inside = fields(entry).word(2) == name;
    } else if (type == "ENDTAB") {
      inside = false;
    } else if (inside) {
      result.push_back(entry);
    }
  }
  return result;
}

std::optional<size_t> DxfFile::findVariable(std::string_view name) const {
  const auto header = sections.find("HEADER");
  if (header == sections.end()) return std::nullopt;
  const DxfEntry range = header->second.range;
  for (size_t index = range.begin; index + 1 < range.end; ++index) {
    if (groups.is(index, 9, name)) return index + 1;
  }
  return std::nullopt;
}

std::string_view DxfFile::variable(std::string_view name) const {
  const auto index = findVariable(name);
  return index ? groups.word(*index) : std::string_view();
}

// R12 marks no classes.
std::optional<size_t> DxfFile::findField(DxfEntry entry, int code,
                                         std::string_view subclass) const {
  const auto index = fields(entry).find(code, subclass);
  return index ? index : fields(entry).find(code);
}

std::wstring DxfFile::textOf(DxfEntry entry, int code, std::string_view subclass) const {
  const auto index = findField(entry, code, subclass);
  return text.decode(index ? groups.value(*index)
                           : groups.added(fields(entry).endOf(subclass), code));
}

void DxfFile::setText(DxfEntry entry, int code, std::string_view subclass,
                      std::wstring_view value) {
  // The group keeps its bytes if it has the same text already, in whichever spelling.
  if (textOf(entry, code, subclass) == value) return;
  if (const auto index = findField(entry, code, subclass)) {
    groups.replace(*index, text.encode(value));
  } else {
    groups.addBefore(fields(entry).endOf(subclass), code, text.encode(value));
  }
}

}  // namespace wb
