// The out-of-line half of MinGW-w64's comdef.h and comutil.h. Its headers declare these as
// Microsoft's do, but the runtime has no library that defines them; Microsoft's compiler has
// comsuppw.lib. The _com_dispatch_* family serves wrappers that #import writes, which no
// compiler but Microsoft's has, and stays undefined.

#include <windows.h>

#include <comdef.h>

#include <limits>
#include <memory>

_variant_t vtMissing(DISP_E_PARAMNOTFOUND, VT_ERROR);

namespace {

template <typename Interface>
struct ReleaseInterface {
  void operator()(Interface* held) const { held->Release(); }
};

template <typename Interface>
using Owned = std::unique_ptr<Interface, ReleaseInterface<Interface>>;

bool suppliesErrorInfo(IUnknown* source, REFIID iid) {
  if (!source) return false;
  void* found = nullptr;
  if (FAILED(source->QueryInterface(IID_ISupportErrorInfo, &found))) return false;
  const Owned<ISupportErrorInfo> support(static_cast<ISupportErrorInfo*>(found));
  return support->InterfaceSupportsErrorInfo(iid) == S_OK;
}

int lengthForWindows(size_t length) {
  if (length > static_cast<size_t>((std::numeric_limits<int>::max)())) {
    _com_issue_error(E_INVALIDARG);
  }
  return static_cast<int>(length);
}

}  // namespace

// The thread's error object is only trusted when the failing object says that this interface
// fills it in; otherwise it may describe an earlier failure of someone else.
void WINAPI _com_issue_errorex(HRESULT result, IUnknown* source, REFIID iid) {
  IErrorInfo* info = nullptr;
  if (suppliesErrorInfo(source, iid) && GetErrorInfo(0, &info) != S_OK) info = nullptr;
  __mingw_com_error_handler(result, info);
}

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* source) {
  if (!source) return nullptr;
  const int length = lengthForWindows(strlen(source));
  if (length == 0) return SysAllocStringLen(nullptr, 0);
  const int needed = MultiByteToWideChar(CP_ACP, 0, source, length, nullptr, 0);
  if (needed == 0) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
  const BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(needed));
  if (!text) _com_issue_error(E_OUTOFMEMORY);
  MultiByteToWideChar(CP_ACP, 0, source, length, text, needed);
  return text;
}

char* WINAPI ConvertBSTRToString(BSTR source) {
  if (!source) return nullptr;
  const int length = lengthForWindows(SysStringLen(source));
  const int needed =
      length == 0 ? 0
                  : WideCharToMultiByte(CP_ACP, 0, source, length, nullptr, 0, nullptr, nullptr);
  if (length != 0 && needed == 0) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
  // _bstr_t gives the text back with delete[].
  auto text = std::make_unique<char[]>(static_cast<size_t>(needed) + 1);
  if (needed) WideCharToMultiByte(CP_ACP, 0, source, length, text.get(), needed, nullptr, nullptr);
  return text.release();
}

}  // namespace _com_util
