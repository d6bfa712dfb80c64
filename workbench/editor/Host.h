#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wb {

class CommandRunner;
class CommandStack;
class ContextMenus;
class DocumentManager;
class Editor;
class InputQueue;
class LispFunctions;
class MainWindow;
class ModuleLoader;

/// The stand-in for the drawing editor: its main window, documents, commands and input, on one
/// thread. Everything that runs in it is told to the transcript.
class Host {
 public:
  Host();
  ~Host();

  /// The current session's.
  /// @throws std::logic_error outside a session
  static Host& instance();

  /// Makes the main window, the services and their registry, starts COM as the editor does, and
  /// loads what the load record names for the start. Once in a session.
  /// @throws std::runtime_error if Windows refuses one of them
  void start();
  /// Quits: tells the modules, closes every document without saving, unloads the modules.
  void stop();
  bool running() const;

  /// Loads an application file by its full path; an `error` line tells why it can't be.
  bool loadModule(const std::wstring& file);
  /// Unloads by path or file name. Refused if it isn't loaded, hasn't unlocked itself with the
  /// dynamic linker, or answers `kRetError`.
  bool unloadModule(const std::wstring& file);
  /// Called with a module after Windows mapped it and before it gets its first message.
  std::function<void(HMODULE)> onModuleMapped;
  /// Called with a module that answered its last message, just before Windows unmaps it.
  std::function<void(HMODULE)> onModuleLeaving;

  /// Typed at the keyboard, with Enter behind it, for the active document.
  void type(std::wstring_view text);
  /// Called when a prompt or a command waits for typed input and none is queued; it types some
  /// and gives true, or gives false, which cancels the prompt.
  std::function<bool()> needInput;
  /// Runs queued input and window messages until nothing is left.
  void runUntilIdle();
  /// Dispatches the window messages that wait, asking modeless windows for the focus.
  void pumpMessages();
  /// True if queued input or deferred work waits.
  bool hasWork() const;

  /// What the user does with documents; each runs until idle. The path must be complete. False,
  /// with the reason told, if it didn't come about.
  bool open(const std::wstring& path, bool readOnly = false);
  /// The command OPEN; the user picks `pick`, or cancels if it is empty.
  bool openDialog(std::optional<std::wstring> pick);
  bool newDrawing();
  bool activate(const std::wstring& path);
  /// An empty path stands for the active document.
  bool close(const std::wstring& path = {});
  bool save(const std::wstring& path = {});
  /// The user draws something in the active document.
  bool edit();
  /// What the next file dialog is answered with; nothing stands for Cancel.
  void queuePick(std::optional<std::wstring> pick);

  /// Takes a command name as if another application had registered it.
  bool reserveCommand(const std::wstring& name);
  /// The next `count` requests for a document lock are refused.
  void refuseLocks(unsigned count);

  /// True after the user asked to quit, by the command QUIT or the window's close button.
  bool quitRequested() const;
  void requestQuit();

  HWND mainWindow() const;
  MainWindow& window();
  DocumentManager& documents();
  CommandStack& commands();
  CommandRunner& runner();
  InputQueue& input();
  LispFunctions& lisp();
  ModuleLoader& modules();
  ContextMenus& menus();
  Editor& editor();

 private:
  bool userDoes(const std::function<void()>& work);
  struct Parts;
  std::unique_ptr<Parts> parts;
};

}  // namespace wb
