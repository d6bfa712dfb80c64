#pragma once

namespace tessaro {

/// The module's version, in the form that the version resource takes.
constexpr char moduleVersion[] = "12,0,0,408";

}  // namespace tessaro
