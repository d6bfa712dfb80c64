#include <windows.h>

#include <comdef.h>
#include <gtest/gtest.h>

#include <string>

namespace {

_COM_SMARTPTR_TYPEDEF(ICreateErrorInfo, __uuidof(ICreateErrorInfo));
_COM_SMARTPTR_TYPEDEF(IErrorInfo, __uuidof(IErrorInfo));

/// An object that says whether its IUnknown fills in error information.
class Informer : public ISupportErrorInfo {
 public:
  explicit Informer(bool supports) : supports_(supports) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    const bool known = iid == IID_IUnknown || iid == IID_ISupportErrorInfo;
    *out = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override {
    return supports_ ? S_OK : S_FALSE;
  }

  ULONG references = 1;

 private:
  bool supports_;
};

void leaveErrorInfo(const wchar_t* description) {
  ICreateErrorInfoPtr made;
  ASSERT_EQ(CreateErrorInfo(&made), S_OK);
  _bstr_t text(description);
  made->SetDescription(text.GetBSTR());
  IErrorInfoPtr info(made);
  SetErrorInfo(0, info);
}

_com_error raisedFor(HRESULT result, Informer* source) {
  try {
    _com_issue_errorex(result, source, IID_IUnknown);
  } catch (const _com_error& error) {
    return error;
  }
  ADD_FAILURE() << "nothing was raised";
  return _com_error(S_OK);
}

TEST(ComSupport, RaisedErrorCarriesTheDescriptionOfAnObjectThatSuppliesOne) {
  Informer informer(true);
  leaveErrorInfo(L"The file is held by someone else.");
  const _com_error error = raisedFor(E_ACCESSDENIED, &informer);
  EXPECT_EQ(error.Error(), E_ACCESSDENIED);
  EXPECT_STREQ(error.Description(), L"The file is held by someone else.");
  EXPECT_EQ(informer.references, 1u);

  const _com_error without = raisedFor(E_ACCESSDENIED, &informer);
  EXPECT_EQ(without.Description().length(), 0u);
}

TEST(ComSupport, AnOlderErrorOfTheThreadIsNotTakenForThisOne) {
  Informer silent(false);
  leaveErrorInfo(L"Someone else's failure.");
  EXPECT_EQ(raisedFor(E_FAIL, &silent).Description().length(), 0u);
  EXPECT_EQ(raisedFor(E_FAIL, nullptr).Description().length(), 0u);
  EXPECT_EQ(silent.references, 1u);
  SetErrorInfo(0, nullptr);
}

TEST(ComSupport, TextsGoThroughTheSystemCodePageAndBack) {
  wchar_t accented[] = L"\x00e9t\x00e9";
  char narrow[16] = "";
  BOOL lost = FALSE;
  // The flag can't be asked for where the code page is UTF-8, which holds every text.
  WideCharToMultiByte(CP_ACP, 0, accented, -1, narrow, sizeof narrow, nullptr,
                      GetACP() == CP_UTF8 ? nullptr : &lost);
  if (!lost) {
    EXPECT_STREQ(static_cast<const char*>(_bstr_t(accented)), narrow);
    EXPECT_STREQ(static_cast<const wchar_t*>(_bstr_t(narrow)), accented);
  }

  EXPECT_EQ(_bstr_t("").length(), 0u);
  EXPECT_STREQ(static_cast<const char*>(_bstr_t(L"")), "");
  EXPECT_EQ(static_cast<const char*>(_bstr_t()), nullptr);

  const std::string longText(5000, 'x');
  const _bstr_t wide(longText.c_str());
  EXPECT_EQ(wide.length(), longText.size());
  EXPECT_EQ(longText, static_cast<const char*>(wide));
}

TEST(ComSupport, AMissingArgumentIsTheErrorThatAutomationKnows) {
  EXPECT_EQ(V_VT(&vtMissing), VT_ERROR);
  EXPECT_EQ(V_ERROR(&vtMissing), DISP_E_PARAMNOTFOUND);
}

}  // namespace
