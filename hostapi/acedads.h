#pragma once

#include "AdAChar.h"
#include "adsdef.h"

// Windows' window handle, without windows.h.
struct HWND__;

extern "C" {

/// Writes on the command line.
int acedPrompt(const ACHAR* text);
/// Asks for a whole number; RTNORM, RTNONE for empty input, RTCAN if the user cancels.
int acedGetInt(const ACHAR* prompt, int* result);
/// Reads a variable of the host into `result`; RTERROR if there is none of that name.
int acedGetVar(const ACHAR* name, struct resbuf* result);

/// Offers a LISP function under `name`, known by the code `functionCode`.
int acedDefun(const ACHAR* name, short functionCode);
/// Lets the host call `function` directly for that code.
int acedRegFunc(int (*function)(void), int functionCode);

/// Runs a command with its input: pairs of a type and a value, ended by RTNONE or 0.
int acedCommand(int rtype, ...);

/// Selects by `mode` ("I" takes what is preselected, null asks); `ss` is freed by acedSSFree.
int acedSSGet(const ACHAR* mode, const void* point1, const void* point2,
              const struct resbuf* filter, ads_name ss);
int acedSSLength(const ads_name ss, long* length);
/// Gives the entity at the index `i`, counted from 0.
int acedSSName(const ads_name ss, long i, ads_name entity);
int acedSSFree(const ads_name ss);
/// Asks the user to pick one entity; RTERROR if nothing was hit, RTCAN if the user cancels.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);

/// The host's main window.
struct HWND__* adsw_acadMainWnd();
}
