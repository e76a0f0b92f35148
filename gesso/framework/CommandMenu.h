// A menu of commands that comes up at a point of the screen and runs until a choice: the platform's own, and
// in Dark, for which that has no colours, one that the library draws.
#pragma once

#include <gesso/api.h>

#include <span>

namespace gesso {

struct CommandEntry
{
    UINT uCommand;   // 0 for a line
    LPCWSTR pszText; // with an ampersand before its mnemonic
    bool fEnabled;
};

// The command that was chosen, or 0; no message tells of it. Whatever the owner's messages lead to may have
// happened meanwhile. fByKey shows the mnemonics from the first.
UINT RunCommandMenu(HWND hwndOwner, POINT ptScreen, std::span<const CommandEntry> entries, bool fByKey);

} // namespace gesso
