#pragma once

/// The host's character: UTF-16 on Windows.
typedef wchar_t ACHAR;

#define ACRX_T(x) L##x
