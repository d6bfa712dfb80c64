// GCC's run-time library as a library that comes and goes needs it; a program lives as long as what
// it takes.

// NOLINTBEGIN(bugprone-reserved-identifier): the names are libstdc++'s.
namespace __gnu_cxx {
/// Frees what libstdc++ has set aside for exceptions that are thrown when there is no memory left;
/// it is in no header.
void __freeres();
}  // namespace __gnu_cxx
// NOLINTEND(bugprone-reserved-identifier)

namespace {

class ExceptionPool {
 public:
  /// What the library keeps for this thread's exceptions is made with the first one, and better
  /// now than when memory is short.
  ExceptionPool() {
    try {
      throw 0;
    } catch (int) {
    }
  }
  ~ExceptionPool() { __gnu_cxx::__freeres(); }
};

// The first static object to come is the last to go: until then exceptions may be thrown.
[[gnu::init_priority(101)]] ExceptionPool exceptionPool;

}  // namespace
