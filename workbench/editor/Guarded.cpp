#include "editor/Guarded.h"

#include <windows.h>

#include <comdef.h>

#include <exception>

#include "core/Text.h"
#include "core/Transcript.h"

namespace wb {

std::wstring describeCurrentException() {
  try {
    throw;
  } catch (const _com_error& error) {
    wchar_t text[16];
    wsprintfW(text, L"0x%08X", static_cast<unsigned>(error.Error()));
    return text;
  } catch (const std::exception& error) {
    return L"\"" + fromUtf8(error.what()) + L"\"";
  } catch (int value) {
    return L"of the value " + std::to_wstring(value);
  } catch (...) {
    return L"of another type";
  }
}

namespace {

HRESULT currentCode() {
  try {
    throw;
  } catch (const _com_error& error) {
    return error.Error();
  } catch (...) {
    return S_OK;
  }
}

}  // namespace

void tellUncaught(std::wstring_view what) {
  const std::wstring called(what);
  tell({Event::command, Event::uncaught, called,
        called + L" ended by an uncaught error " + describeCurrentException(), currentCode()});
}

}  // namespace wb
