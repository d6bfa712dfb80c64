// What newer Windows has, and one macro less: DeleteFile would rename the member of
// FILE_DISPOSITION_INFO where it is used and not where it is declared. Call DeleteFileW.
#pragma once
#include_next <winbase.h>

#undef DeleteFile

#ifndef GetExceptionCode
#define GetExceptionCode _exception_code
#endif

#ifndef SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
#define SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE 0x2
#endif
