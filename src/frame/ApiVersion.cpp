// A stand-in for the routine that the kit's library rxapi brings: a build with the kit leaves this
// file out. AutoCAD recognises by that routine a module that was made with its kit, and refuses
// this one. The workbench takes it.

/// The API level, as this project counts it, in the high word.
extern "C" int acrxGetApiVersion() { return 17 << 16; }
