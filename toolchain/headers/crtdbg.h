// The reports of the debugging run-time library, which isn't used; Wine leaves these two out.
#pragma once
#include_next <crtdbg.h>

#ifndef _CRTDBG_FILE_STDERR
#define _CRTDBG_FILE_STDERR nullptr
#define _CrtSetReportFile(type, file) (nullptr)
#endif
