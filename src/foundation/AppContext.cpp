#include "foundation/AppContext.h"

namespace tessaro {

namespace {

AppContext* application = nullptr;

}  // namespace

AppContext* currentApp() { return application; }

void setCurrentApp(AppContext* app) { application = app; }

}  // namespace tessaro
