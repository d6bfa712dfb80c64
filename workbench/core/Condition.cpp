#include "core/Condition.h"

namespace wb {

namespace {
HWND theMainWindow = nullptr;
}

ClientCondition& clientCondition() {
  static ClientCondition condition;
  return condition;
}

void setMainWindow(HWND window) { theMainWindow = window; }

HWND mainWindow() { return theMainWindow; }

}  // namespace wb
