#pragma once

namespace tessaro {

class AppContext;

/// The command `install`: adds the module with its present path to the applications that the host
/// loads at its start (AcadAppInfo::writeToRegistry). The outcome is reported at the command line.
void install(AppContext& app);

/// The command `uninstall`: removes the module from these applications (acrxUnregisterApp). The
/// outcome is reported at the command line. The module stays loaded.
void uninstall();

}  // namespace tessaro
