#include <acedads.h>
#include <adscodes.h>

#include "editor/Host.h"
#include "editor/LispFunctions.h"
#include "gate/HostCall.h"

using wb::HostCall;

extern "C" {

int acedDefun(const ACHAR* name, short functionCode) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    return name && *name && wb::Host::instance().lisp().define(name, functionCode) ? RTNORM
                                                                                   : RTERROR;
  });
}

int acedRegFunc(int (*function)(void), int functionCode) {
  return HostCall(THIS_FUNCTION).run(RTERROR, [&] {
    return function && wb::Host::instance().lisp().setFunction(function, functionCode) ? RTNORM
                                                                                       : RTERROR;
  });
}
}
