// What Windows makes of the module's resources.
#include <windows.h>

#include <commctrl.h>

#include "core/Text.h"
#include "shared/ModuleSession.h"
#include "ui/resource.h"

namespace {

/// A dialog out of the module's templates, without the module's code.
class TemplateDialog {
 public:
  explicit TemplateDialog(int id)
      : window(CreateDialogParamW(
            GetModuleHandleW(L"TessaroAcad.arx"), MAKEINTRESOURCEW(id), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0)) {
    EXPECT_TRUE(window) << id;
  }
  TemplateDialog(const TemplateDialog&) = delete;
  TemplateDialog& operator=(const TemplateDialog&) = delete;
  ~TemplateDialog() { DestroyWindow(window); }

  std::vector<HWND> controls() const {
    std::vector<HWND> found;
    for (HWND one = GetWindow(window, GW_CHILD); one; one = GetWindow(one, GW_HWNDNEXT)) {
      found.push_back(one);
    }
    return found;
  }
  RECT placeOf(HWND control) const {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  HWND operator[](int control) const { return GetDlgItem(window, control); }

  const HWND window;
};

std::wstring textOf(HWND window) {
  wchar_t text[200] = L"";
  GetWindowTextW(window, text, 200);
  return text;
}

LONG styleOf(HWND window) { return GetWindowLongW(window, GWL_STYLE); }

LONG textWidth(HWND control) {
  RECT room{};
  const HDC context = GetDC(control);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  DrawTextW(context, textOf(control).c_str(), -1, &room, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(context, before);
  ReleaseDC(control, context);
  return room.right;
}

class Resources : public ModuleSession {
 protected:
  Resources() {
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    run("@load\n");
  }
};

TEST_F(Resources, EachTextHasRoomInItsControlAndEachControlInItsDialog) {
  for (const int id : {IDD_SETTINGS, IDD_STATUS, IDD_PROPERTIES, IDD_GET_VERSION}) {
    const TemplateDialog dialog(id);
    RECT client{};
    GetClientRect(dialog.window, &client);
    RECT taken{}, common{};
    for (const HWND control : dialog.controls()) {
      const RECT place = dialog.placeOf(control);
      const std::string name = wb::toUtf8(textOf(control)) + " of " + std::to_string(id);
      UnionRect(&common, &client, &place);
      EXPECT_TRUE(EqualRect(&common, &client)) << name;
      for (HWND next = GetWindow(control, GW_HWNDNEXT); next; next = GetWindow(next, GW_HWNDNEXT)) {
        taken = dialog.placeOf(next);
        InflateRect(&taken, -2, -2);  // the edges may touch
        EXPECT_FALSE(IntersectRect(&common, &place, &taken)) << name;
      }
      // A text that is cut is marked so by the others.
      if ((styleOf(control) & SS_ELLIPSISMASK) == 0) {
        EXPECT_LE(textWidth(control), place.right - place.left) << name;
      }
    }
  }
  const TemplateDialog properties(IDD_PROPERTIES);
  for (const int value : {IDC_LOCAL_VERSION, IDC_LATEST_VERSION, IDC_CHECKED_OUT_BY,
                          IDC_CHECKED_OUT_IN, IDC_WORKFLOW_STATE}) {
    EXPECT_EQ(properties.placeOf(properties[value]).right,
              properties.placeOf(properties[IDC_LOCATION]).right)
        << value;
  }
}

TEST_F(Resources, ControlsTakeWhatTheirDialogsCanUse) {
  const TemplateDialog settings(IDD_SETTINGS);
  for (const wchar_t typed : {L'1', L'-', L'x', L'5'}) {
    SendMessageW(settings[IDC_INTERVAL], WM_CHAR, typed, 0);
  }
  EXPECT_EQ(textOf(settings[IDC_INTERVAL]), L"15");
  // The vault says what the boxes of the status window show, not the click.
  const TemplateDialog status(IDD_STATUS);
  for (const int box : {IDC_XREFS_LATEST, IDC_CHECKED_OUT_HERE}) {
    SendMessageW(status[box], BM_CLICK, 0, 0);
    EXPECT_EQ(IsDlgButtonChecked(status.window, box), UINT{BST_UNCHECKED});
  }
  EXPECT_NE(GetWindowLongW(status.window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
  const TemplateDialog versions(IDD_GET_VERSION);
  for (int row = 0; row < 2; ++row) {
    LVITEMW item{};
    item.iItem = row;
    SendMessageW(versions[IDC_VERSIONS], LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    ListView_SetItemState(versions[IDC_VERSIONS], row, LVIS_SELECTED, LVIS_SELECTED);
  }
  EXPECT_EQ(ListView_GetSelectedCount(versions[IDC_VERSIONS]), 1u);
  // A "&" in a name isn't a mnemonic.
  EXPECT_NE(styleOf(versions[IDC_SELECT_VERSION]) & SS_NOPREFIX, 0);
  const TemplateDialog properties(IDD_PROPERTIES);
  for (const int name :
       {IDC_LOCATION, IDC_CHECKED_OUT_BY, IDC_CHECKED_OUT_IN, IDC_WORKFLOW_STATE}) {
    EXPECT_NE(styleOf(properties[name]) & SS_NOPREFIX, 0) << name;
  }
}

TEST_F(Resources, TheFileSaysWhatItIs) {
  const std::wstring file = options().module;
  std::vector<char> block(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  ASSERT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &size));
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
  for (const DWORD half : {fixed.dwFileVersionMS, fixed.dwProductVersionMS}) {
    EXPECT_EQ(half, DWORD{12} << 16);
  }
  for (const DWORD half : {fixed.dwFileVersionLS, fixed.dwProductVersionLS}) EXPECT_EQ(half, 408u);
  for (const auto& [name, text] : {std::pair(L"CompanyName", L"Halvern"),
                                   {L"FileDescription", L"Tessaro AutoCAD add-in"},
                                   {L"FileVersion", L"12.0.0.408"},
                                   {L"OriginalFilename", L"TessaroAcad.arx"},
                                   {L"ProductName", L"Tessaro AutoCAD add-in"},
                                   {L"ProductVersion", L"12.0.0.408"}}) {
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    ASSERT_TRUE(VerQueryValueW(block.data(), path.c_str(), &found, &size));
    EXPECT_STREQ(static_cast<const wchar_t*>(found), text);
  }
}

}  // namespace
