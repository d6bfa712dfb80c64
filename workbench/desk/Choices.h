#pragma once

#include <string>
#include <vector>

#include "scripting/Directives.h"

namespace wb {

/// An item of the desk's menus.
struct Choice {
  std::vector<std::wstring> menus;  ///< the one in the bar, and those inside it
  std::wstring text;                ///< empty for a separator
  std::wstring line;                ///< what is run: a directive or something typed
  bool checked = false;
  bool grayed = false;

  bool operator==(const Choice& other) const {
    return menus == other.menus && text == other.text && line == other.line &&
           checked == other.checked && grayed == other.grayed;
  }
};

/// What a person can choose now.
std::vector<Choice> choices(const ScriptContext& context);

}  // namespace wb
