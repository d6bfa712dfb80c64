#pragma once

#include <windows.h>

namespace wb {

/// The client's result codes that the store refuses with.
constexpr HRESULT E_QVT_NOT_INITIALIZED = static_cast<HRESULT>(0x80040201);
constexpr HRESULT E_QVT_PERMISSION_DENIED = static_cast<HRESULT>(0x80040203);
constexpr HRESULT E_QVT_FILE_SHARE_ERROR = static_cast<HRESULT>(0x8004020B);
constexpr HRESULT E_QVT_NAME_ALREADY_EXISTS = static_cast<HRESULT>(0x8004020F);
constexpr HRESULT E_QVT_FILE_NOT_LOCKED_BY_YOU = static_cast<HRESULT>(0x80040210);
constexpr HRESULT E_QVT_FILE_IS_LOCKED = static_cast<HRESULT>(0x80040211);
constexpr HRESULT E_QVT_LOCKED_BY_ANOTHER_USER = static_cast<HRESULT>(0x80040212);
constexpr HRESULT E_QVT_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040213);
constexpr HRESULT E_QVT_LOCKED_ON_OTHER_COMPUTER = static_cast<HRESULT>(0x80040215);
constexpr HRESULT E_QVT_INVALID_NAME = static_cast<HRESULT>(0x8004021D);
constexpr HRESULT E_QVT_COULD_NOT_CREATE_LOCAL_FOLDER = static_cast<HRESULT>(0x8004021E);
constexpr HRESULT E_QVT_INVALID_REVISION_NUMBER = static_cast<HRESULT>(0x80040224);
constexpr HRESULT E_QVT_IO_ERROR = static_cast<HRESULT>(0x80040228);
constexpr HRESULT E_QVT_INVALID_FILE = static_cast<HRESULT>(0x80040229);
constexpr HRESULT E_QVT_KEY_NOT_FOUND = static_cast<HRESULT>(0x8004022B);
constexpr HRESULT E_QVT_DISK_FULL = static_cast<HRESULT>(0x80040239);
constexpr HRESULT E_QVT_PATH_TOO_LONG = static_cast<HRESULT>(0x80040271);
constexpr HRESULT E_QVT_LOCAL_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040285);
constexpr HRESULT E_QVT_LOCKED_IN_OTHER_FOLDER = static_cast<HRESULT>(0x800402B0);
constexpr HRESULT E_QVT_INVALID_VAULT_NAME = static_cast<HRESULT>(0x800402C2);

}  // namespace wb
