#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "scripting/Session.h"

namespace bench {

/// Where the measurements take place: a session of the workbench with the module and the client,
/// and a vault whose view holds many files. What Windows does for the module isn't watched, so that
/// the watching isn't measured.
class Workshop {
 public:
  Workshop();

  /// Takes small drawings into the vault as `Xrefs\X00000.dxf` and so on, as far as they aren't
  /// yet.
  void provideXrefs(int count);
  /// Opens a drawing with the first `count` of them as its xrefs; it lies in the vault.
  void openSheet(int count);
  void closeAll();
  void run(const std::string& script);

  /// Clicks a control of the status window, as its own message.
  void click(int control);
  /// Runs a command's function as the host would.
  void command(const wchar_t* name);
  /// The host's event that a drawing has been saved under that name.
  void saved(const std::wstring& path);
  /// The client's calls on the vault told since the last question.
  size_t clientCalls();
  /// Forgets what was told, so that the transcript doesn't grow with the measurements.
  void forget();

  static std::filesystem::path view();
  static std::filesystem::path xref(int number);
  static std::filesystem::path binFolder();

  wb::Session session;

 private:
  int provided = 0;
  size_t told = 0;
};

}  // namespace bench
