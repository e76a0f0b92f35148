// Wine's header forgets that its functions are C.
#pragma once
extern "C" {
#include_next <uxtheme.h>
}
