#include "dxf/Groups.h"

#include <algorithm>
#include <charconv>

#include "core/Text.h"
#include "gate/HostError.h"

namespace wb {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr int lowestCode = -5;
constexpr int highestCode = 1071;

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// Tells what the file is if its first bytes show that it is no ASCII DXF.
const wchar_t* otherFormat(std::string_view bytes) {
  if (bytes.empty()) return L"the file is empty";
  if (startsWith(bytes, "AutoCAD Binary DXF")) return L"binary DXF can't be read, only ASCII DXF";
  if (startsWith(bytes, "AC10") && bytes.find('\0') < 64) return L"it is a DWG file, not DXF";
  if (startsWith(bytes, "\xFF\xFE") || startsWith(bytes, "\xFE\xFF")) {
    return L"it is UTF-16 text; DXF has 8-bit or UTF-8 text";
  }
  if (bytes.find('\0') != std::string_view::npos) return L"it isn't a text file";
  return nullptr;
}

bool parseNumber(std::string_view text, int& number) {
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
  return status == std::errc() && end == text.data() + text.size();
}

std::wstring atLine(size_t line, const std::wstring& what) {
  return L"line " + std::to_wstring(line) + L": " + what;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

// A line ends at a line feed with any carriage returns before it; files of the old Macintosh have
// carriage returns alone.
DxfGroups::Line DxfGroups::lineAt(size_t position) const {
  size_t end = original.find(lineEnd, position);
  if (end == std::string::npos) {
    end = original.size();
    return {position, end, end};
  }
  size_t textEnd = end;
  while (textEnd > position && original[textEnd - 1] == '\r') --textEnd;
  return {position, textEnd, end + 1};
}

void DxfGroups::parse(std::string bytes) {
  if (const wchar_t* other = otherFormat(bytes)) throw HostError(other);
  original = std::move(bytes);
  groups.clear();
  replaced.clear();
  additions.clear();
  removed.clear();
  // The first line end tells, whatever the file has further on.
  const size_t first = original.find_first_of("\r\n");
  const size_t behind = original.find_first_not_of('\r', first);
  lineEnd = behind == std::string::npos || original[behind] != '\n' ? '\r' : '\n';
  readGroups(startsWith(original, byteOrderMark) ? byteOrderMark.size() : 0);
}

// Programs differ in whether a carriage return among line feeds ends a line, and so in what the
// groups are.
void DxfGroups::requireUnmixed(const Line& line) const {
  const auto text = std::string_view(original).substr(line.begin, line.textEnd - line.begin);
  if (text.find(lineEnd == '\n' ? '\r' : '\n') == std::string_view::npos) return;
  throw HostError(
      atLine(groups.size() * 2 + 1, L"carriage returns and line feeds end lines by turns"));
}

void DxfGroups::readGroups(size_t position) {
  while (position < original.size()) {
    const size_t line = groups.size() * 2 + 1;
    const Line codeLine = lineAt(position);
    requireUnmixed(codeLine);
    const std::string_view text = trimmed(
        std::string_view(original).substr(codeLine.begin, codeLine.textEnd - codeLine.begin));
    int code = 0;
    if (!parseNumber(text, code) || code < lowestCode || code > highestCode) {
      throw HostError(atLine(line, L"\"" + fromUtf8(text.substr(0, 40)) + L"\" is no group code"));
    }
    if (codeLine.end >= original.size()) {
      throw HostError(atLine(line, L"the file is cut off behind a group code"));
    }
    const Line valueLine = lineAt(codeLine.end);
    requireUnmixed(valueLine);
    groups.push_back({code, position, valueLine.begin, valueLine.textEnd, valueLine.end});
    position = valueLine.end;
    // What follows the end mark, such as a Ctrl-Z of old, belongs to nobody and is kept.
    if (is(groups.size() - 1, 0, "EOF")) {
      removed.resize(groups.size());
      return;
    }
  }
  throw HostError(L"the file is cut off: it has no EOF");
}

std::string_view DxfGroups::value(size_t index) const {
  const auto changed = replaced.find(index);
  if (changed != replaced.end()) return changed->second;
  const Group& group = groups[index];
  return std::string_view(original).substr(group.value, group.valueEnd - group.value);
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
  return std::string_view(original).substr(begin, group.value - begin);
}

void DxfGroups::remove(size_t begin, size_t end) {
  for (size_t index = begin; index < end; ++index) removed[index] = true;
}

template <class Take>
void DxfGroups::additionsBefore(size_t index, Take take) const {
  if (index > 0 && removed[index - 1]) return;
  for (auto one = additions.lower_bound({index, lowestCode});
       one != additions.end() && one->first.first == index; ++one) {
    take(one->first.second, one->second);
  }
}

std::string DxfGroups::bytes() const {
  if (groups.empty()) return original;
  std::string result = original.substr(0, groups.front().begin);
  result.reserve(original.size());
  for (size_t index = 0; index < groups.size(); ++index) {
    additionsBefore(index, [&](int code, const std::string& value) {
      const std::string_view end = lineEndOfCode(index);
      const std::string number = std::to_string(code);
      result.append(number.size() < 3 ? 3 - number.size() : 0, ' ').append(number).append(end);
      result.append(value).append(end);
    });
    if (removed[index]) continue;
    const Group& group = groups[index];
    result.append(original, group.begin, group.value - group.begin);
    result += value(index);
    result.append(original, group.valueEnd, group.end - group.valueEnd);
  }
  return result.append(original, groups.back().end, std::string::npos);
}

void DxfGroups::requireReadFrom(std::string bytes) const {
  DxfGroups read;
  read.parse(std::move(bytes));
  size_t at = 0;
  bool same = true;
  const auto compare = [&](int code, std::string_view value) {
    same = same && at < read.size() && read.code(at) == code && read.value(at) == value;
    if (same) ++at;
  };
  for (size_t index = 0; same && index < groups.size(); ++index) {
    additionsBefore(index, compare);
    if (!removed[index]) compare(groups[index].code, value(index));
  }
  if (same && at == read.size()) return;
  throw HostError(atLine(read.lineOf(at), L"another group was expected"));
}

}  // namespace wb
