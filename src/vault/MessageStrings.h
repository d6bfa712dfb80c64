#pragma once

#include <windows.h>

#include <comdef.h>

namespace tessaro {

/// The add-in's text of that number in the user's language, from the client's text service. The
/// service is made at the first text and kept; while it can't be had, each text is its default.
/// @param defaultText in the system's 8-bit code page
/// @throws _com_error E_OUTOFMEMORY
_bstr_t loadMessage(long number, const char* defaultText);

/// A text of another part of the client. The service for it is made for this one call.
/// @param section the client's module that the text belongs to
/// @param key the text's key within it
_bstr_t lookupSectionText(long number, const wchar_t* defaultText, const wchar_t* section,
                          const wchar_t* key);

/// Makes the text service that `loadMessage` keeps and opens a module's texts in it.
/// @param module the module whose file name stands for a null `moduleName`
/// @throws _com_error E_OUTOFMEMORY
/// @return E_FAIL if the service is there already; the client's failure otherwise. When it can be
/// made but not opened it is kept all the same.
HRESULT openTextService(HINSTANCE module, const wchar_t* moduleName, const wchar_t* productName);

/// Lets the text service go. To be called while COM is still there.
void releaseTextService();

/// Forgets the text service without a word to it: the process ends, and it may be gone.
void forgetTextService();

}  // namespace tessaro
