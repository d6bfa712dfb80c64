#pragma once

#include <map>
#include <string>
#include <vector>

namespace sessions {

/// What has to hold after each step of a session, whatever was done.
class Invariants {
 public:
  /// What doesn't hold, or an empty text.
  /// @param thorough also reads every content in the store's archive
  /// @param lines the step and what was told in it
  std::string check(bool thorough, const std::vector<std::wstring>& lines);

 private:
  std::string checkVault(bool thorough);
  std::string checkSaved(const std::vector<std::wstring>& lines);

  std::map<std::wstring, size_t> versions;       ///< by local path
  std::map<std::wstring, std::string> contents;  ///< by the archive's name for it
  std::map<std::wstring, std::string> saved;     ///< what the user saved last, by local path
};

/// The status window's words on the current document against the store, after it was refreshed.
std::string checkStatusWindow();

}  // namespace sessions
