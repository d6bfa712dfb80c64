#pragma once

#include <windows.h>

#include <dbapserv.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "core/Accounts.h"
#include "core/Text.h"

namespace wb {

/// Chooses files: the applications' callbacks first, then what the user picks in the dialog. The
/// dialog itself isn't shown, its answers are queued beforehand.
class FileSelection {
 public:
  /// The current session's.
  static FileSelection& instance();

  /// The flags that the editor passes for its own dialogs.
  static constexpr int openFlags = 0x41102;
  static constexpr int saveFlags = 0x40001;

  /// Nothing stands for Cancel.
  void queuePick(std::optional<std::wstring> pick) { picks.push_back(std::move(pick)); }
  /// Asks for a file on the editor's own behalf; nothing if the user cancelled.
  std::optional<std::wstring> chooseToOpen(bool& readOnly);
  std::optional<std::wstring> chooseToSave();

  /// What an application registers under a name.
  struct Callback {
    std::wstring name;
    SELECTFILEPROC proc;
    bool operator==(const Callback& other) const {
      return sameName(name, other.name) && proc == other.proc;
    }
  };
  HandleLedger<Callback> callbacks{L"select-file callback"};
  /// Forgets what an application left behind.
  void forgetModule(HMODULE module);

  /// Shows a person the dialog when no answer is queued; null if there is no person.
  std::function<std::optional<std::wstring>(int flags)> ask;
  /// The dialog.
  Acad::ErrorStatus pick(short* userCancel, ACHAR*& chosenPath, int flags);

 private:
  std::deque<std::optional<std::wstring>> picks;
};

}  // namespace wb
