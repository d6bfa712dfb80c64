#include "foundation/AppContext.h"

namespace {

AppContext* application = nullptr;

}  // namespace

AppContext* currentApp() { return application; }

void setCurrentApp(AppContext* app) { application = app; }
