#pragma once

#include "frame/ArxMfcApp.h"

/// The one form of a command worker: `routine` between `beginCommand` and `endCommand`. An
/// exception goes on to the host past `endCommand`.
/// @tparam App the class of the module's application object
template <class App, void (*routine)(App&)>
void guardedCommand() {
  auto& app = static_cast<App&>(*ArxMfcApp::current());
  if (app.beginCommand() == 0) {
    return;
  }
  routine(app);
  ArxMfcApp::current()->endCommand();
}
