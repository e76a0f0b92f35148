#include <gesso/list/ListRecords.h>

GESSO_DEFINE_ARRAY(stcElementPosition, stcElementPosition const&)
GESSO_DEFINE_ARRAY(stcColumnDrawInfo, stcColumnDrawInfo const&)
