#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vault/RunMenuCmd.h"

namespace {

/// One file's shell folder and its menu in one object, which lives on the stack.
class FakeFolder : public IShellFolder, public IContextMenu {
 public:
  std::wstring knownName = L"plan.dwg";
  std::vector<std::string> calls;
  std::string verb;
  CMINVOKECOMMANDINFO command = {};
  HRESULT invokeResult = S_OK;
  int references = 0;

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    if (id == __uuidof(IContextMenu)) {
      *out = static_cast<IContextMenu*>(this);
    } else if (id == __uuidof(IShellFolder)) {
      *out = static_cast<IShellFolder*>(this);
    } else {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  STDMETHODIMP ParseDisplayName(HWND, IBindCtx*, LPWSTR name, ULONG*, PIDLIST_RELATIVE* item,
                                ULONG*) override {
    calls.push_back("ParseDisplayName");
    if (name != knownName) {
      return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    }
    *item = static_cast<PIDLIST_RELATIVE>(CoTaskMemAlloc(sizeof(ITEMIDLIST)));
    return S_OK;
  }
  STDMETHODIMP GetUIObjectOf(HWND, UINT count, LPCITEMIDLIST*, REFIID id, UINT*,
                             void** out) override {
    calls.push_back("GetUIObjectOf");
    return count == 1 ? QueryInterface(id, out) : E_INVALIDARG;
  }
  STDMETHODIMP InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    calls.push_back("InvokeCommand");
    command = *info;
    verb = info->lpVerb;
    return invokeResult;
  }
  STDMETHODIMP QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override {
    calls.push_back("QueryContextMenu");
    return S_OK;
  }

  STDMETHODIMP EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  STDMETHODIMP BindToObject(PCUIDLIST_RELATIVE, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP BindToStorage(PCUIDLIST_RELATIVE, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP CompareIDs(LPARAM, PCUIDLIST_RELATIVE, PCUIDLIST_RELATIVE) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP GetAttributesOf(UINT, LPCITEMIDLIST*, SFGAOF*) override { return E_NOTIMPL; }
  STDMETHODIMP GetDisplayNameOf(PCUITEMID_CHILD, SHGDNF, STRRET*) override { return E_NOTIMPL; }
  STDMETHODIMP SetNameOf(HWND, PCUITEMID_CHILD, LPCWSTR, SHGDNF, PITEMID_CHILD*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override { return E_NOTIMPL; }
};

}  // namespace

TEST(RunVerb, InvokesTheVerbByItsNarrowNameOnTheGivenWindow) {
  FakeFolder folder;
  HWND window = GetDesktopWindow();
  runVerb(window, IShellFolderPtr(&folder), L"plan.dwg", L"Unlock");
  EXPECT_EQ(folder.calls,
            (std::vector<std::string>{"ParseDisplayName", "GetUIObjectOf", "InvokeCommand"}));
  EXPECT_EQ(folder.verb, "Unlock");
  EXPECT_EQ(folder.command.cbSize, 56u);
  EXPECT_EQ(folder.command.hwnd, window);
  EXPECT_EQ(folder.command.nShow, 0);
  EXPECT_EQ(folder.references, 0);
}

TEST(RunVerb, EndsQuietlyAtTheFirstFailure) {
  FakeFolder stranger;
  stranger.knownName = L"other.dwg";
  runVerb(nullptr, IShellFolderPtr(&stranger), L"plan.dwg", L"Unlock");
  EXPECT_EQ(stranger.calls, std::vector<std::string>{"ParseDisplayName"});
  EXPECT_EQ(stranger.references, 0);

  FakeFolder refusing;
  refusing.invokeResult = E_ACCESSDENIED;
  EXPECT_NO_THROW(runVerb(nullptr, IShellFolderPtr(&refusing), L"plan.dwg", L"Unlock"));
  EXPECT_EQ(refusing.references, 0);

  EXPECT_NO_THROW(runVerb(nullptr, IShellFolderPtr(), L"plan.dwg", L"Unlock"));
}
