#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "scripting/Session.h"

namespace wb {

/// The folder in which the sweep's runs take place: a vault with its view, made once and put back
/// as it was before each run.
class Yard {
 public:
  /// Makes the vault by the script. Raises std::runtime_error if that fails.
  /// @param folder a work folder of the workbench, or empty; it is emptied. Its subfolder `work`
  /// becomes the sessions' work folder
  Yard(const std::filesystem::path& folder, const std::filesystem::path& drawings,
       const char* setUp);

  /// Puts the work folder and the registry back to what they were after the set-up.
  void restore() const;
  /// What a session of a run is made of; it finds the work folder as it is.
  SessionOptions options() const;

  /// What somebody would miss after a run: a version, a content, a local file. To be called while
  /// the run's session has the store open.
  /// @param savesChanges the plan's local file may hold something new
  std::vector<std::wstring> losses(bool savesChanges) const;
  /// How many versions the store has of each of the view's files, by their paths.
  std::map<std::wstring, size_t> versions() const;
  /// What the store lacks of `before`. It is opened anew, so the session must have ended.
  std::vector<std::wstring> lossesInStore(const std::map<std::wstring, size_t>& before) const;

 private:
  std::filesystem::path work;
  std::filesystem::path kept;
  std::filesystem::path drawings;
  /// Contents of the local files, by their paths.
  std::map<std::wstring, std::string> localContents;
};

}  // namespace wb
