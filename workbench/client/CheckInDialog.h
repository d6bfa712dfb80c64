#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace wb {

/// What the user decided in the check-in dialog.
struct CheckInChoice {
  std::wstring comment;
  bool keepCheckedOut = false;
};

/// Asks the user how to check a file in: the modal dialog "Check in <name>", centred on its owner.
/// @param owner may be null
/// @return nothing if the user cancelled
/// @throw ClientFailure if Windows can't show the dialog
std::optional<CheckInChoice> askForCheckIn(HWND owner, const std::wstring& fileName);

}  // namespace wb
