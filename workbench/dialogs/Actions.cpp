#include "dialogs/Answers.h"

#include <commctrl.h>

#include <iterator>
#include <utility>

#include "core/Transcript.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"

namespace wb {
namespace {

// A dialog may stay open whatever is pressed, such as one that rejects what its fields hold.
constexpr unsigned mostAnswers = 6;

/// A dialog's list, null if it has none.
HWND listOf(HWND dialog) { return FindWindowExW(dialog, nullptr, WC_LISTVIEWW, nullptr); }

/// Clicks a button; the dialog is made the active one first, as a click does.
void click(HWND dialog, HWND button) {
  SetActiveWindow(dialog);
  SendMessageW(button, BM_CLICK, 0, 0);
}

void clickAt(HWND list, UINT message, LPARAM point) {
  // The control may wait for the release inside of this very message.
  PostMessageW(list, WM_LBUTTONUP, 0, point);
  SendMessageW(list, message, MK_LBUTTON, point);
}

HWND enabledControl(HWND dialog, int id) {
  const HWND control = findControl(dialog, id);
  if (!control) throw DialogError(L"it has no control " + std::to_wstring(id));
  if (IsWindowEnabled(control)) return control;
  throw DialogError(L"its control " + std::to_wstring(id) + L" is disabled");
}

void selectInListView(HWND list, int index, bool activate) {
  SetFocus(list);
  ListView_EnsureVisible(list, index, FALSE);
  // On the words of its last column, as people do: it is the row that they mean.
  RECT cell{};
  const int last = Header_GetItemCount(ListView_GetHeader(list)) - 1;
  ListView_GetSubItemRect(list, index, last, LVIR_LABEL, &cell);
  const LPARAM point = MAKELPARAM(cell.left + 8, (cell.top + cell.bottom) / 2);
  // Setting the state would select the row without marking it, as no click does.
  clickAt(list, WM_LBUTTONDOWN, point);
  if (activate && IsWindow(list)) clickAt(list, WM_LBUTTONDBLCLK, point);
}

/// Fields that take a text and boxes that can be ticked, in tab order.
std::vector<HWND> inputsOf(HWND dialog) {
  std::vector<HWND> inputs;
  for (const HWND control : children(dialog)) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    const LONG_PTR kind = style & BS_TYPEMASK;
    const bool box =
        windowClass(control) == L"Button" && (kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX ||
                                              kind == BS_3STATE || kind == BS_AUTO3STATE);
    const bool field = windowClass(control) == L"Edit" && !(style & ES_READONLY);
    if ((box || field) && IsWindowEnabled(control) && IsWindowVisible(control)) {
      inputs.push_back(control);
    }
  }
  return inputs;
}

std::wstring idOf(HWND button) { return std::to_wstring(GetDlgCtrlID(button)); }

}  // namespace

AnswerStep fillControl(int id, std::wstring text) {
  return [id, text = std::move(text)](HWND dialog) {
    const HWND control = enabledControl(dialog, id);
    const std::wstring number = std::to_wstring(id);
    // Replacing the selection notifies as typing does; setting the text wouldn't in every field.
    SendMessageW(control, EM_SETSEL, 0, -1);
    SendMessageW(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    if (windowTitle(control) != text) {
      throw DialogError(L"its field " + number + L" doesn't take the text " + wb::quoted(text));
    }
    return number + L"=" + wb::quoted(text);
  };
}

AnswerStep checkControl(int id, bool on) {
  return [=](HWND dialog) {
    const HWND control = enabledControl(dialog, id);
    const std::wstring number = std::to_wstring(id), state = on ? L"on" : L"off";
    std::wstring done = number + L"=" + state;
    for (int clicks = 0; clicks < 3; ++clicks) {
      const LRESULT checked = SendMessageW(control, BM_GETCHECK, 0, 0);
      if (checked == (on ? BST_CHECKED : BST_UNCHECKED)) return done;
      click(dialog, control);
    }
    throw DialogError(L"its box " + number + L" can't be turned " + state);
  };
}

AnswerStep selectRow(int row, bool activate) {
  return [=](HWND dialog) {
    const HWND list = listOf(dialog);
    if (!list) throw DialogError(L"it has no list");
    if (row < 1 || row > ListView_GetItemCount(list)) {
      throw DialogError(L"its list has no row " + std::to_wstring(row));
    }
    selectInListView(list, row - 1, activate);
    return (activate ? L"activate-row=" : L"row=") + std::to_wstring(row);
  };
}

AnswerStep clickControl(int id) {
  return [=](HWND dialog) {
    click(dialog, enabledControl(dialog, id));
    return L"click=" + std::to_wstring(id);
  };
}

AnswerStep takePicture(std::wstring file) {
  return [file = std::move(file)](HWND) {
    savePicture(file);
    return std::wstring();
  };
}

AnswerStep reportTexts() {
  return [](HWND dialog) {
    report(Event::dialog, wb::quoted(windowTitle(dialog)) + L" texts" + controlTexts(dialog));
    return std::wstring();
  };
}

void pressButton(HWND dialog, const std::wstring& name) {
  HWND button = nullptr;
  if (name == L"close") {
    if (messageBoxText(dialog).empty()) {
      SendMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
      return;
    }
    // The caption's button of a message box means Cancel, or its only button; else it is off.
    button = findButton(dialog, L"cancel");
    if (!button) button = onlyButton(dialog);
    if (!button) throw DialogError(L"it can't be closed without a choice");
  } else {
    button = findButton(dialog, name);
    if (!button) throw DialogError(L"it has no button " + wb::quoted(name));
  }
  if (!IsWindowEnabled(button)) {
    throw DialogError(L"its button " + wb::quoted(name) + L" is disabled");
  }
  click(dialog, button);
}

void closeQuietly(HWND dialog) {
  if (const HWND button = leastButton(dialog)) {
    click(dialog, button);
  } else {
    SendMessageW(dialog, WM_CLOSE, 0, 0);
  }
}

Answer randomAnswer(HWND dialog, std::mt19937& stream, unsigned answeredBefore) {
  const auto below = [&](size_t end) { return stream() % static_cast<unsigned>(end); };
  if (answeredBefore >= mostAnswers) {
    const HWND least = leastButton(dialog);
    return {{}, least ? idOf(least) : L"close"};
  }
  Answer answer;
  const int rows = ListView_GetItemCount(listOf(dialog));
  if (rows > 0 && below(3)) {
    answer.steps.push_back(
        selectRow(static_cast<int>(below(static_cast<size_t>(rows))) + 1, false));
  }
  for (const HWND input : inputsOf(dialog)) {
    if (below(3) == 0) continue;
    const int id = GetDlgCtrlID(input);
    if (windowClass(input) == L"Button") {
      answer.steps.push_back(clickControl(id));
    } else {
      static constexpr const wchar_t* texts[] = {L"", L"0", L"1", L"15", L"60", L"99999"};
      answer.steps.push_back(fillControl(id, texts[below(std::size(texts))]));
    }
  }
  std::vector<std::wstring> buttons;
  for (const HWND button : pushButtons(dialog)) {
    // A row that is picked first may turn a button off or on; those it has now are what is known.
    if (IsWindowEnabled(button)) buttons.push_back(idOf(button));
  }
  answer.button = buttons.empty() ? L"close" : buttons[below(buttons.size())];
  return answer;
}

}  // namespace wb
