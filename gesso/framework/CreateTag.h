// The creation data by which a window of the library finds the object that it is to run on, instead of making
// one of its own. Every Create passes it; a host that makes the window itself, by CreateWindowExW and the
// class's name, may do so too. The window then owns nothing, and a text is the host's to set. In a dialog
// such a host leaves WS_EX_NOPARENTNOTIFY out: it tells a template's controls, whose creation data begins
// with its size and may look like a tag.
#pragma once

#include <gesso/api.h>

#pragma pack(push, 1)
struct stcCreateTag
{
    WORD wMark;    // 0xFFFF
    void* pObject; // of the window's class, or of one derived from it
};
#pragma pack(pop)
static_assert(sizeof(stcCreateTag) == 10);
