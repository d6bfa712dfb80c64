#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "editor/Commands.h"
#include "editor/ContextMenus.h"
#include "editor/DocumentManager.h"
#include "editor/MainWindow.h"
#include "editor/ModuleLoader.h"

namespace wb {

/// The stand-in for the drawing editor: its main window, documents, commands and input, on one
/// thread. The transcript reports what runs in it.
class Host {
 public:
  Host();

  /// The current session's.
  /// @throws std::logic_error outside a session
  static Host& instance();

  /// Makes the main window, the services and their registry, starts COM as the editor does, and
  /// loads what the load record names for the start. Once in a session.
  /// @throws std::runtime_error if Windows refuses one of them
  void start();
  /// Quits: sends a message to the modules, closes every document without saving, unloads the
  /// modules.
  void stop();
  bool running() const { return running_; }

  /// Loads an application file by its full path; why it can't be is an `error`.
  bool loadModule(const std::wstring& file);
  /// Unloads by path or file name. Refused if it isn't loaded, hasn't unlocked itself with the
  /// dynamic linker, or returns `kRetError`.
  bool unloadModule(const std::wstring& file);
  /// Called with a module after Windows mapped it and before it gets its first message.
  std::function<void(HMODULE)> onModuleMapped;
  /// Called with a module that answered its last message, just before Windows unmaps it.
  std::function<void(HMODULE)> onModuleLeaving;

  /// Typed at the keyboard, with Enter behind it, for the active document.
  void type(std::wstring_view text);
  /// Called when a prompt or a command waits for typed input and none is queued; it types some
  /// and returns true, or returns false, which cancels the prompt.
  std::function<bool()> needInput;
  /// Runs queued input and window messages until nothing is left.
  void runUntilIdle();
  /// Dispatches the window messages that wait, asking modeless windows for the focus.
  void pumpMessages();

  /// What the user does with documents; each runs until idle. The path must be complete. False,
  /// with the reason reported, if it failed.
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
  static void queuePick(std::optional<std::wstring> pick);

  /// Takes a command name as if another application had registered it.
  bool reserveCommand(const std::wstring& name);

  /// True after the user asked to quit, by the command QUIT or the window's close button.
  bool quitRequested() const { return quitRequested_; }
  void requestQuit() { quitRequested_ = true; }

  HWND mainWindow() const { return window_.handle(); }
  MainWindow& window() { return window_; }
  DocumentManager& documents() { return documents_; }
  CommandStack& commands() { return commands_; }
  CommandRunner& runner() { return runner_; }
  InputQueue& input() { return input_; }
  ModuleLoader& modules() { return modules_; }
  ContextMenus& menus() { return menus_; }
  Editor& editor() { return editor_; }

 private:
  bool userDoes(const std::function<void()>& work);

  bool running_ = false;
  bool quitRequested_ = false;
  MainWindow window_;
  DocumentManager documents_;
  CommandStack commands_;
  CommandRunner runner_;
  InputQueue input_;
  ModuleLoader modules_;
  ContextMenus menus_;
  Editor editor_;
};

}  // namespace wb
