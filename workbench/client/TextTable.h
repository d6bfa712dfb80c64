#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace wb {

/// The numbered texts of one language, by section, key and number.
///
/// Its form is UTF-8 text with one line for each: `section;key;number=text`. The section is a
/// product's module, with an empty key, or a section of the client. In the text \n stands for a
/// line break, \s for a blank and \\ for a backslash. Empty lines and lines with # in front are
/// passed over.
class TextTable {
 public:
  /// Raises std::runtime_error, which names the line, for one of another form.
  static TextTable parse(std::string_view utf8);

  /// The text; sections and keys are compared ignoring case.
  std::optional<std::wstring> find(std::wstring_view section, std::wstring_view key,
                                   long number) const;
  bool hasSection(std::wstring_view section) const;

 private:
  std::map<std::tuple<std::wstring, std::wstring, long>, std::wstring> texts;
};

/// The client's texts in the language that it is set to, and in English where that language has
/// none. A language file that can't be read or has a damaged line raises std::runtime_error.
class ClientTexts {
 public:
  static std::optional<std::wstring> find(std::wstring_view section, std::wstring_view key,
                                          long number);
  static bool hasSection(std::wstring_view section);

  /// The client's wording for a result code; empty if it has none.
  static std::wstring errorText(long code);
};

}  // namespace wb
