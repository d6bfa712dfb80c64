#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace wb {

/// A result's symbolic name, or its number if it has none.
std::wstring resultName(HRESULT result);

/// The result of a symbolic name or of a number, hexadecimal behind 0x.
std::optional<HRESULT> resultFromName(std::wstring_view name);

// The result codes that the client and its store make use of. The module has its own for what it
// handles: were they these, a wrong one would agree with itself.
constexpr HRESULT E_QVT_LOGIN_FAILED = static_cast<HRESULT>(0x80040200);
constexpr HRESULT E_QVT_NOT_INITIALIZED = static_cast<HRESULT>(0x80040201);
constexpr HRESULT E_QVT_PERMISSION_DENIED = static_cast<HRESULT>(0x80040203);
constexpr HRESULT E_QVT_NOT_LOGGED_IN = static_cast<HRESULT>(0x80040204);
constexpr HRESULT E_QVT_END_OF_LIST = static_cast<HRESULT>(0x80040208);
constexpr HRESULT E_QVT_FILE_SHARE_ERROR = static_cast<HRESULT>(0x8004020B);
constexpr HRESULT E_QVT_NAME_ALREADY_EXISTS = static_cast<HRESULT>(0x8004020F);
constexpr HRESULT E_QVT_FILE_NOT_LOCKED_BY_YOU = static_cast<HRESULT>(0x80040210);
constexpr HRESULT E_QVT_FILE_IS_LOCKED = static_cast<HRESULT>(0x80040211);
constexpr HRESULT E_QVT_LOCKED_BY_ANOTHER_USER = static_cast<HRESULT>(0x80040212);
constexpr HRESULT E_QVT_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040213);
constexpr HRESULT E_QVT_FOLDER_NOT_FOUND = static_cast<HRESULT>(0x80040214);
constexpr HRESULT E_QVT_LOCKED_ON_OTHER_COMPUTER = static_cast<HRESULT>(0x80040215);
constexpr HRESULT E_QVT_INVALID_NAME = static_cast<HRESULT>(0x8004021D);
constexpr HRESULT E_QVT_COULD_NOT_CREATE_LOCAL_FOLDER = static_cast<HRESULT>(0x8004021E);
constexpr HRESULT E_QVT_INVALID_REVISION_NUMBER = static_cast<HRESULT>(0x80040224);
constexpr HRESULT E_QVT_INVALID_TYPE = static_cast<HRESULT>(0x80040225);
constexpr HRESULT E_QVT_CANCELLED_BY_USER = static_cast<HRESULT>(0x80040226);
constexpr HRESULT E_QVT_IO_ERROR = static_cast<HRESULT>(0x80040228);
constexpr HRESULT E_QVT_INVALID_FILE = static_cast<HRESULT>(0x80040229);
constexpr HRESULT E_QVT_KEY_NOT_FOUND = static_cast<HRESULT>(0x8004022B);
constexpr HRESULT E_QVT_INVALID_QUERY = static_cast<HRESULT>(0x80040230);
constexpr HRESULT E_QVT_DISK_FULL = static_cast<HRESULT>(0x80040239);
constexpr HRESULT E_QVT_PATH_TOO_LONG = static_cast<HRESULT>(0x80040271);
constexpr HRESULT E_QVT_CARD_NOT_FOUND = static_cast<HRESULT>(0x8004027E);
constexpr HRESULT E_QVT_LOCAL_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040285);
constexpr HRESULT E_QVT_LOCKED_IN_OTHER_FOLDER = static_cast<HRESULT>(0x800402B0);
constexpr HRESULT E_QVT_INVALID_VAULT_NAME = static_cast<HRESULT>(0x800402C2);
constexpr HRESULT E_FVC_VAULT_DOESNT_EXIST = static_cast<HRESULT>(0x800404CD);

}  // namespace wb
