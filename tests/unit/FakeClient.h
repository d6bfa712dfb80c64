#pragma once

#include <map>
#include <string>
#include <vector>

#include "FakeObject.h"
#include "vault/VaultInterfaces.h"

/// How the fake client answers, and what it was asked.
struct ClientScript {
  /// What an operation answers in place of S_OK.
  std::map<std::string, HRESULT> failures;
  std::vector<std::string> calls;
  std::vector<long> codes;
  long parentWindow = 0;
  long major = 5;
  long minor = 3;
  IID missing = GUID_NULL;
  bool hasFile = true;
  bool hasRootFolder = true;
  bool checkedOut = false;
  bool heldByUs = false;
  const wchar_t* computer = nullptr;
  long checkedOutInFolder = 7;
  const wchar_t* rootPath = L"C:\\view\\";
  const wchar_t* errorText = L"The client's words.";
  std::vector<std::pair<long, const wchar_t*>> versions;

  HRESULT answer(const char* operation) {
    calls.push_back(operation);
    const auto found = failures.find(operation);
    return found != failures.end() ? found->second : S_OK;
  }

  /// The same for an operation that gives a value out, which it does if it succeeds.
  template <class Value>
  HRESULT answer(const char* operation, Value* out, Value value) {
    const HRESULT result = answer(operation);
    if (SUCCEEDED(result)) *out = value;
    return result;
  }

  HRESULT answerText(const char* operation, BSTR* out, const wchar_t* text) {
    const HRESULT result = answer(operation);
    *out = SUCCEEDED(result) ? SysAllocString(text) : nullptr;
    return result;
  }

  template <class Object, class Interface>
  HRESULT answerObject(const char* operation, Interface** out, bool there = true) {
    const HRESULT result = answer(operation);
    *out = nullptr;
    if (SUCCEEDED(result) && there) {
      *out = new Object;
      (*out)->AddRef();
    }
    return result;
  }
};

inline ClientScript script;

/// Something with a name and an id: a user, a state, a folder.
class FakeNamed : public FakeObject<VaultObject> {
 public:
  STDMETHODIMP id(long* out) override { return script.answer("object.id", out, 7L); }
  STDMETHODIMP name(BSTR* out) override {
    return script.answerText("object.name", out, L"somebody");
  }
};

class FakeFolderObject : public FakeObject<VaultFolder, VaultFolderLegacy, VaultObject> {
 public:
  STDMETHODIMP id(long* out) override { return script.answer("folder.id", out, 7L); }
  STDMETHODIMP name(BSTR* out) override { return script.answerText("folder.name", out, L"folder"); }
};

class FakePosition : public FakeObject<VaultPosition> {
 public:
  STDMETHODIMP isNull(long* out) override {
    return script.answer("isNull", out, next >= script.versions.size() ? 1L : 0L);
  }

  size_t next = 0;
};

class FakeVersions : public FakeObject<VaultVersionList> {
 public:
  STDMETHODIMP firstPosition(VaultPosition** out) override {
    return script.answerObject<FakePosition>("firstPosition", out);
  }
  STDMETHODIMP nextVersion(VaultPosition* position, long* version, BSTR* comment, long*,
                           DATE*) override {
    const auto& entry = script.versions[static_cast<FakePosition*>(position)->next++];
    *version = entry.first;
    return script.answerText("nextVersion", comment, entry.second);
  }
};

class FakeFile : public FakeObject<VaultFile, VaultFileLegacy, VaultObject> {
 public:
  STDMETHODIMP id(long* out) override { return script.answer("file.id", out, 11L); }
  STDMETHODIMP name(BSTR* out) override { return script.answerText("file.name", out, L"plan.dwg"); }
  STDMETHODIMP getLocalCopy(long, long, VARIANT, long, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP checkOut(long, long, long) override { return E_NOTIMPL; }
  STDMETHODIMP checkOut(VaultFolderLegacy*, long) override { return E_NOTIMPL; }
  STDMETHODIMP cardData(BSTR, VaultCardData**) override { return E_NOTIMPL; }
  STDMETHODIMP currentState(VaultObject** out) override {
    return script.answerObject<FakeNamed>("currentState", out);
  }
  STDMETHODIMP isCheckedOut(VARIANT_BOOL* out) override {
    return script.answer("isCheckedOut", out, truth(script.checkedOut));
  }
  STDMETHODIMP isCheckedOut(long* user, long* folder, long* version, VARIANT_BOOL* out) override {
    if (user != nullptr || folder != nullptr || version != nullptr) return E_INVALIDARG;
    return isCheckedOut(out);
  }
  STDMETHODIMP isCheckedOutHere(long folder, VARIANT_BOOL* out) override {
    return script.answer("isCheckedOutHere", out, truth(script.heldByUs && folder == 7));
  }
  STDMETHODIMP checkedOutBy(VaultObject** out) override {
    return script.answerObject<FakeNamed>("checkedOutBy", out, script.checkedOut);
  }
  STDMETHODIMP checkedOutOnComputer(BSTR* out) override {
    return script.answerText("checkedOutOnComputer", out, script.computer);
  }
  STDMETHODIMP latestVersion(long* out) override { return script.answer("latestVersion", out, 5L); }
  STDMETHODIMP checkedOutInPath(BSTR* out) override {
    return script.answerText("checkedOutInPath", out, L"C:\\there");
  }
  STDMETHODIMP checkedOutInFolderId(long* out) override {
    return script.answer("checkedOutInFolderId", out, script.checkedOutInFolder);
  }
  STDMETHODIMP localVersion(VARIANT folder, long* out) override {
    if (folder.vt != VT_I4 || folder.lVal != 7) return E_INVALIDARG;
    return script.answer("localVersion", out, 3L);
  }
  STDMETHODIMP versionList(VaultVersionList** out) override {
    return script.answerObject<FakeVersions>("versionList", out);
  }

 private:
  static VARIANT_BOOL truth(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
};

class FakeMain : public FakeObject<VaultClient, VaultClientLegacy, VaultGate, VaultQuery,
                                   VaultRootFolderAccess> {
 public:
  STDMETHODIMP login(BSTR, long window) override {
    script.parentWindow = window;
    return script.answer("login");
  }
  STDMETHODIMP vaultNameFromPath(BSTR, BSTR* out) override {
    return script.answerText("vaultNameFromPath", out, L"Projects");
  }
  STDMETHODIMP errorText(long, long, BSTR* out) override {
    return script.answerText("errorText", out, script.errorText);
  }
  STDMETHODIMP fileFromPath(BSTR, VaultFolder** folder, VaultFile** file) override {
    return found(folder, file);
  }
  STDMETHODIMP fileFromPath(BSTR, VaultFolderLegacy** folder, VaultFileLegacy** file) override {
    return found(folder, file);
  }
  STDMETHODIMP rootFolderPath(BSTR* out) override {
    return script.answerText("rootFolderPath", out, script.rootPath);
  }
  STDMETHODIMP clientVersion(long* major, long* minor) override {
    *major = script.major;
    return script.answer("clientVersion", minor, script.minor);
  }
  STDMETHODIMP presentCode(long code) override {
    script.codes.push_back(code);
    return script.answer("presentCode");
  }
  STDMETHODIMP execute(BSTR, IUnknown**) override { return E_NOTIMPL; }
  STDMETHODIMP rootFolder(VaultObject** out) override {
    return script.answerObject<FakeNamed>("rootFolder", out, script.hasRootFolder);
  }

 protected:
  bool offers(REFIID id) const override { return id != script.missing; }

 private:
  template <class Folder, class File>
  HRESULT found(Folder** folder, File** file) {
    const HRESULT result = script.answerObject<FakeFile>("fileFromPath", file, script.hasFile);
    *folder = nullptr;
    if (SUCCEEDED(result)) {
      *folder = new FakeFolderObject;
      (*folder)->AddRef();
    }
    return result;
  }
};

/// The text service; how it answers is said by its static members.
class FakeTexts : public FakeObject<VaultTextService> {
 public:
  FakeTexts() { ++made; }

  STDMETHODIMP text(long number, BSTR* out) override {
    *out = nullptr;
    if (SUCCEEDED(textResult) && answer) {
      *out = SysAllocString((answer + std::to_wstring(number)).c_str());
    }
    return textResult;
  }
  STDMETHODIMP sectionText(long, BSTR key, BSTR* out) override {
    *out = answer ? SysAllocString(*answer ? key : L"") : nullptr;
    return textResult;
  }
  STDMETHODIMP open(BSTR product, BSTR section) override {
    opened = std::wstring(product) + L";" + section;
    return openResult;
  }

  static void reset() {
    made = 0;
    textResult = openResult = S_OK;
    answer = L"text ";
  }

  static inline int made = 0;
  static inline HRESULT textResult = S_OK;
  static inline HRESULT openResult = S_OK;
  static inline const wchar_t* answer = L"text ";
  static inline std::wstring opened;
};

/// Objects of the fake client that nobody has given back.
inline int aliveObjects() {
  return FakeMain::alive + FakeFile::alive + FakeFolderObject::alive + FakeNamed::alive +
         FakeVersions::alive + FakePosition::alive;
}
