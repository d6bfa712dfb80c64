#include "dxf/Groups.h"

#include <charconv>

#include "core/Text.h"

namespace wb {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr int lowestCode = -5;
constexpr int highestCode = 1071;

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// @throws HostError if the first bytes show that the file is no ASCII DXF
void requireText(std::string_view bytes) {
  if (bytes.empty()) throw HostError(L"the file is empty");
  if (startsWith(bytes, "AutoCAD Binary DXF")) {
    throw HostError(L"binary DXF can't be read, only ASCII DXF");
  }
  if (startsWith(bytes, "AC10") && bytes.find('\0') < 64) {
    throw HostError(L"it is a DWG file, not DXF");
  }
  if (startsWith(bytes, "\xFF\xFE") || startsWith(bytes, "\xFE\xFF")) {
    throw HostError(L"it is UTF-16 text; DXF has 8-bit or UTF-8 text");
  }
  if (bytes.find('\0') != std::string_view::npos) throw HostError(L"it isn't a text file");
}

std::string_view trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

bool parseNumber(std::string_view text, int& number) {
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
  return status == std::errc() && end == text.data() + text.size();
}

}  // namespace

DxfGroups::DxfGroups(std::string bytes) : original(std::move(bytes)) {
  requireText(original);
  // The first line end decides, whatever the file has further on.
  const size_t first = original.find_first_of("\r\n");
  const size_t behind = original.find_first_not_of('\r', first);
  if (behind == std::string::npos || original[behind] != '\n') lineEnd = '\r';
  readGroups(startsWith(original, byteOrderMark) ? byteOrderMark.size() : 0);
}

HostError DxfGroups::error(size_t index, const std::wstring& what) {
  return HostError(L"line " + std::to_wstring(index * 2 + 1) + L": " + what);
}

// A line ends at a line feed with any carriage returns before it; files of the old Macintosh have
// carriage returns alone. Programs differ in whether a carriage return among line feeds ends a
// line, and so in what the groups are.
DxfGroups::Line DxfGroups::lineAt(size_t position) const {
  const size_t found = original.find(lineEnd, position);
  const bool last = found == std::string::npos;
  size_t textEnd = last ? original.size() : found;
  while (!last && textEnd > position && original[textEnd - 1] == '\r') --textEnd;
  const std::string_view text = part(position, textEnd);
  if (text.find(lineEnd == '\n' ? '\r' : '\n') != std::string_view::npos) {
    throw error(size(), L"carriage returns and line feeds end lines by turns");
  }
  return {text, textEnd, last ? original.size() : found + 1};
}

void DxfGroups::readGroups(size_t position) {
  while (position < original.size()) {
    const Line codeLine = lineAt(position);
    const std::string_view text = trimmed(codeLine.text);
    int code = 0;
    if (!parseNumber(text, code) || code < lowestCode || code > highestCode) {
      throw error(size(), L"\"" + fromUtf8(text.substr(0, 40)) + L"\" is no group code");
    }
    if (codeLine.end >= original.size()) {
      throw error(size(), L"the file is cut off behind a group code");
    }
    const Line valueLine = lineAt(codeLine.end);
    groups.push_back({code, false, position, codeLine.end, valueLine.textEnd, valueLine.end});
    position = valueLine.end;
    // What follows the end mark, such as a Ctrl-Z of old, is no group and is kept.
    if (is(size() - 1, 0, "EOF")) return;
  }
  throw HostError(L"the file is cut off: it has no EOF");
}

std::string_view DxfGroups::value(size_t index) const {
  const auto changed = replaced.find(index);
  if (changed != replaced.end()) return changed->second;
  return part(groups[index].value, groups[index].valueEnd);
}

std::string_view DxfGroups::word(size_t index) const { return trimmed(value(index)); }

int DxfGroups::number(size_t index) const {
  int result = 0;
  return parseNumber(word(index), result) ? result : 0;
}

void DxfGroups::replace(size_t index, std::string value) {
  if (value != this->value(index)) replaced[index] = std::move(value);
}

void DxfGroups::addBefore(size_t index, int code, std::string value) {
  additions[{index, code}] = std::move(value);
}

std::string_view DxfGroups::added(size_t index, int code) const {
  const auto found = additions.find({index, code});
  return found == additions.end() ? std::string_view() : found->second;
}

// The last value of a file may have no line end; a code always has one.
std::string_view DxfGroups::lineEndOfCode(size_t index) const {
  const Group& group = groups[index];
  size_t begin = group.value - 1;
  while (begin > group.begin && original[begin - 1] == '\r') --begin;
  return part(begin, group.value);
}

void DxfGroups::remove(size_t begin, size_t end) {
  for (size_t index = begin; index < end; ++index) groups[index].removed = true;
}

template <class Take>
void DxfGroups::additionsBefore(size_t index, Take take) const {
  if (index > 0 && isRemoved(index - 1)) return;
  for (auto one = additions.lower_bound({index, lowestCode});
       one != additions.end() && one->first.first == index; ++one) {
    take(one->first.second, one->second);
  }
}

std::string DxfGroups::bytes() const {
  std::string result = original.substr(0, groups.front().begin);
  result.reserve(original.size());
  for (size_t index = 0; index < size(); ++index) {
    additionsBefore(index, [&](int code, const std::string& value) {
      const std::string_view end = lineEndOfCode(index);
      const std::string number = std::to_string(code);
      result.append(number.size() < 3 ? 3 - number.size() : 0, ' ').append(number).append(end);
      result.append(value).append(end);
    });
    const Group& group = groups[index];
    if (group.removed) continue;
    result.append(part(group.begin, group.value)).append(value(index));
    result.append(part(group.valueEnd, group.end));
  }
  return result.append(original, groups.back().end, std::string::npos);
}

void DxfGroups::requireReadFrom(std::string bytes) const {
  const DxfGroups read(std::move(bytes));
  size_t at = 0;
  bool same = true;
  const auto compare = [&](int code, std::string_view value) {
    same = same && at < read.size() && read.code(at) == code && read.value(at) == value;
    if (same) ++at;
  };
  for (size_t index = 0; same && index < size(); ++index) {
    additionsBefore(index, compare);
    if (!isRemoved(index)) compare(code(index), value(index));
  }
  if (!same || at != read.size()) throw error(at, L"another group was expected");
}

}  // namespace wb
