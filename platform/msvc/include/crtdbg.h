// Wine's header lacks what debug aids ask the C runtime for.
#include_next <crtdbg.h>
#ifndef _CRTDBG_FILE_STDERR
#define _CRTDBG_FILE_STDERR ((void*)-5)
#endif
#ifndef _CRTDBG_MODE_FILE
#define _CRTDBG_MODE_FILE 1
#define _CRTDBG_MODE_DEBUG 2
#endif
#ifndef _CrtSetReportFile
#define _CrtSetReportFile(a, b) ((void*)0)
#endif
