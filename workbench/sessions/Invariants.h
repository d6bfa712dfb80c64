#pragma once

#include <map>
#include <string>

namespace sessions {

/// What has to hold after each step of a session, whatever was done.
class Invariants {
 public:
  /// What doesn't hold, or an empty text.
  /// @param thorough also reads every content in the store's archive.
  std::string check(bool thorough);

 private:
  std::string checkVault(bool thorough);

  std::map<std::wstring, size_t> versions;       ///< by local path
  std::map<std::wstring, std::string> contents;  ///< by the archive's name for it
};

/// The status window's words on the current document against the store, after it was refreshed.
std::string checkStatusWindow();

}  // namespace sessions
