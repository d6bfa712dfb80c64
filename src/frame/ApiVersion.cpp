// A stand-in for the routine in the kit's library rxapi. A build with the kit leaves this file out:
// AutoCAD checks by that routine that a module was built with its kit, and refuses this one. The
// workbench accepts it.

/// @return the API level, as this project counts it, in the high word
extern "C" int acrxGetApiVersion() { return 17 << 16; }
