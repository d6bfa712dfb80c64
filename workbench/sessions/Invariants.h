#pragma once

#include <map>
#include <string>

namespace sessions {

/// What has to hold after each step of a session, whatever was done.
class Invariants {
 public:
  /// What doesn't hold, or an empty text.
  /// @param thorough also reads every content in the store's archive
  /// @param firstEvent of the step
  /// @param undone the step undid a check-out, which brings the vault's content to the disk
  std::string check(bool thorough, size_t firstEvent, bool undone);

 private:
  std::string checkVault(bool thorough);
  std::string checkSaved(bool mayBeReplaced);

  std::map<std::wstring, size_t> versions;       ///< by local path
  std::map<std::wstring, std::string> contents;  ///< by the archive's name for it
  std::map<std::wstring, std::string> saved;     ///< what the user saved last, by local path
};

/// The status window's words on the current document against the store, after it was refreshed.
std::string checkStatusWindow();

}  // namespace sessions
