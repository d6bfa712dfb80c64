#include "client/ClientCall.h"

#include <oleauto.h>

#include <new>

#include "client/ComObject.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "faults/Faults.h"
#include "store/Store.h"

namespace wb {
namespace {

/// Sets a text as the thread's error object. Without one the caller still has the result code, so a
/// failure here has no effect.
void setErrorText(std::wstring text) {
  ICreateErrorInfo* created = nullptr;
  if (FAILED(CreateErrorInfo(&created))) return;
  const Owned<ICreateErrorInfo> creation(created);
  creation->SetDescription(text.data());
  IErrorInfo* info = nullptr;
  if (FAILED(creation->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) return;
  const Owned<IErrorInfo> errorInfo(info);
  SetErrorInfo(0, info);
}

std::wstring variantText(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return L"empty";
    case VT_NULL:
      return L"null";
    case VT_BSTR:
      return wb::quoted(textOf(V_BSTR(&value)));
    case VT_I4:
      return std::to_wstring(V_I4(&value));
    case VT_R8:
      return std::to_wstring(V_R8(&value));
    case VT_DATE:
      return describe(V_DATE(&value));
    case VT_BOOL:
      return describe(V_BOOL(&value));
    default:
      return L"VARIANT of type " + std::to_wstring(V_VT(&value));
  }
}

}  // namespace

BSTR newBstr(std::wstring_view text) {
  const BSTR made = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!made) throw std::bad_alloc();
  return made;
}

std::wstring textOf(BSTR text) {
  return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

std::wstring describe(BSTR value) {
  if (!value) return L"null";
  std::wstring text = wb::quoted(textOf(value));
  trackMemory(value, L"string", L"BSTR " + text);
  return text;
}

std::wstring describe(const VARIANT& value) {
  return V_VT(&value) == VT_BSTR ? describe(V_BSTR(&value)) : variantText(value);
}

std::wstring describe(long value) { return std::to_wstring(value); }

std::wstring describe(VARIANT_BOOL value) { return value ? L"true" : L"false"; }

// Without its value: two runs print the same.
std::wstring describe(DATE) { return L"a date"; }

std::wstring describe(LPITEMIDLIST value) {
  if (!value) return L"null";
  trackMemory(value, L"memory", L"item id list");
  return L"item";
}

std::wstring describe(const LiveObject* value) { return value ? value->label() : L"null"; }

std::wstring describeArray(const void* array) {
  if (!array) return L"null";
  trackMemory(array, L"memory", L"array of interfaces");
  return L"array";
}

ClientCall::ClientCall(const std::wstring& interfaceName, std::string_view method)
    : ClientCall(interfaceName + L"." + fromUtf8(method.substr(method.rfind(':') + 1))) {}

ClientCall& ClientCall::argument(const wchar_t* name, const std::wstring& value) {
  if (!arguments.empty()) arguments += L", ";
  arguments += name + (L"=" + value);
  return *this;
}

ClientCall& ClientCall::with(const wchar_t* name, long value) {
  return argument(name, std::to_wstring(value));
}

ClientCall& ClientCall::with(const wchar_t* name, const wchar_t* text) {
  // A null BSTR is an empty text.
  return argument(name, quoted(text ? text : L""));
}

ClientCall& ClientCall::with(const wchar_t* name, const VARIANT& value) {
  return argument(name, variantText(value));
}

ClientCall& ClientCall::code(const wchar_t* name, HRESULT value) {
  return argument(name, resultName(value));
}

ClientCall& ClientCall::window(const wchar_t* name, long handle) {
  const auto mainHandle =
      static_cast<long>(reinterpret_cast<LONG_PTR>(SessionState::get().mainWindow));
  if (handle == 0) return argument(name, L"none");
  return argument(name, handle == mainHandle ? L"main" : L"window");
}

ClientCall& ClientCall::object(const wchar_t* name, IUnknown* object) {
  if (!object) nullArgument = true;
  return argument(name, describe(object));
}

HRESULT ClientCall::runBody(const std::function<HRESULT()>& body) {
  const HRESULT fault = takeFault(operation);
  const HRESULT result = fault != S_OK ? fault : nullArgument ? E_POINTER : guarded(body);
  reportResult(result);
  return result;
}

HRESULT ClientCall::guarded(const std::function<HRESULT()>& body) const {
  SetErrorInfo(0, nullptr);
  try {
    return body();
  } catch (const ClientFailure& failure) {
    if (!failure.text.empty()) setErrorText(failure.text);
    return failure.code;
  } catch (const StoreError& failure) {
    return failure.code();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& failure) {
    report(Event::client, operation + L" stopped: " + fromUtf8(failure.what()));
    return E_FAIL;
  }
}

void ClientCall::reportResult(HRESULT result) const {
  std::wstring line = operation + L"(" + arguments + L") -> " + resultName(result);
  if (SUCCEEDED(result)) {
    const wchar_t* separator = L" ";
    for (const Out& out : outs) {
      const bool named = out.name && outs.size() > 1;
      line += separator + (named ? out.name + std::wstring(L"=") : L"= ") + out.describe();
      separator = L", ";
    }
  }
  report({Event::client, Event::other, operation, line});
}

}  // namespace wb
