#pragma once

namespace tessaro {

/// The module's version, in the form of the version resource.
constexpr char moduleVersion[] = "12,0,0,408";

}  // namespace tessaro
