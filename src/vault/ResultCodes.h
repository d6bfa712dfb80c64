#pragma once

#include <windows.h>

#include <comdef.h>

namespace tessaro {

// The client's results that the module handles.
constexpr HRESULT E_QVT_PERMISSION_DENIED = static_cast<HRESULT>(0x80040203);
constexpr HRESULT E_QVT_NOT_LOGGED_IN = static_cast<HRESULT>(0x80040204);
constexpr HRESULT E_QVT_RCE_ERROR = static_cast<HRESULT>(0x80040209);
constexpr HRESULT E_QVT_FILE_SHARE_ERROR = static_cast<HRESULT>(0x8004020B);
constexpr HRESULT E_QVT_FILE_NOT_FOUND = static_cast<HRESULT>(0x80040213);
constexpr HRESULT E_QVT_KEY_NOT_FOUND = static_cast<HRESULT>(0x8004022B);
constexpr HRESULT E_QVT_VERSION_MISMATCH = static_cast<HRESULT>(0x8004022E);

/// Describes a result code in a sentence for the user: the client's text in the user's language,
/// its English default if there is no client, or Windows' message for a code that isn't the
/// client's.
/// @return a text for every code
/// @throws _com_error E_OUTOFMEMORY
_bstr_t resultCodeText(HRESULT code);

/// @return the symbolic name of a result code, or its number if it has none
/// @throws _com_error E_OUTOFMEMORY
_bstr_t resultCodeName(HRESULT code);

/// Text and name of a result code.
/// @param text null if not wanted, as may be `name`
void describeResultCode(HRESULT code, _bstr_t* text, _bstr_t* name);

/// @return the text of a failed access to the vault's database
_bstr_t databaseErrorText(HRESULT code);

/// @param code the error's number in its low 16 bits
/// @return the English text of a WinINet error
_bstr_t internetErrorText(HRESULT code);

/// @return Windows' message for a code, without a line break at its end; the number if it has none
_bstr_t systemMessage(HRESULT code);

}  // namespace tessaro
