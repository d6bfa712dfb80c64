#pragma once

#include <string>
#include <string_view>

namespace wb {

/// How a DXF file writes its text: UTF-8 from release 2007 on, before that the code page that the
/// file names; in either "\U+XXXX" for a character that the encoding hasn't got, and "^J" and the
/// like for control characters.
class DxfText {
 public:
  DxfText() = default;
  /// `release` is the value of $ACADVER, `codePage` that of $DWGCODEPAGE; either may be empty.
  DxfText(std::string_view release, std::string_view codePage);

  std::wstring decode(std::string_view text) const;
  /// @return what `decode` makes the same text of; without line ends
  std::string encode(std::wstring_view text) const;

  unsigned codePage() const { return page; }

 private:
  std::wstring widen(std::string_view text) const;
  bool narrow(std::wstring_view character, std::string& result) const;

  unsigned page = 1252;
};

}  // namespace wb
