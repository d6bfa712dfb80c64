#pragma once

#include <cstddef>
#include <cstdint>

namespace tessaro {

/// The text of one result code.
struct ResultText {
  std::uint32_t code;
  /// The text's number in the client's text service; two codes may share one.
  int number;
  /// The English text.
  const wchar_t* defaultText;
};

/// A table of texts, for a range-based `for`.
struct ResultTexts {
  const ResultText* first;
  std::size_t count;

  const ResultText* begin() const { return first; }
  const ResultText* end() const { return first + count; }
};

/// Success, COM's own codes and those of the vaults.
extern const ResultTexts vaultTexts;
/// The codes of the archive server.
extern const ResultTexts archiveTexts;

}  // namespace tessaro
