#include "workbench/ClientTest.h"

#include <vector>

namespace {

TEST_F(ClientTest, LookupTellsWhyAFileIsNotGiven) {
  const auto client = create<VaultClientPtr>();
  const _bstr_t plan(path(L"plan.DXF").c_str());
  VaultFolderPtr inFolder;
  VaultFilePtr file;
  EXPECT_EQ(client->fileFromPath(plan, &inFolder, &file), wb::E_QVT_NOT_LOGGED_IN);
  EXPECT_EQ(client->login(_bstr_t(L"Elsewhere"), 0), static_cast<HRESULT>(0x800404CD));

  const _bstr_t vault = text([&](BSTR* out) { return client->vaultNameFromPath(plan, out); });
  EXPECT_EQ(std::wstring(vault), L"Plant");
  BSTR none = nullptr;
  EXPECT_EQ(client->vaultNameFromPath(_bstr_t(L"C:\\elsewhere.dxf"), &none),
            wb::E_QVT_KEY_NOT_FOUND);

  ASSERT_EQ(client->login(vault, 0), S_OK);
  EXPECT_EQ(client->fileFromPath(_bstr_t(path(L"New.dxf").c_str()), &inFolder, &file),
            wb::E_QVT_FILE_NOT_FOUND);
  wb::store().setDenied(path(), true);
  EXPECT_EQ(client->fileFromPath(plan, &inFolder, &file), wb::E_QVT_PERMISSION_DENIED);
  EXPECT_FALSE(inFolder || file);

  ASSERT_EQ(client->fileFromPath(_bstr_t(path(L"Sub").c_str()), &inFolder, &file), S_OK);
  EXPECT_TRUE(inFolder);
  EXPECT_FALSE(file) << "a folder has no file";
  const _bstr_t root = text([&](BSTR* out) { return client->rootFolderPath(out); });
  EXPECT_EQ(std::wstring(root), view.wstring() + L"\\");
}

TEST_F(ClientTest, BothGenerationsSeeTheSameCheckOut) {
  const Plan opened(path());
  const VaultFilePtr& file = opened.file;
  const auto [legacyFolder, legacyFile] = PlanLegacy(path());
  long id = 0;
  const VaultObjectPtr named = opened.folder;
  ASSERT_EQ(named->id(&id), S_OK);
  EXPECT_EQ(id, 1) << "the view's root";

  VaultObjectPtr holder;
  EXPECT_EQ(file->checkedOutBy(&holder), S_OK);
  EXPECT_FALSE(holder);
  EXPECT_EQ(file->checkOut(id + 1, 0, 0), static_cast<HRESULT>(0x80040214));
  ASSERT_EQ(legacyFile->checkOut(legacyFolder, 0), S_OK);

  VARIANT_BOOL here = VARIANT_FALSE, held = VARIANT_FALSE;
  EXPECT_EQ(legacyFile->isCheckedOutHere(id, &here), S_OK);
  EXPECT_EQ(legacyFile->isCheckedOut(nullptr, nullptr, nullptr, &held), S_OK);
  EXPECT_TRUE(here && held);
  EXPECT_EQ(legacyFile->isCheckedOutHere(id + 1, &here), S_OK);
  EXPECT_FALSE(here);
  ASSERT_EQ(file->checkedOutBy(&holder), S_OK);
  EXPECT_EQ(std::wstring(text([&](BSTR* out) { return holder->name(out); })), L"engineer");
  EXPECT_EQ(std::wstring(text([&](BSTR* out) { return file->checkedOutOnComputer(out); })),
            wb::Store::thisComputer());
  EXPECT_FALSE(GetFileAttributesW(path().c_str()) & FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(file->checkOut(id, 0, 0), static_cast<HRESULT>(0x80040211)) << "held already";
}

TEST_F(ClientTest, VersionsHaveAnEndAndUnknownNamesNoItem) {
  const auto [inFolder, file] = PlanLegacy(path());
  VaultVersionListPtr versions;
  VaultPositionPtr position;
  ASSERT_EQ(file->versionList(&versions), S_OK);
  ASSERT_EQ(versions->firstPosition(&position), S_OK);
  long number = 0;
  BSTR comment = nullptr;
  ASSERT_EQ(versions->nextVersion(position, &number, &comment, nullptr, nullptr), S_OK);
  SysFreeString(comment);
  EXPECT_EQ(versions->nextVersion(position, &number, &comment, nullptr, nullptr),
            static_cast<HRESULT>(0x80040208));

  const IShellFolderPtr shell = inFolder;
  LPITEMIDLIST item = nullptr;
  wchar_t unknown[] = L"New.dxf";
  EXPECT_EQ(shell->ParseDisplayName(nullptr, nullptr, unknown, nullptr, &item, nullptr),
            HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
}

TEST_F(ClientTest, CardValuesHaveTheirTypes) {
  wb::store().setCardValue(path(), L"Title", L"Model", {L"text", L"12"});
  wb::store().setCardValue(path(), L"Title", L"Layout1", {L"integer", L"12"});
  const auto [inFolder, file] = PlanLegacy(path());
  VaultCardDataPtr card;
  ASSERT_EQ(file->cardData(_bstr_t(L""), &card), S_OK);
  long folderId = 0, count = 0;
  VaultCardVariable** variables = nullptr;
  inFolder->id(&folderId);
  ASSERT_EQ(card->cardVariables(folderId, &count, &variables), S_OK);
  ASSERT_EQ(count, 1);
  const VaultCardVariablePtr title(variables[0], false);
  CoTaskMemFree(variables);
  for (const auto& [configuration, type] :
       {std::pair(L"Model", VT_BSTR), {L"Layout1", VT_I4}, {L"Layout2", VT_NULL}}) {
    _variant_t value;
    EXPECT_EQ(title->valueForConfiguration(_bstr_t(configuration), &value), S_OK);
    EXPECT_EQ(V_VT(&value), type);
  }
}

TEST_F(ClientTest, FaultsLeaveOutsEmptyAndChangeNothing) {
  const auto client = loggedIn();
  wb::failOperation(L"VaultClient.fileFromPath", wb::E_QVT_FILE_NOT_FOUND);
  VaultFolder* noFolder = reinterpret_cast<VaultFolder*>(1);
  VaultFile* noFile = reinterpret_cast<VaultFile*>(1);
  EXPECT_EQ(client->fileFromPath(_bstr_t(path().c_str()), &noFolder, &noFile),
            wb::E_QVT_FILE_NOT_FOUND);
  EXPECT_TRUE(noFolder == nullptr && noFile == nullptr);

  const VaultFilePtr file = Plan(path()).file;
  wb::failOperation(L"checkOut", E_FAIL);
  EXPECT_EQ(file->checkOut(1, 0, 0), E_FAIL);
  EXPECT_FALSE(wb::store().find(path())->holder);
  EXPECT_TRUE(told(L"client: VaultFile.checkOut(folder=1, parent=none, flags=0) -> E_FAIL"));
  EXPECT_EQ(file->isCheckedOut(nullptr), E_POINTER);

  wb::failOperation(L"QueryInterface.VaultRootFolderAccess", E_NOINTERFACE);
  EXPECT_FALSE(VaultRootFolderAccessPtr(client));
  EXPECT_TRUE(VaultRootFolderAccessPtr(client));
  wb::failOperation(L"CoCreateInstance.Main", E_OUTOFMEMORY);
  IUnknownPtr object;
  EXPECT_EQ(object.CreateInstance(__uuidof(VaultMain)), E_OUTOFMEMORY);
  EXPECT_FALSE(object);
}

TEST_F(ClientTest, AccountsTellEveryReferenceAndText) {
  const auto left = [this] {
    std::vector<std::wstring> labels;
    for (const auto& entry : wb::outstanding(firstTicket)) labels.push_back(entry.label);
    return labels;
  };
  {
    const VaultFilePtr file = Plan(path()).file;
    const VaultObjectPtr named = file;
    BSTR name = nullptr;
    ASSERT_EQ(named->name(&name), S_OK);
    EXPECT_EQ(left(), (std::vector<std::wstring>{L"VaultFile \"Plan.dxf\"",
                                                 L"VaultFile \"Plan.dxf\"", L"BSTR \"Plan.dxf\""}));
    SysFreeString(name);
    EXPECT_EQ(left().size(), 2u);
    EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
  }
  EXPECT_TRUE(left().empty());
}

TEST_F(ClientTest, CallsByNameReachTheSameOperations) {
  const auto client = loggedIn();
  const IDispatchPtr dispatch = client;
  const auto invoke = [](IDispatch* object, const wchar_t* name, std::vector<_variant_t> arguments,
                         VARIANT* result) {
    auto member = const_cast<LPOLESTR>(name);
    DISPID id = 0;
    const HRESULT known = object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(known)) return known;
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, result,
                          nullptr, nullptr);
  };
  const _variant_t plan(path().c_str());
  _variant_t vault, version;
  EXPECT_EQ(invoke(dispatch, L"vaultNameFromPath", {plan}, &vault), S_OK);
  EXPECT_EQ(std::wstring(_bstr_t(vault)), L"Plant");
  EXPECT_EQ(invoke(dispatch, L"vaultNameFromPath", {}, &vault), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(invoke(dispatch, L"deleteVault", {}, &vault), DISP_E_UNKNOWNNAME);

  const VaultFilePtr file = Plan(path()).file;
  EXPECT_EQ(invoke(file, L"localVersion", {_variant_t(1L)}, &version), S_OK);
  EXPECT_EQ(V_I4(&version), 1);
  EXPECT_EQ(invoke(file, L"checkOut", {_variant_t(0L), _variant_t(0L), _variant_t(1L)}, nullptr),
            S_OK);
  EXPECT_TRUE(wb::store().find(path())->holder);
}

TEST_F(ClientTest, TextsComeInTheLanguageThatTheClientIsSetTo) {
  const auto service = create<VaultTextServicePtr>(__uuidof(TextService));
  BSTR none = nullptr;
  EXPECT_EQ(service->text(62, &none), static_cast<HRESULT>(0x80040201)) << "not open";
  const auto number = [&](long id) {
    return std::wstring(text([&](BSTR* out) { return service->text(id, out); }));
  };
  const _bstr_t product(L"Halvern Vault Manager");
  ASSERT_EQ(service->open(product, _bstr_t(L"TessaroAcad")), S_OK);
  EXPECT_TRUE(wb::outstanding(firstTicket).front().kept) << "a product keeps its service";
  {
    const auto other = create<VaultTextServicePtr>(__uuidof(TextService));
    EXPECT_EQ(other->open(product, _bstr_t(L"Database")), S_OK);
    EXPECT_FALSE(wb::outstanding(firstTicket).back().kept);
    EXPECT_EQ(other->open(product, _bstr_t(L"Unheard of")), S_FALSE);
  }
  EXPECT_EQ(number(50), L"Select Xref: ");
  EXPECT_EQ(service->text(999, &none), wb::E_QVT_KEY_NOT_FOUND);

  const auto language = folder / L"language.txt";
  std::ofstream(language, std::ios::binary)
      << "# comment\r\n\r\nTessaroAcad;;62='%s' auschecken?\\nJa/Nein\\s\r\n"
         "QvtInterface;ErrorCodes;21=Datei \xC3\xBC"
         "ber Bord.\n";
  wb::clientCondition().language = language;
  EXPECT_EQ(number(62), L"'%s' auschecken?\nJa/Nein ");
  EXPECT_EQ(number(50), L"Select Xref: ") << "English where the language has none";
  ASSERT_EQ(service->open(product, _bstr_t(L"QvtInterface")), S_OK);
  const _bstr_t key(L"ErrorCodes");
  EXPECT_EQ(std::wstring(text([&](BSTR* out) { return service->sectionText(21, key, out); })),
            L"Datei \x00FC"
            L"ber Bord.");
  EXPECT_EQ(service->sectionText(999, key, &none), S_OK);
  EXPECT_EQ(none, nullptr);
  const auto client = create<VaultClientPtr>();
  EXPECT_EQ(std::wstring(text(
                [&](BSTR* out) { return client->errorText(wb::E_QVT_FILE_NOT_FOUND, 0, out); })),
            L"Datei \x00FC"
            L"ber Bord.");

  std::ofstream(language, std::ios::binary) << "TessaroAcad;62=damaged\n";
  EXPECT_EQ(service->text(62, &none), E_FAIL);
  EXPECT_TRUE(told(L"line 1 isn't of the form"));
}

}  // namespace
