#pragma once

#define IDR_ENGLISH 100

#define IDD_CHECK_IN 1200
#define IDC_COMMENT 1201
#define IDC_KEEP_CHECKED_OUT 1202
