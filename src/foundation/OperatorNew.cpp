// The module's operator new. On a lack of memory it throws a _com_error with E_OUTOFMEMORY, which
// the module's handlers catch, also when the standard library's containers allocate.
#include <windows.h>

#include <comdef.h>

#include <cstdlib>
#include <new>

namespace {

/// Also a std::bad_alloc, as the language requires.
class OutOfMemory : public std::bad_alloc, public _com_error {
 public:
  OutOfMemory() noexcept : _com_error(E_OUTOFMEMORY) {}
};

void* allocate(std::size_t size) {
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw OutOfMemory();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
