#pragma once

#include "foundation/Border.h"
#include "frame/ArxMfcApp.h"

namespace tessaro {

/// The one form of a command worker: `routine` between `beginCommand` and `endCommand`. What it has
/// no handler for goes on to the host past `endCommand`, and only as a _com_error.
/// @tparam App the class of the module's application object
template <class App, void (*routine)(App&)>
void guardedCommand() {
  auto& app = static_cast<App&>(*ArxMfcApp::current());
  if (app.beginCommand() == 0) return;
  asComErrors([&app] { routine(app); });
  ArxMfcApp::current()->endCommand();
}

}  // namespace tessaro
