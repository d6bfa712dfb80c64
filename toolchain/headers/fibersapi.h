// Wine declares the functions of this header in winbase.h.
#pragma once
