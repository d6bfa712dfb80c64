#pragma once

#include <windows.h>

#include <comdef.h>

namespace tessaro {

/// A text of the add-in.
struct Message {
  /// Its number in the client's text service.
  long number;
  /// Its English text, in the system's 8-bit code page.
  const char* defaultText;
};

/// Loads a text in the user's language from the client's text service. The service is created at
/// the first text and kept.
/// @return the text, or its default if the service can't be created or fails
/// @throws _com_error E_OUTOFMEMORY
_bstr_t loadMessage(const Message& message);

/// Loads a text of another part of the client, with a text service of its own.
/// @param section the client's module that the text belongs to
/// @param key the text's key within the section
/// @return the text, or its default if the service has none
_bstr_t lookupSectionText(long number, const wchar_t* defaultText, const wchar_t* section,
                          const wchar_t* key);

/// Creates the text service of `loadMessage` and opens a module's texts in it. A service that is
/// created but fails to open is kept.
/// @param module the module whose file name is taken if `moduleName` is null
/// @return S_OK, E_FAIL if the service exists already, or the client's failure
/// @throws _com_error E_OUTOFMEMORY
HRESULT openTextService(HINSTANCE module, const wchar_t* moduleName, const wchar_t* productName);

/// Releases the text service of `loadMessage`. COM must still be initialized.
void releaseTextService();

/// Drops the text service without a call on it, at the end of the process: its code may be
/// unloaded.
void forgetTextService();

}  // namespace tessaro
