#include "workbench/ClientTest.h"

namespace {

class UnlockTest : public ClientTest {
 protected:
  /// Runs the verb; a timer in its dialog or box fills in the answer.
  HRESULT unlock(int button, const wchar_t* comment = L"", bool keep = false) {
    VaultFolderPtr inFolder;
    VaultFilePtr file;
    open(inFolder, file, L"Plan.dxf");
    const IShellFolderPtr shell = inFolder;
    wchar_t name[] = L"Plan.dxf";
    LPITEMIDLIST item = nullptr;
    EXPECT_EQ(shell->ParseDisplayName(nullptr, nullptr, name, nullptr, &item, nullptr), S_OK);
    LPCITEMIDLIST child = item;
    IContextMenu* given = nullptr;
    EXPECT_EQ(shell->GetUIObjectOf(nullptr, 1, &child, IID_IContextMenu, nullptr,
                                   reinterpret_cast<void**>(&given)),
              S_OK);
    const _com_ptr_t<_com_IIID<IContextMenu, &IID_IContextMenu>> menu(given, false);
    CoTaskMemFree(item);
    CMINVOKECOMMANDINFO command = {};
    command.cbSize = sizeof(command);
    command.lpVerb = "Unlock";
    answer = {button, comment, keep};
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &answerWindow);
    const HRESULT result = menu->InvokeCommand(&command);
    KillTimer(nullptr, timer);
    return result;
  }

  const wb::StoredFile& plan() { return *wb::store().find(path(L"Plan.dxf")); }

  static std::wstring asked;  ///< what a plain message box said

 private:
  struct Answer {
    int button;
    const wchar_t* comment;
    bool keep;
  };
  static Answer answer;

  static void CALLBACK answerWindow(HWND, UINT, UINT_PTR, DWORD) {
    const HWND window = FindWindowW(L"#32770", L"Check in Plan.dxf");
    if (!window) return;
    if (GetDlgItem(window, 1201)) {
      SetDlgItemTextW(window, 1201, answer.comment);
      CheckDlgButton(window, 1202, answer.keep ? BST_CHECKED : BST_UNCHECKED);
    } else {
      wchar_t label[200] = L"";
      GetDlgItemTextW(window, 0xFFFF, label, static_cast<int>(std::size(label)));
      asked = label;
    }
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(answer.button), 0);
  }
};

std::wstring UnlockTest::asked;
UnlockTest::Answer UnlockTest::answer;

TEST_F(UnlockTest, DialogDecidesOverTheCheckIn) {
  const std::wstring file = path(L"Plan.dxf");
  wb::store().checkOut(file);
  std::ofstream(view / L"Plan.dxf", std::ios::binary) << "plan, second";
  EXPECT_EQ(unlock(IDCANCEL), static_cast<HRESULT>(0x80040226));
  EXPECT_EQ(plan().versions.size(), 1u);

  EXPECT_EQ(unlock(IDOK, L"line one\r\nline two", true), S_OK);
  EXPECT_EQ(plan().latest().number, 2);
  EXPECT_EQ(plan().latest().comment, L"line one\nline two");
  EXPECT_TRUE(plan().holder);

  EXPECT_EQ(unlock(IDOK), S_OK);
  EXPECT_EQ(plan().latest().number, 3);
  EXPECT_FALSE(plan().holder);
  EXPECT_TRUE(GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_READONLY);
}

TEST_F(UnlockTest, FileOfSomebodyElseIsRefusedWithABox) {
  wb::store().checkOutFor(path(L"Plan.dxf"), L"erika", L"OTHER", L"D:\\view");
  EXPECT_EQ(unlock(IDOK), static_cast<HRESULT>(0x80040212));
  EXPECT_EQ(asked, L"The file in question is checked out by another user.");
  EXPECT_TRUE(plan().holder);
}

}  // namespace
