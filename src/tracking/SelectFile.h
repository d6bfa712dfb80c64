#pragma once

#include <dbapserv.h>

namespace tessaro {

/// The module's select-file callback, which the host calls for every selection of a file. For the
/// host's open dialog it runs the host's own selection and offers to check the selected file out
/// before the host opens it.
/// @return Acad::eNotHandled for any other selection, which the host then runs itself
Acad::ErrorStatus TessaroSelectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                    const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                    const ACHAR* name, const ACHAR* type, int* pnChoice,
                                    bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved);

}  // namespace tessaro
