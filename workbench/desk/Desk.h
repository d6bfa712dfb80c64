#pragma once

#include <windows.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "desk/Choices.h"
#include "scripting/Session.h"

namespace wb {

/// The host's window for a person: a menu, tabs of the open drawings, a command line to type into.
class Desk : public Operator {
 public:
  /// Adds its controls to the window of the running host, which destroys them with it.
  explicit Desk(ScriptContext& context);
  ~Desk() override;

  void run() override;
  bool supplyInput() override;

 private:
  bool handle(UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK inputProcedure(HWND input, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR self);
  bool handleKey(WPARAM key);
  void recall(size_t line);
  void enter(std::wstring line);
  void runLine(const std::wstring& line, bool commandWaits);
  void showWhatWentWrong(size_t since) const;
  void refresh();
  void refreshMenu();
  void refreshTabs();

  ScriptContext& context;
  HWND tabs = nullptr;
  HWND input = nullptr;
  std::deque<std::wstring> lines;  ///< that wait to be run
  std::vector<std::wstring> history;
  size_t recalled = 0;
  bool waits = false;      ///< a command waits for input
  bool cancelled = false;  ///< by the escape key
  std::vector<Choice> shown;
  std::vector<std::wstring> tabTexts;
  std::vector<std::wstring> tabTitles;
  std::optional<std::wstring> chosenTab;
};

}  // namespace wb
