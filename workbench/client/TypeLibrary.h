#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace wb {

/// The type information of a dual interface, from the type library that the client's file carries
/// as its resource 1. Raises nothing: the result is that of LoadTypeLibEx or GetTypeInfoOfGuid.
HRESULT typeInfo(REFIID iid, ITypeInfo** info);

/// IDispatch::GetIDsOfNames of a dual interface.
HRESULT idsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

/// A call by number, as IDispatch::Invoke gets it.
struct DispatchCall {
  DISPID member;
  WORD flags;
  DISPPARAMS* arguments;
  VARIANT* result;
  EXCEPINFO* exception;
  UINT* badArgument;
};

/// IDispatch::Invoke of a dual interface: calls `instance` through its virtual function table.
HRESULT invokeByType(REFIID iid, void* instance, const DispatchCall& call);

/// The client's own library, and the path of its file (empty if Windows refuses it: GetLastError).
HMODULE clientModule();
std::wstring clientFile();

}  // namespace wb
