#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gate/HostError.h"

namespace wb {

/// The text of an ASCII DXF file as its groups, each a line with a code and a line with a value.
/// What isn't changed keeps its bytes, down to blanks and line ends.
class DxfGroups {
 public:
  /// @param bytes the file's
  /// @throws HostError if they aren't a complete ASCII DXF file: binary, cut off, without group
  /// codes
  explicit DxfGroups(std::string bytes);

  size_t size() const { return groups.size(); }
  int code(size_t index) const { return groups[index].code; }
  /// The value in the file's own encoding, without the line end, changes included.
  std::string_view value(size_t index) const;
  /// The same without the blanks around it, for names and numbers.
  std::string_view word(size_t index) const;
  /// The value as a number, 0 if it is none.
  int number(size_t index) const;
  bool is(size_t index, int code, std::string_view word) const {
    return groups[index].code == code && this->word(index) == word;
  }
  /// An error that names the line of the file at which the group begins.
  static HostError error(size_t index, const std::wstring& what);

  /// Changes a value. `value` has no line end and is in the file's encoding.
  void replace(size_t index, std::string value);
  /// Adds a group behind the group before `index`, or changes what was added there under that code.
  /// It gets the line end of the next code and is removed with the group before it. It isn't
  /// counted as a group.
  void addBefore(size_t index, int code, std::string value);
  /// What was added there; empty if nothing was.
  std::string_view added(size_t index, int code) const;
  /// Leaves the groups from `begin` to before `end` out of the file.
  void remove(size_t begin, size_t end);
  bool isRemoved(size_t index) const { return groups[index].removed; }

  /// The whole file as it is now.
  std::string bytes() const;
  /// @throws HostError with the first difference unless `bytes` read as just these groups, those
  /// added with them and those removed without
  void requireReadFrom(std::string bytes) const;

 private:
  struct Group {
    int code;
    bool removed;
    size_t begin;  ///< of the line with the code
    size_t value;
    size_t valueEnd;
    size_t end;
  };
  struct Line {
    std::string_view text;
    size_t textEnd;
    size_t end;
  };
  std::string_view part(size_t begin, size_t end) const {
    return std::string_view(original).substr(begin, end - begin);
  }
  Line lineAt(size_t position) const;
  void readGroups(size_t position);
  std::string_view lineEndOfCode(size_t index) const;
  /// Calls `take(code, value)` for what was added before a group and still belongs to the file.
  template <class Take>
  void additionsBefore(size_t index, Take take) const;

  std::string original;
  char lineEnd = '\n';
  std::vector<Group> groups;
  std::map<size_t, std::string> replaced;
  std::map<std::pair<size_t, int>, std::string> additions;
};

}  // namespace wb
