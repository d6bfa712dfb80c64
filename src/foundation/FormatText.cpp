#include "foundation/FormatText.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <optional>

namespace tessaro {

namespace {

constexpr int longestField = 500;

/// A placeholder of a pattern.
struct Placeholder {
  CString flags;
  int width = 0;
  std::optional<int> precision;
  wchar_t conversion = 0;
  /// Position in the pattern behind the placeholder.
  size_t end = 0;

  bool isForText() const { return conversion == L's'; }
};

/// Parses one placeholder.
class PlaceholderReader {
 public:
  PlaceholderReader(std::wstring_view pattern, size_t start) : pattern(pattern), next(start) {}

  /// @return nothing if there is no valid placeholder
  std::optional<Placeholder> read() {
    Placeholder placeholder;
    while (isOneOf(L"-+ #0")) placeholder.flags += pattern[next++];
    placeholder.width = readNumber();
    if (isOneOf(L".")) {
      ++next;
      placeholder.precision = readNumber();
    }
    // The size is taken from the value.
    while (isOneOf(L"hlw")) ++next;
    if (!isOneOf(L"diuxXs")) return std::nullopt;
    placeholder.conversion = pattern[next++];
    placeholder.end = next;
    return placeholder;
  }

 private:
  bool isOneOf(const wchar_t* characters) const {
    return next < pattern.size() && pattern[next] != 0 &&
           std::wcschr(characters, pattern[next]) != nullptr;
  }

  int readNumber() {
    int number = 0;
    while (isOneOf(L"0123456789")) {
      if (number <= longestField) number = number * 10 + (pattern[next] - L'0');
      ++next;
    }
    return number;
  }

  std::wstring_view pattern;
  size_t next;
};

bool fits(const Placeholder& placeholder, const FormatValue& value) {
  return placeholder.isForText() == value.isText() && placeholder.width <= longestField &&
         placeholder.precision.value_or(0) <= longestField;
}

CString filledText(const Placeholder& placeholder, std::wstring_view text) {
  CString field(text.substr(
      0, placeholder.precision ? static_cast<size_t>(*placeholder.precision) : text.size()));
  const auto width = static_cast<size_t>(placeholder.width);
  if (field.size() < width) {
    const bool leftAligned = placeholder.flags.find(L'-') != CString::npos;
    field.insert(leftAligned ? field.size() : 0, width - field.size(), L' ');
  }
  return field;
}

CString filledNumber(const Placeholder& placeholder, long number) {
  CString format = L"%" + placeholder.flags;
  if (placeholder.width > 0) format += std::to_wstring(placeholder.width);
  if (placeholder.precision) format += L"." + std::to_wstring(*placeholder.precision);
  format += L'l';
  format += placeholder.conversion;
  wchar_t field[2 * longestField] = {};
  const int length = std::swprintf(field, std::size(field), format.c_str(), number);
  return CString(field, length > 0 ? static_cast<size_t>(length) : 0);
}

}  // namespace

CString formatText(std::wstring_view pattern, std::initializer_list<FormatValue> values) {
  CString text;
  auto value = values.begin();
  for (size_t position = 0; position < pattern.size();) {
    const size_t percent = std::min(pattern.find(L'%', position), pattern.size());
    text += pattern.substr(position, percent - position);
    position = percent + 1;
    if (percent == pattern.size()) break;
    if (position < pattern.size() && pattern[position] == L'%') {
      text += L'%';
      ++position;
      continue;
    }
    const auto placeholder = PlaceholderReader(pattern, position).read();
    if (!placeholder || value == values.end()) {
      text += L'%';
      continue;
    }
    // A placeholder that doesn't fit still uses up its value, so that the following ones keep
    // theirs.
    if (fits(*placeholder, *value)) {
      text += placeholder->isForText() ? filledText(*placeholder, value->text())
                                       : filledNumber(*placeholder, value->number());
    } else {
      text += pattern.substr(percent, placeholder->end - percent);
    }
    position = placeholder->end;
    ++value;
  }
  return text;
}

CString formatText(const wchar_t* pattern, std::initializer_list<FormatValue> values) {
  return formatText(std::wstring_view(pattern != nullptr ? pattern : L""), values);
}

}  // namespace tessaro
