#include "dialogs/Answers.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/Transcript.h"
#include "workbench/BareSession.h"

namespace {

struct ControlSpec {
  WORD type;  // of the predefined classes: 0x80 button, 0x81 edit
  DWORD style;
  WORD id;
  const wchar_t* text;
};

/// A dialog template in memory.
class DialogTemplate {
 public:
  DialogTemplate(const wchar_t* title, const std::vector<ControlSpec>& controls) {
    number(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 2);
    number(0, 2);
    number(controls.size(), 1);
    for (const int measure : {10, 10, 120, 80}) number(static_cast<size_t>(measure), 1);
    number(0, 1);
    number(0, 1);
    text(title);
    int top = 2;
    for (const ControlSpec& control : controls) {
      if (words.size() % 2) words.push_back(0);
      number(control.style | WS_CHILD | WS_VISIBLE, 2);
      number(0, 2);
      for (const int measure : {2, top, 60, 12}) number(static_cast<size_t>(measure), 1);
      number(control.id, 1);
      number(0xFFFF, 1);
      number(control.type, 1);
      text(control.text);
      number(0, 1);
      top += 14;
    }
  }

  INT_PTR run(HWND owner, DLGPROC procedure, void* argument) const {
    return DialogBoxIndirectParamW(GetModuleHandleW(nullptr),
                                   reinterpret_cast<const DLGTEMPLATE*>(words.data()), owner,
                                   procedure, reinterpret_cast<LPARAM>(argument));
  }

 private:
  void number(size_t value, int count) {
    for (; count > 0; --count, value >>= 16) words.push_back(static_cast<WORD>(value));
  }
  void text(const wchar_t* value) {
    do {
      words.push_back(static_cast<WORD>(*value));
    } while (*value++);
  }

  std::vector<WORD> words;
};

constexpr WORD button = 0x80;
constexpr WORD edit = 0x81;

/// What a test's dialog does on a command; the control's id is given.
using OnCommand = std::function<void(HWND, int)>;

INT_PTR CALLBACK dialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    (*reinterpret_cast<OnCommand*>(lParam))(dialog, 0);
    return TRUE;
  }
  auto* onCommand = reinterpret_cast<OnCommand*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (message != WM_COMMAND || !onCommand) return FALSE;
  (*onCommand)(dialog, LOWORD(wParam));
  return TRUE;
}

INT_PTR runDialog(const DialogTemplate& dialog, OnCommand onCommand, HWND owner = nullptr) {
  return dialog.run(owner, dialogProcedure, &onCommand);
}

int ask(UINT flags = MB_YESNO | MB_ICONQUESTION) {
  return wb::watchedMessageBox(nullptr, L"Line one\nline \"two\"", L"Tessaro", flags);
}

class AnswersTest : public ::testing::Test {
 protected:
  bool lastLineHolds(const wchar_t* text) const {
    return session.transcript().back().find(text) != std::wstring::npos;
  }

  BareSession session;
  wb::Answers& answers = wb::Answers::instance();
};

TEST_F(AnswersTest, BoxesTakeTheQueuedAnswersInOrderAndAreToldInFull) {
  answers.queue(L"no");
  answers.queue(L"yes");
  answers.queue(L"ok");
  answers.queue(L"close");
  EXPECT_EQ(IDNO, ask());
  EXPECT_EQ(
      L"box: flags=MB_YESNO|MB_ICONQUESTION title=\"Tessaro\" "
      L"text=\"Line one\\nline \\\"two\\\"\" answer=no",
      session.transcript().back());
  EXPECT_EQ(IDYES, ask());
  EXPECT_EQ(IDOK, ask(MB_OK | MB_ICONINFORMATION));
  EXPECT_TRUE(lastLineHolds(L"flags=MB_OK|MB_ICONINFORMATION "));
  EXPECT_EQ(IDCANCEL, ask(MB_YESNOCANCEL | MB_DEFBUTTON3));
  EXPECT_TRUE(answers.unused().empty());
  EXPECT_EQ(0u, answers.unanswered());
}

TEST_F(AnswersTest, UnansweredBoxIsAnErrorAndClosesInTheWayThatChangesLeast) {
  EXPECT_EQ(IDCANCEL, ask(MB_YESNOCANCEL));
  EXPECT_EQ(IDNO, ask(MB_YESNO));
  EXPECT_EQ(IDOK, ask(MB_OK));
  EXPECT_EQ(3u, answers.unanswered());
  EXPECT_EQ(3, session.count(L"error: box without an answer: flags="));
  EXPECT_EQ(3, session.count(L"box: flags="));
}

TEST_F(AnswersTest, AnswerThatTheBoxHasNoButtonForIsAnError) {
  answers.queue(L"yes");
  EXPECT_EQ(IDOK, ask(MB_OK));
  EXPECT_TRUE(session.reported(L"error: box can't be answered, it has no button \"yes\":"));
  answers.queue(L"close");
  EXPECT_EQ(IDNO, ask(MB_YESNO));
  EXPECT_EQ(2u, answers.unanswered());
}

TEST_F(AnswersTest, BoxOverADialogTakesTheNextAnswerAndTheDialogTheOneAfter) {
  const DialogTemplate dialog(
      L"Outer", {{button, BS_PUSHBUTTON, 5, L"Ask"}, {button, BS_PUSHBUTTON, IDOK, L"OK"}});
  int inner = 0;
  answers.queue(L"5");
  answers.queue(L"yes");
  answers.queue(L"ok");
  const INT_PTR result = runDialog(dialog, [&](HWND window, int id) {
    if (id == 5) inner = wb::watchedMessageBox(window, L"Sure?", L"Inner", MB_YESNO);
    if (id == IDOK) EndDialog(window, id);
  });
  EXPECT_EQ(IDOK, result);
  EXPECT_EQ(IDYES, inner);
  EXPECT_EQ(0u, answers.unanswered());
}

TEST_F(AnswersTest, DialogThatRefusesToCloseEndsAnyway) {
  const DialogTemplate dialog(L"Stubborn", {{button, BS_PUSHBUTTON, IDOK, L"OK"}});
  int presses = 0;
  answers.queue(L"ok");
  EXPECT_EQ(0, runDialog(dialog, [&](HWND, int id) { presses += id == IDOK; }));
  EXPECT_EQ(2, presses) << "the answer, and the gentle closing";
  EXPECT_TRUE(session.reported(L"error: dialog without an answer: \"Stubborn\""));
}

TEST_F(AnswersTest, StepThatCantBeDoneIsAnErrorThatNamesIt) {
  const DialogTemplate dialog(
      L"Small", {{edit, WS_DISABLED, 7, L""}, {button, BS_PUSHBUTTON, IDCANCEL, L"Cancel"}});
  const OnCommand onCommand = [](HWND window, int id) {
    if (id) EndDialog(window, id);
  };
  answers.prepare(wb::fillControl(99, L"x"));
  answers.queue(L"cancel");
  EXPECT_EQ(IDCANCEL, runDialog(dialog, onCommand));
  EXPECT_TRUE(
      session.reported(L"error: dialog can't be answered, it has no control 99: \"Small\""));
  answers.prepare(wb::fillControl(7, L"x"));
  answers.queue(L"cancel");
  EXPECT_EQ(IDCANCEL, runDialog(dialog, onCommand));
  EXPECT_TRUE(session.reported(L"its control 7 is disabled"));
  answers.queue(L"cancel", {wb::selectRow(1, false)});
  EXPECT_EQ(IDCANCEL, runDialog(dialog, onCommand));
  EXPECT_TRUE(session.reported(L"it has no list"));
}

}  // namespace
