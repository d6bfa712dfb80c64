#pragma once

/// Types of the values in a `resbuf` and of the arguments of `acedCommand`.
#define RTNONE 5000
#define RTREAL 5001
#define RTPOINT 5002
#define RTSHORT 5003
#define RTANG 5004
#define RTSTR 5005
#define RTENAME 5006
#define RTPICKS 5007
#define RTLONG 5010
#define RTDXF0 5020

/// Results of the functions that talk to the user.
#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)
#define RTFAIL (-5004)
#define RTKWORD (-5005)

/// Message by which the host asks a modeless window whether it keeps the keyboard focus.
#define WM_ACAD_KEEPFOCUS 0x7101
