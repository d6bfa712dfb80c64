// What <new.h> of older compilers declared.
#pragma once
#include <new>
