// The start of a program with `main`.

#include <stdlib.h>

#include "Startup.h"

int main(int count, char** words);

extern "C" void mainCRTStartup() {
  crt::runProgram([] {
    _configure_narrow_argv(_crt_argv_unexpanded_arguments);
    _initialize_narrow_environment();
    return main(*__p___argc(), *__p___argv());
  });
}
