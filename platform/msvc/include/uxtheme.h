#pragma once
extern "C" {
#include_next <uxtheme.h>
}
