#pragma once

#include <string>
#include <vector>

#include <windows.h>

/// Answers the thread's boxes with OK as they come up, and keeps their texts.
class BoxWatch {
 public:
  BoxWatch() : hook(SetWindowsHookExW(WH_CBT, onEvent, nullptr, GetCurrentThreadId())) {
    texts.clear();
  }
  ~BoxWatch() { UnhookWindowsHookEx(hook); }
  BoxWatch(const BoxWatch&) = delete;
  BoxWatch& operator=(const BoxWatch&) = delete;

  static inline std::vector<std::wstring> texts;

 private:
  static LRESULT CALLBACK onEvent(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE) {
      constexpr int boxText = 0xFFFF;
      HWND box = reinterpret_cast<HWND>(wParam);
      wchar_t text[512] = {};
      if (GetDlgItemTextW(box, boxText, text, 512) != 0) {
        texts.push_back(text);
        PostMessageW(box, WM_COMMAND, IDOK, 0);
      }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  HHOOK hook;
};
