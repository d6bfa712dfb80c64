// The genuine SDK's import library brings a definition of its own: a build with the SDK leaves this
// file out.

#include <rxdefs.h>

/// The API level that the module was made for, which the host asks before it sends any message.
extern "C" int acrxGetApiVersion() { return ACRX_API_VERSION_R17; }
