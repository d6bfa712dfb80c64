#pragma once

#include <windows.h>

#include <comdef.h>

namespace tessaro {

// The client's results that the module knows to be no fault, or explains in words of its own.
constexpr HRESULT E_QVT_PERMISSION_DENIED = static_cast<HRESULT>(0x80040203);
constexpr HRESULT E_QVT_NOT_LOGGED_IN = static_cast<HRESULT>(0x80040204);
constexpr HRESULT E_QVT_RCE_ERROR = static_cast<HRESULT>(0x80040209);
constexpr HRESULT E_QVT_FILE_SHARE_ERROR = static_cast<HRESULT>(0x8004020B);
constexpr HRESULT E_QVT_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040213);
constexpr HRESULT E_QVT_KEY_NOT_FOUND = static_cast<HRESULT>(0x8004022B);
constexpr HRESULT E_QVT_VERSION_MISMATCH = static_cast<HRESULT>(0x8004022E);

/// What a result code means, in a sentence for the user: in the client's language where the client
/// can be asked, in English otherwise, in Windows' words for a code that isn't the client's. Every
/// code has a text.
/// @throws _com_error E_OUTOFMEMORY
_bstr_t resultCodeText(HRESULT code);

/// The symbolic name of a result code; one without a name gives its number.
/// @throws _com_error E_OUTOFMEMORY
_bstr_t resultCodeName(HRESULT code);

/// Both at once; each may be null if it isn't wanted.
void describeResultCode(HRESULT code, _bstr_t* text, _bstr_t* name);

/// The text of a failure to get at the vault's database.
_bstr_t databaseErrorText(HRESULT code);

/// The text of a WinINet error, English in every language.
/// @param code the error's number in its low 16 bits
_bstr_t internetErrorText(HRESULT code);

/// Windows' own message for a code, without a line break at its end; a number if Windows has none.
_bstr_t systemMessage(HRESULT code);

}  // namespace tessaro
