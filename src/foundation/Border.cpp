#include "foundation/Border.h"

namespace tessaro {

HRESULT currentFailure() noexcept {
  try {
    throw;
  } catch (const _com_error& error) {
    return error.Error();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace tessaro
