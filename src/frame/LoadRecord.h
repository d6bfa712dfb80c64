#pragma once

namespace tessaro {

class AppContext;

/// Puts the module into the list of applications that the host loads as it starts, under the path
/// that the module has now (AcadAppInfo::writeToRegistry), and tells the outcome on the command
/// line. The running module doesn't change.
void install(AppContext& app);

/// Takes the module out of that list (acrxUnregisterApp), and tells the outcome on the command
/// line. The running module stays loaded.
void uninstall();

}  // namespace tessaro
