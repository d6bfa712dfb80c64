#pragma once

#include <dbapserv.h>

namespace tessaro {

/// The module's select-file callback, asked by the host whenever a file is to be selected. For the
/// host's open dialog it runs the host's own selection and offers the check-out of the pick before
/// the host opens it; all else it leaves to the host (Acad::eNotHandled).
Acad::ErrorStatus TessaroSelectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                    const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                    const ACHAR* name, const ACHAR* type, int* pnChoice,
                                    bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved);

}  // namespace tessaro
