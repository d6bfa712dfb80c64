#pragma once

#include "AdAChar.h"

typedef double ads_real;
typedef ads_real ads_point[3];
typedef long long ads_name[2];

struct ads_binary {
  short clen;
  char* buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR* rstring;
  long long rlname[2];
  long rlong;
  struct ads_binary rbinary;
};

/// One value in a list of values; `restype` tells which member of `resval` holds it.
struct resbuf {
  struct resbuf* rbnext;
  short restype;
  union ads_u_val resval;
};
