#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core/Accounts.h"
#include "core/Program.h"
#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "shared/Support.h"
#include "store/Store.h"
#include "vault/VaultInterfaces.h"

// MinGW's comdef.h declares none for Windows' own interfaces.
#ifndef _MSC_VER
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));
_COM_SMARTPTR_TYPEDEF(IErrorInfo, __uuidof(IErrorInfo));
#endif

// The holders of the client's interfaces.
using namespace tessaro;

/// The stand-in client, registered and reached as the module reaches it, over a store with one
/// vault, "Plant", whose view holds Plan.dxf and Sub\O'Neil.dxf. At the end of each test everything
/// that the client handed out has to be back.
class ClientTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(library) << "TessaroClient.dll lies beside the program";
    CoInitialize(nullptr);
    fs::create_directories(view / L"Sub");
    ASSERT_EQ(call("DllRegisterServer"), S_OK);
    wb::store().open(folder / L"store");
    wb::store().createVault(L"Plant", view.wstring());
    add(L"Plan.dxf", "plan");
    add(L"Sub\\O'Neil.dxf", "detail");
    firstTicket = wb::nextTicket();
  }

  void TearDown() override {
    if (!library) return;
    for (const auto& left : wb::outstanding(firstTicket)) {
      ADD_FAILURE() << "not given back: " << std::string(left.label.begin(), left.label.end());
    }
    EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
    wb::store().close();
    EXPECT_EQ(call("DllUnregisterServer"), S_OK);
    CoUninitialize();
    FreeLibrary(library);
  }

  HRESULT call(const char* function) const {
    using Function = HRESULT(STDAPICALLTYPE*)();
    const auto address = reinterpret_cast<void*>(GetProcAddress(library, function));
    return address ? reinterpret_cast<Function>(address)() : E_NOINTERFACE;
  }

  std::wstring path(const wchar_t* name = L"Plan.dxf") const { return (view / name).wstring(); }

  void add(const wchar_t* name, const char* content) {
    const fs::path source = folder / L"source";
    write(source, content);
    wb::store().add(path(name), source, L"engineer", L"");
  }

  template <class Pointer>
  static Pointer create(REFCLSID id = __uuidof(VaultMain)) {
    IUnknownPtr object;
    EXPECT_EQ(object.CreateInstance(id, nullptr, CLSCTX_SERVER | CLSCTX_INPROC_HANDLER), S_OK);
    EXPECT_EQ(OleRun(object), S_OK);
    return object;
  }

  static VaultClientPtr loggedIn() {
    const auto client = create<VaultClientPtr>();
    EXPECT_EQ(client->login(_bstr_t(L"Plant"), 0), S_OK);
    return client;
  }

  /// Plan.dxf in one of the client's two generations.
  template <class Client, class Folder, class File>
  struct Opened {
    explicit Opened(const std::wstring& path) {
      const Client client = loggedIn();
      EXPECT_EQ(client->fileFromPath(_bstr_t(path.c_str()), &folder, &file), S_OK);
    }
    Folder folder;
    File file;
  };
  using Plan = Opened<VaultClientPtr, VaultFolderPtr, VaultFilePtr>;
  using PlanLegacy = Opened<VaultClientLegacyPtr, VaultFolderLegacyPtr, VaultFileLegacyPtr>;

  /// The text that an operation gives.
  static _bstr_t text(const std::function<HRESULT(BSTR*)>& operation) {
    BSTR result = nullptr;
    EXPECT_EQ(operation(&result), S_OK);
    return _bstr_t(result, false);
  }

  bool told(std::wstring_view text) const { return state.transcript.count(text) > 0; }

  const fs::path folder = emptyTestFolder(L"client");
  const fs::path view = folder / L"view";

  wb::SessionState state;
  wb::Ticket firstTicket = 0;

 private:
  static HMODULE loadLibrary() {
    return LoadLibraryW((wb::programFolder() / L"TessaroClient.dll").c_str());
  }

  const HMODULE library = loadLibrary();
};
