#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "scripting/Session.h"

namespace bench {

/// The application whose work is measured.
enum class Application {
  module,  ///< the module
  bare     ///< baremodule.arx, which makes only the calls that can't be done without
};

/// Calls of the client, as the transcript has them.
struct ClientCalls {
  std::vector<std::wstring> lines;  ///< every call with its arguments, the text service's as well
  size_t ofVault = 0;               ///< calls on the vault
  size_t exchanges = 0;             ///< those of them that need the vault's server
};

/// The session of the workbench in which the rows are measured: the client, an application, and a
/// vault whose view holds many files. What Windows does for the application isn't watched, so that
/// the watching isn't measured.
class BenchSession {
 public:
  BenchSession();

  /// Loads an application in place of the one that is loaded.
  void load(Application application);
  /// Loads the module, with its memory watched (ModuleMemory.h).
  void loadWatched();
  void unload();

  /// Adds small drawings to the vault as `Xrefs\X00000.dxf` and so on, until there are `count`.
  void provideXrefs(int count);
  /// Opens a drawing of the vault with the first `count` of them as its xrefs.
  void openSheet(int count);
  void closeAll();
  /// @throws std::runtime_error with the transcript if the script fails
  void run(const std::string& script);
  /// Runs queued input and window messages until nothing is left.
  void settle();

  /// Clicks a control of the status window, as its own message.
  void click(int control);
  /// Runs a command's function as the host does.
  void command(const wchar_t* name);
  /// Sends the host's event that the current drawing has been saved under that name.
  void saved(const std::wstring& path);
  /// The calls of the client since the last clearing.
  ClientCalls clientCalls() const;
  /// Clears the transcript, so that it doesn't grow with the measurements.
  void clearTranscript();

  static std::filesystem::path view();
  static std::filesystem::path xref(int number);
  static std::filesystem::path binFolder();

 private:
  void loadFile(const wchar_t* name);

  wb::Session session;
  std::wstring loaded;
  int provided = 0;
};

}  // namespace bench
