#include "dialogs/RandomAnswers.h"

#include <commctrl.h>

#include <iterator>

#include "dialogs/Reader.h"

namespace wb {
namespace {

// A dialog may keep open whatever is pressed, such as one that rejects what its fields hold.
constexpr unsigned patience = 6;

size_t rowsOf(HWND dialog) {
  LRESULT rows = 0;
  if (const HWND list = FindWindowExW(dialog, nullptr, WC_LISTVIEWW, nullptr)) {
    rows = ListView_GetItemCount(list);
  } else if (const HWND box = FindWindowExW(dialog, nullptr, L"ListBox", nullptr)) {
    rows = SendMessageW(box, LB_GETCOUNT, 0, 0);
  }
  return rows > 0 ? static_cast<size_t>(rows) : 0;
}

/// Fields that take a text and boxes that can be ticked, in tab order.
std::vector<HWND> inputsOf(HWND dialog) {
  std::vector<HWND> inputs;
  for (HWND control = GetWindow(dialog, GW_CHILD); control;
       control = GetWindow(control, GW_HWNDNEXT)) {
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

unsigned RandomAnswers::below(size_t end) { return stream() % static_cast<unsigned>(end); }

Answer RandomAnswers::next(HWND dialog, unsigned answeredBefore) {
  Answer answer;
  if (answeredBefore >= patience) {
    const HWND least = leastButton(dialog);
    answer.button = least ? idOf(least) : L"close";
    return answer;
  }
  const size_t rows = rowsOf(dialog);
  if (rows && below(3)) {
    const SelectRow row{static_cast<int>(below(rows)) + 1, false};
    answer.steps.emplace_back(std::in_place_type<SelectRow>, row);
  }
  for (const HWND input : inputsOf(dialog)) {
    if (below(3) == 0) continue;
    const int id = GetDlgCtrlID(input);
    if (windowClass(input) == L"Button") {
      answer.steps.emplace_back(std::in_place_type<ClickControl>, ClickControl{id});
    } else {
      static constexpr const wchar_t* texts[] = {L"", L"0", L"1", L"15", L"60", L"99999"};
      const FillControl fill{id, texts[below(std::size(texts))]};
      answer.steps.emplace_back(std::in_place_type<FillControl>, fill);
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
