// What MinGW-w64's comdef.h family expects of MinGW-w64's own basic header.
#pragma once
#define __MINGW_SELECTANY __declspec(selectany)
#ifndef __EXCEPTIONS
#define __EXCEPTIONS 1
#endif
#ifndef USE___UUIDOF
#define USE___UUIDOF 1
#endif
