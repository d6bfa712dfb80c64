#include "dialogs/Actions.h"

#include <commctrl.h>

#include "core/Transcript.h"
#include "dialogs/DialogError.h"
#include "dialogs/Reader.h"
#include "dialogs/Screenshot.h"

namespace wb {
namespace {

std::wstring noSuchControl(int id) { return L"it has no control " + std::to_wstring(id); }

void notifyParent(HWND control, int code) {
  SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
               reinterpret_cast<LPARAM>(control));
}

void pickInCombo(HWND combo, const std::wstring& text) {
  const LRESULT index = SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text.c_str()));
  if (index == CB_ERR) throw DialogError(L"its list has no line " + wb::quoted(text));
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  notifyParent(combo, CBN_SELCHANGE);
}

class StepPerformer {
 public:
  StepPerformer(HWND dialog, std::wstring& told) : dialog(dialog), told(told) {}

  void operator()(const FillControl& step) const {
    const HWND control = findControl(dialog, step.id);
    if (!control) throw DialogError(noSuchControl(step.id));
    if (!IsWindowEnabled(control)) throw DialogError(disabled(step.id));
    told = std::to_wstring(step.id) + L"=" + wb::quoted(step.text);
    if (windowClass(control) == L"ComboBox" &&
        (GetWindowLongPtrW(control, GWL_STYLE) & 3) == CBS_DROPDOWNLIST) {
      return pickInCombo(control, step.text);
    }
    // Replacing the selection notifies as typing does; setting the text wouldn't in every field.
    SendMessageW(control, EM_SETSEL, 0, -1);
    SendMessageW(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(step.text.c_str()));
    if (windowTitle(control) == step.text) return;
    throw DialogError(L"its field " + std::to_wstring(step.id) + L" doesn't take the text " +
                      wb::quoted(step.text));
  }

  void operator()(const CheckControl& step) const {
    const HWND control = findControl(dialog, step.id);
    if (!control) throw DialogError(noSuchControl(step.id));
    if (!IsWindowEnabled(control)) throw DialogError(disabled(step.id));
    told = std::to_wstring(step.id) + (step.on ? L"=on" : L"=off");
    const LRESULT wanted = step.on ? BST_CHECKED : BST_UNCHECKED;
    for (int clicks = 0; clicks < 3; ++clicks) {
      if (SendMessageW(control, BM_GETCHECK, 0, 0) == wanted) return;
      clickControl(dialog, control);
    }
    throw DialogError(L"its box " + std::to_wstring(step.id) + L" can't be turned " +
                      (step.on ? L"on" : L"off"));
  }

  void operator()(const SelectRow& step) const {
    told = (step.activate ? L"activate-row=" : L"row=") + std::to_wstring(step.row);
    const int index = step.row - 1;
    if (const HWND list = FindWindowExW(dialog, nullptr, WC_LISTVIEWW, nullptr)) {
      return selectInListView(list, index, step.activate);
    }
    if (const HWND list = FindWindowExW(dialog, nullptr, L"ListBox", nullptr)) {
      return selectInListBox(list, index, step.activate);
    }
    throw DialogError(L"it has no list");
  }

  void operator()(const ClickControl& step) const {
    const HWND control = findControl(dialog, step.id);
    if (!control) throw DialogError(noSuchControl(step.id));
    if (!IsWindowEnabled(control)) throw DialogError(disabled(step.id));
    told = L"click=" + std::to_wstring(step.id);
    clickControl(dialog, control);
  }

  void operator()(const TakePicture& step) const { savePicture(step.file); }

  void operator()(const TellTexts&) const {
    tell(Event::dialog, wb::quoted(windowTitle(dialog)) + L" texts" + controlTexts(dialog));
  }

 private:
  static std::wstring disabled(int id) {
    return L"its control " + std::to_wstring(id) + L" is disabled";
  }

  static std::wstring noSuchRow(int index) {
    return L"its list has no row " + std::to_wstring(index + 1);
  }

  static void selectInListView(HWND list, int index, bool activate) {
    if (index < 0 || index >= ListView_GetItemCount(list)) throw DialogError(noSuchRow(index));
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

  static void clickAt(HWND list, UINT message, LPARAM point) {
    // The control may wait for the release inside of this very message.
    PostMessageW(list, WM_LBUTTONUP, 0, point);
    SendMessageW(list, message, MK_LBUTTON, point);
  }

  static void selectInListBox(HWND list, int index, bool activate) {
    if (index < 0 || index >= SendMessageW(list, LB_GETCOUNT, 0, 0)) {
      throw DialogError(noSuchRow(index));
    }
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    notifyParent(list, LBN_SELCHANGE);
    if (activate) notifyParent(list, LBN_DBLCLK);
  }

  HWND dialog;
  std::wstring& told;
};

}  // namespace

std::wstring performStep(HWND dialog, const AnswerStep& step) {
  std::wstring told;
  std::visit(StepPerformer(dialog, told), step);
  return told;
}

void clickControl(HWND dialog, HWND button) {
  SetActiveWindow(dialog);
  SendMessageW(button, BM_CLICK, 0, 0);
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
    if (!button && pushButtons(dialog).size() == 1) button = pushButtons(dialog)[0];
    if (!button) throw DialogError(L"it can't be closed without a choice");
  } else {
    button = findButton(dialog, name);
    if (!button) throw DialogError(L"it has no button " + wb::quoted(name));
  }
  if (!IsWindowEnabled(button)) {
    throw DialogError(L"its button " + wb::quoted(name) + L" is disabled");
  }
  clickControl(dialog, button);
}

void closeQuietly(HWND dialog) {
  if (const HWND button = leastButton(dialog)) {
    clickControl(dialog, button);
  } else {
    SendMessageW(dialog, WM_CLOSE, 0, 0);
  }
}

}  // namespace wb
