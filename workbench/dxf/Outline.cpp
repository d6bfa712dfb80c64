#include "dxf/Outline.h"

#include "core/Text.h"
#include "gate/HostError.h"

namespace wb {

namespace {

constexpr int commentCode = 999;

struct Pairing {
  std::string_view section, begin, end;
};
constexpr Pairing pairings[] = {{"TABLES", "TABLE", "ENDTAB"}, {"BLOCKS", "BLOCK", "ENDBLK"}};

// The next object, extended data, or an object embedded in this one.
bool endsFields(int code) { return code == 0 || code >= 1000 || code == 101; }

std::wstring atLine(const DxfGroups& groups, size_t index, const std::wstring& what) {
  return L"line " + std::to_wstring(groups.lineOf(index)) + L": " + what;
}

}  // namespace

std::optional<size_t> DxfFields::find(int code, std::string_view subclass) const {
  bool reached = subclass.empty();
  int depth = 0;
  for (size_t index = entry.begin + 1; index < entry.end; ++index) {
    const int current = groups.code(index);
    if (endsFields(current)) break;
    if (current == 102) {
      depth += groups.word(index).substr(0, 1) == "{" ? 1 : -1;
    } else if (depth > 0) {
      continue;
    } else if (reached && current == code) {
      return index;
    } else if (current == 100 && groups.word(index) == subclass) {
      reached = true;
    }
  }
  return std::nullopt;
}

void DxfFields::list(std::vector<size_t>& indices) const {
  indices.clear();
  int depth = 0;
  for (size_t index = entry.begin + 1; index < entry.end; ++index) {
    const int current = groups.code(index);
    if (endsFields(current)) break;
    if (current == 102) {
      depth += groups.word(index).substr(0, 1) == "{" ? 1 : -1;
    } else if (depth == 0) {
      indices.push_back(index);
    }
  }
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

int DxfFields::number(int code, int otherwise) const {
  const auto index = find(code);
  return index ? groups.number(*index) : otherwise;
}

DxfOutline::Section& DxfOutline::section(std::string_view name) {
  for (Section& one : sections) {
    if (one.name == name) return one;
  }
  sections.push_back({std::string(name), {}, {}});
  return sections.back();
}

const std::vector<DxfEntry>& DxfOutline::entries(std::string_view name) const {
  static const std::vector<DxfEntry> none;
  for (const Section& one : sections) {
    if (one.name == name) return one.entries;
  }
  return none;
}

void DxfOutline::read(const DxfGroups& groups) {
  sections.clear();
  for (size_t index = 0; index < groups.size();) {
    if (groups.code(index) == commentCode) {
      ++index;
    } else if (groups.is(index, 0, "EOF")) {
      return;
    } else if (!groups.is(index, 0, "SECTION")) {
      throw HostError(atLine(groups, index, L"a section is expected here"));
    } else {
      readSection(groups, index);
    }
  }
}

// `index` goes from the section's begin to behind its end.
void DxfOutline::readSection(const DxfGroups& groups, size_t& index) {
  const size_t start = index++;
  if (groups.code(index) != 2) {
    throw HostError(atLine(groups, index, L"a section without a name"));
  }
  const std::string name(groups.word(index++));
  const Pairing* pairing = nullptr;
  for (const Pairing& one : pairings) {
    if (one.section == name) pairing = &one;
  }
  Section& into = section(name);
  into.range = {index, index};
  bool open = false;
  for (;; ++index) {
    if (groups.code(index) != 0) continue;
    if (!into.entries.empty() && into.entries.back().end == 0) into.entries.back().end = index;
    const std::string_view type = groups.word(index);
    if (type == "EOF" || type == "SECTION") {
      throw HostError(atLine(groups, start, L"the section " + fromUtf8(name) + L" doesn't end"));
    }
    const bool begins = pairing && type == pairing->begin;
    const bool ends = pairing && type == pairing->end;
    if ((begins && open) || (ends && !open) || (type == "ENDSEC" && open)) {
      throw HostError(atLine(groups, index,
                             L"in " + fromUtf8(name) + L" " + fromUtf8(type) +
                                 L" is out of place: something before it doesn't end"));
    }
    if (begins || ends) open = begins;
    if (type == "ENDSEC") break;
    into.entries.push_back({index, 0});
  }
  into.range.end = index++;
}

std::vector<DxfEntry> DxfOutline::table(const DxfGroups& groups, std::string_view name) const {
  std::vector<DxfEntry> result;
  bool inside = false;
  for (const DxfEntry& entry : entries("TABLES")) {
    const DxfFields fields(groups, entry);
    const std::string_view type = fields.type();
    if (type == "TABLE") {
      inside = fields.word(2) == name;
    } else if (type == "ENDTAB") {
      inside = false;
    } else if (inside) {
      result.push_back(entry);
    }
  }
  return result;
}

std::optional<size_t> DxfOutline::findVariable(const DxfGroups& groups,
                                               std::string_view name) const {
  for (const Section& one : sections) {
    if (one.name != "HEADER") continue;
    for (size_t index = one.range.begin; index + 1 < one.range.end; ++index) {
      if (groups.is(index, 9, name)) return index + 1;
    }
  }
  return std::nullopt;
}

std::string_view DxfOutline::variable(const DxfGroups& groups, std::string_view name) const {
  const auto index = findVariable(groups, name);
  return index ? groups.word(*index) : std::string_view();
}

}  // namespace wb
