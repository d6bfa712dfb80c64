#include "dialogs/Answers.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <optional>
#include <stdexcept>

#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Actions.h"
#include "dialogs/DialogError.h"
#include "dialogs/RandomAnswers.h"
#include "dialogs/Reader.h"

namespace wb {
namespace {

constexpr UINT dialogMade = WM_APP;
constexpr UINT_PTR lookTimer = 1;
constexpr UINT lookEvery = USER_TIMER_MINIMUM;  // milliseconds
constexpr unsigned mostLooks = 200;             // looks at a dialog that doesn't show itself
constexpr unsigned looksToStay = 3;             // after that many a dialog is taken to stay

/// A dialog on the screen that may want an answer.
struct OpenDialog {
  HWND window = nullptr;
  std::wstring box;  ///< what its box line says, if it came through watchedMessageBox()
  bool hasNoControls = false;
  bool busy = false;     ///< a step or a click in it hasn't returned yet
  bool covered = false;  ///< another one was open on top of it
  unsigned looks = 0;
  unsigned closings = 0;
  unsigned answered = 0;
};

struct BoxCall {
  std::wstring description;
  HWND window = nullptr;
};

std::wstring describe(const OpenDialog& dialog) {
  if (!dialog.box.empty()) return L"box " + dialog.box;
  const std::wstring text = messageBoxText(dialog.window);
  const std::wstring title = wb::quoted(windowTitle(dialog.window));
  if (!text.empty()) return L"box title=" + title + L" text=" + wb::quoted(text);
  return L"dialog " + title;
}

}  // namespace

struct Answers::State {
  HHOOK hook = nullptr;
  HWND listener = nullptr;
  bool leaveToPerson = false;
  unsigned unanswered = 0;
  std::vector<AnswerStep> prepared;
  std::deque<Answer> queue;
  std::optional<RandomAnswers> random;
  std::vector<OpenDialog> dialogs;  ///< the topmost last
  std::vector<BoxCall> boxes;       ///< the innermost last

  OpenDialog* find(HWND window) {
    const auto at = std::find_if(dialogs.begin(), dialogs.end(),
                                 [&](const OpenDialog& dialog) { return dialog.window == window; });
    return at == dialogs.end() ? nullptr : &*at;
  }

  void forget(HWND window) {
    dialogs.erase(std::remove_if(dialogs.begin(), dialogs.end(),
                                 [&](const OpenDialog& d) { return d.window == window; }),
                  dialogs.end());
    if (!dialogs.empty()) {
      dialogs.back().covered = true;
    } else if (listener) {
      KillTimer(listener, lookTimer);
    }
  }

  void created(HWND window);
  void inspect(HWND window);
  void look();
  void answer(HWND window);
  void carryOut(HWND window, const Answer& answer);
  void refuse(HWND window, const std::wstring& why);

  static LRESULT CALLBACK hookProcedure(int code, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK listenerProcedure(HWND, UINT, WPARAM, LPARAM);
};

Answers::Answers() : state(std::make_unique<State>()) {}
Answers::~Answers() { stop(); }

Answers& Answers::instance() { return sessionPart<Answers>(); }

void Answers::start(bool leaveToPerson) {
  stop();
  state->leaveToPerson = leaveToPerson;
  state->unanswered = 0;
  WNDCLASSW type{};
  type.lpfnWndProc = State::listenerProcedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = L"WorkbenchAnswers";
  RegisterClassW(&type);
  state->listener = CreateWindowExW(0, type.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                    nullptr, type.hInstance, nullptr);
  state->hook = SetWindowsHookExW(WH_CBT, State::hookProcedure, nullptr, GetCurrentThreadId());
  if (!state->listener || !state->hook) {
    stop();
    throw std::runtime_error("the hook that answers boxes can't be installed");
  }
}

void Answers::stop() {
  if (state->hook) UnhookWindowsHookEx(state->hook);
  state->hook = nullptr;
  if (state->listener) DestroyWindow(state->listener);
  state->listener = nullptr;
  state->dialogs.clear();
  clear();
}

void Answers::prepare(AnswerStep step) { state->prepared.push_back(std::move(step)); }

void Answers::queue(std::wstring button, std::vector<AnswerStep> steps) {
  Answer answer;
  answer.steps = std::move(state->prepared);
  state->prepared.clear();
  answer.steps.insert(answer.steps.end(), steps.begin(), steps.end());
  answer.button = std::move(button);
  state->queue.push_back(std::move(answer));
}

std::vector<std::wstring> Answers::unused() const {
  std::vector<std::wstring> texts;
  for (const Answer& answer : state->queue) {
    texts.push_back(answer.button.empty() ? L"steps without a button" : answer.button);
  }
  if (!state->prepared.empty()) texts.push_back(L"steps without an @answer");
  return texts;
}

void Answers::clear() {
  state->queue.clear();
  state->prepared.clear();
  state->random.reset();
}

void Answers::answerAny(unsigned seed) { state->random.emplace(seed); }

bool Answers::answersAny() const { return state->random.has_value(); }

unsigned Answers::unanswered() const { return state->unanswered; }

void Answers::noteModeless(HWND dialog) { state->forget(dialog); }

void Answers::boxOpens(std::wstring description) {
  state->boxes.push_back({std::move(description), nullptr});
}

void Answers::boxClosed() { state->boxes.pop_back(); }

LRESULT CALLBACK Answers::State::hookProcedure(int code, WPARAM wParam, LPARAM lParam) {
  State& state = *instance().state;
  const HWND window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_CREATEWND && isDialogWindow(window)) {
    state.created(window);
  } else if (code == HCBT_DESTROYWND && state.find(window)) {
    state.forget(window);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK Answers::State::listenerProcedure(HWND window, UINT message, WPARAM wParam,
                                                   LPARAM lParam) {
  // No exception may cross the system's own frames below this one.
  try {
    if (message == dialogMade) {
      instance().state->inspect(reinterpret_cast<HWND>(wParam));
      return 0;
    }
    if (message == WM_TIMER && wParam == lookTimer) {
      instance().state->look();
      return 0;
    }
  } catch (const std::exception& error) {
    tell(Event::error, fromUtf8(error.what()));
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void Answers::State::created(HWND window) {
  OpenDialog dialog;
  dialog.window = window;
  if (!boxes.empty() && !boxes.back().window) {
    boxes.back().window = window;
    dialog.box = boxes.back().description;
  }
  dialogs.push_back(dialog);
  // Its controls don't exist yet; the first message loop to run, which is its own, delivers this.
  PostMessageW(listener, dialogMade, reinterpret_cast<WPARAM>(window), 0);
}

void Answers::State::inspect(HWND window) {
  OpenDialog* dialog = find(window);
  if (!dialog) return;
  if (!looksModal(window)) return forget(window);
  const HWND owner = GetWindow(window, GW_OWNER);
  note(L"owner", wb::quoted(windowTitle(window)) + L" of " +
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
  tell(Event::dialog, wb::quoted(windowTitle(window)) + L" (no controls)");
}

void Answers::State::look() {
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
  if (!top.covered && !looksModal(top.window)) return forget(HWND(top.window));
  answer(top.window);
}

void Answers::State::answer(HWND window) {
  OpenDialog& dialog = *find(window);
  if (dialog.closings > 0) {
    // The gentle way didn't close it: nothing else is left that lets the script go on.
    if (dialog.looks > looksToStay) EndDialog(window, 0);
    return;
  }
  if (queue.empty() && !random) {
    if (!leaveToPerson && dialog.looks > looksToStay) refuse(window, L"without an answer");
    return;
  }
  Answer next;
  if (queue.empty()) {
    next = random->next(window, dialog.answered++);
  } else {
    next = queue.front();
    queue.pop_front();
  }
  dialog.busy = true;
  carryOut(window, next);
  // The dialog may be gone by now, and the list with it may have moved.
  if (OpenDialog* still = find(window)) {
    still->busy = false;
    still->looks = 0;
  }
}

void Answers::State::carryOut(HWND window, const Answer& answer) {
  const bool watched = !find(window)->box.empty();
  const std::wstring text = messageBoxText(window);
  const std::wstring title = wb::quoted(windowTitle(window));
  std::wstring line = text.empty() ? title : L"title=" + title + L" text=" + wb::quoted(text);
  note(L"shown", allTexts(window));
  note(L"place", title + L' ' + placeOf(window));
  try {
    for (const AnswerStep& step : answer.steps) {
      const std::wstring told = performStep(window, step);
      if (!told.empty()) line += L' ' + told;
    }
    if (!answer.button.empty()) line += L" answer=" + answer.button;
    if (!watched) tell(text.empty() ? Event::dialog : Event::box, line);
    if (!answer.button.empty() && find(window)) pressButton(window, answer.button);
  } catch (const DialogError& error) {
    refuse(window, L"can't be answered, " + error.reason);
  }
}

void Answers::State::refuse(HWND window, const std::wstring& why) {
  ++unanswered;
  OpenDialog* dialog = find(window);
  if (!dialog) {
    return tell({Event::error, Event::noAnswer, {}, L"dialog " + why + L": it closed meanwhile"});
  }
  ++dialog->closings;
  dialog->looks = 0;
  const std::wstring what = describe(*dialog);
  const size_t blank = what.find(L' ');
  tell({Event::error, Event::noAnswer, what,
        what.substr(0, blank) + L' ' + why + L':' + what.substr(blank)});
  closeQuietly(window);
}

int watchedMessageBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT flags) {
  const auto shown = [](const wchar_t* value) {
    return value ? wb::quoted(value) : std::wstring(L"null");
  };
  const std::wstring description =
      L"flags=" + messageBoxFlags(flags) + L" title=" + shown(title) + L" text=" + shown(text);
  Answers& answers = Answers::instance();
  answers.boxOpens(description);
  const int result = MessageBoxW(owner, text, title, flags);
  const DWORD error = GetLastError();
  answers.boxClosed();
  tell(Event::box,
       description + L" answer=" +
           (result ? buttonName(result) : L"none (Windows error " + std::to_wstring(error) + L")"));
  SetLastError(error);
  return result;
}

}  // namespace wb
