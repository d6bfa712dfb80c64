#include "editor/Callbacks.h"

#include <comdef.h>

#include <exception>

#include "core/Text.h"
#include "core/Transcript.h"

namespace wb {

void reportUncaught(const std::wstring& what) {
  HRESULT code = S_OK;
  std::wstring error;
  try {
    throw;
  } catch (const _com_error& comError) {
    code = comError.Error();
    error = hexText(static_cast<unsigned long>(code), 8);
  } catch (const std::exception& exception) {
    error = L"\"" + fromUtf8(exception.what()) + L"\"";
  } catch (int value) {
    error = L"of the value " + std::to_wstring(value);
  } catch (...) {
    error = L"of another type";
  }
  report({Event::command, Event::uncaught, what, what + L" ended by an uncaught error " + error,
          code});
}

}  // namespace wb
