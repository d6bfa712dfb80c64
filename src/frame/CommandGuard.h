#pragma once

#include "foundation/Border.h"
#include "frame/ArxMfcApp.h"

namespace tessaro {

/// The form of all command workers: runs `routine` between `beginCommand` and `endCommand`. After
/// an exception `endCommand` isn't run.
/// @tparam App the class of the module's application object
/// @throws _com_error to the host, for any exception of the routine
template <class App, void (*routine)(App&)>
void guardedCommand() {
  auto& app = static_cast<App&>(*ArxMfcApp::current());
  if (app.beginCommand() == 0) return;
  asComErrors([&app] { routine(app); });
  ArxMfcApp::current()->endCommand();
}

}  // namespace tessaro
