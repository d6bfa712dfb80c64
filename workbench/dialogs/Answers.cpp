#include "dialogs/Answers.h"

#include <exception>
#include <stdexcept>

#include "core/Lists.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "dialogs/Reader.h"

namespace wb {

constexpr UINT dialogMade = WM_APP;
constexpr UINT_PTR lookTimer = 1;
constexpr UINT lookEvery = USER_TIMER_MINIMUM;  // milliseconds
constexpr unsigned mostLooks = 200;             // looks at a dialog that doesn't show itself
constexpr unsigned looksToStay = 3;             // after that many a dialog is taken to stay

Answers& Answers::instance() { return sessionPart<Answers>(); }

void Answers::start(bool leaveToPerson) {
  stop();
  this->leaveToPerson = leaveToPerson;
  unanswered_ = 0;
  WNDCLASSW type{};
  type.lpfnWndProc = listenerProcedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = L"WorkbenchAnswers";
  RegisterClassW(&type);
  listener = CreateWindowExW(0, type.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             type.hInstance, nullptr);
  hook = SetWindowsHookExW(WH_CBT, hookProcedure, nullptr, GetCurrentThreadId());
  if (!listener || !hook) {
    stop();
    throw std::runtime_error("the hook that answers boxes can't be installed");
  }
}

void Answers::stop() {
  if (hook) UnhookWindowsHookEx(hook);
  hook = nullptr;
  if (listener) DestroyWindow(listener);
  listener = nullptr;
  dialogs.clear();
  clear();
}

void Answers::queue(std::wstring button, std::vector<AnswerStep> steps) {
  Answer answer{std::exchange(prepared, {}), std::move(button)};
  answer.steps.insert(answer.steps.end(), steps.begin(), steps.end());
  queued.push_back(std::move(answer));
}

std::vector<std::wstring> Answers::unused() const {
  std::vector<std::wstring> texts;
  texts.reserve(queued.size() + 1);
  for (const Answer& answer : queued) {
    texts.push_back(answer.button.empty() ? L"steps without a button" : answer.button);
  }
  if (!prepared.empty()) texts.push_back(L"steps without an @answer");
  return texts;
}

void Answers::clear() {
  queued.clear();
  prepared.clear();
  random.reset();
}

Answers::OpenDialog* Answers::find(HWND window) {
  return findIf(dialogs, [&](const OpenDialog& dialog) { return dialog.window == window; });
}

void Answers::leaveAlone(HWND window) {
  eraseIf(dialogs, [&](const OpenDialog& dialog) { return dialog.window == window; });
  if (!dialogs.empty()) {
    dialogs.back().covered = true;
  } else if (listener) {
    KillTimer(listener, lookTimer);
  }
}

LRESULT CALLBACK Answers::hookProcedure(int code, WPARAM wParam, LPARAM lParam) {
  Answers& answers = instance();
  const HWND window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_CREATEWND && isDialogWindow(window)) {
    answers.created(window);
  } else if (code == HCBT_DESTROYWND && answers.find(window)) {
    answers.leaveAlone(window);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK Answers::listenerProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
  // No exception may cross the system's own frames below this one.
  try {
    if (message == dialogMade) {
      instance().inspect(reinterpret_cast<HWND>(wParam));
      return 0;
    }
    if (message == WM_TIMER && wParam == lookTimer) {
      instance().look();
      return 0;
    }
  } catch (const std::exception& error) {
    report(Event::error, fromUtf8(error.what()));
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void Answers::created(HWND window) {
  dialogs.push_back({window, std::exchange(openingBox, {})});
  // Its controls don't exist yet; the first message loop to run, which is its own, delivers this.
  PostMessageW(listener, dialogMade, reinterpret_cast<WPARAM>(window), 0);
}

void Answers::inspect(HWND window) {
  OpenDialog* dialog = find(window);
  if (!dialog) return;
  if (!looksModal(window)) return leaveAlone(window);
  const HWND owner = GetWindow(window, GW_OWNER);
  recordDetail(L"owner", wb::quoted(windowTitle(window)) + L" of " +
                             (owner && owner == SessionState::get().mainWindow ? L"the main window"
                              : owner ? wb::quoted(windowTitle(owner))
                                      : L"nobody"));
  if (hasControls(window)) {
    // A dialog shows itself when its loop runs out of messages for the first time. A timer comes
    // after that, as the person does.
    SetTimer(listener, lookTimer, lookEvery, nullptr);
    return;
  }
  dialog->hasNoControls = true;
  report(Event::dialog, wb::quoted(windowTitle(window)) + L" (no controls)");
}

void Answers::look() {
  if (dialogs.empty()) {
    KillTimer(listener, lookTimer);
    return;
  }
  OpenDialog& top = dialogs.back();
  if (top.busy || top.hasNoControls) return;
  ++top.looks;
  const bool ready = IsWindowVisible(top.window) && IsWindowEnabled(top.window);
  if (!ready && top.looks < mostLooks) return;
  // A box that closed on top may have enabled the owner that both have.
  if (!top.covered && !looksModal(top.window)) return leaveAlone(HWND(top.window));
  answer(top);
}

void Answers::answer(OpenDialog& dialog) {
  const HWND window = dialog.window;
  if (dialog.closings > 0) {
    // The gentle way didn't close it: nothing else is left that lets the script go on.
    if (dialog.looks > looksToStay) EndDialog(window, 0);
    return;
  }
  std::optional<Answer> next = popFirst(queued);
  if (!next && random) next = randomAnswer(window, *random, dialog.answered++);
  if (!next) {
    if (!leaveToPerson && dialog.looks > looksToStay) refuse(window, L"without an answer");
    return;
  }
  dialog.busy = true;
  perform(window, *next);
  // The dialog may be closed by now, and the list with it may have moved.
  if (OpenDialog* still = find(window)) {
    still->busy = false;
    still->looks = 0;
  }
}

/// @return the kind and the text of what is reported of it
Event Answers::describe(const OpenDialog& dialog) {
  const std::wstring text = messageBoxText(dialog.window);
  const std::wstring title = wb::quoted(windowTitle(dialog.window));
  if (!dialog.box.empty()) return {Event::box, Event::other, {}, dialog.box};
  if (text.empty()) return {Event::dialog, Event::other, {}, title};
  return {Event::box, Event::other, {}, L"title=" + title + L" text=" + wb::quoted(text)};
}

void Answers::perform(HWND window, const Answer& answer) {
  const bool watched = !find(window)->box.empty();
  Event event = describe(*find(window));
  recordDetail(L"shown", allTexts(window));
  recordDetail(L"place", wb::quoted(windowTitle(window)) + L' ' + placeOf(window));
  try {
    for (const AnswerStep& step : answer.steps) {
      const std::wstring done = step(window);
      if (!done.empty()) event.text += L' ' + done;
    }
    if (!answer.button.empty()) event.text += L" answer=" + answer.button;
    if (!watched) report(event);
    if (!answer.button.empty() && find(window)) pressButton(window, answer.button);
  } catch (const DialogError& error) {
    refuse(window, L"can't be answered, " + error.reason);
  }
}

void Answers::refuse(HWND window, const std::wstring& why) {
  ++unanswered_;
  OpenDialog* dialog = find(window);
  if (!dialog) {
    return report({Event::error, Event::noAnswer, {}, L"dialog " + why + L": it closed meanwhile"});
  }
  ++dialog->closings;
  dialog->looks = 0;
  const Event event = describe(*dialog);
  const std::wstring kind = event.kind == Event::box ? L"box " : L"dialog ";
  report({Event::error, Event::noAnswer, kind + event.text, kind + why + L": " + event.text});
  closeQuietly(window);
}

int watchedMessageBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags) {
  const auto shown = [](const wchar_t* value) {
    return value ? wb::quoted(value) : std::wstring(L"null");
  };
  const std::wstring description =
      L"flags=" + messageBoxFlags(flags) + L" title=" + shown(title) + L" text=" + shown(text);
  std::wstring& openingBox = Answers::instance().openingBox;
  openingBox = description;
  const int result = MessageBoxW(owner, text, title, flags);
  const DWORD error = GetLastError();
  openingBox.clear();
  report(Event::box, description + L" answer=" +
                         (result ? buttonName(result)
                                 : L"none (Windows error " + std::to_wstring(error) + L")"));
  SetLastError(error);
  return result;
}

}  // namespace wb
