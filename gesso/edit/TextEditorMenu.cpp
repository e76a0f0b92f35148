// The context menu of a text field.

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/CommandMenu.h>
#include <gesso/framework/Frame.h>
#include <gesso/language/Language.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace gesso {
namespace {

enum Command : UINT
{
    CMD_UNDO = 1,
    CMD_REDO,
    CMD_CUT,
    CMD_COPY,
    CMD_PASTE,
    CMD_DELETE,
    CMD_SELECT_ALL
};

struct Entry
{
    UINT uCommand; // 0 for a line
    TextId text;
};

constexpr Entry ENTRIES[] = {{CMD_UNDO, TextId::Undo},
                             {CMD_REDO, TextId::Redo},
                             {0, {}},
                             {CMD_CUT, TextId::Cut},
                             {CMD_COPY, TextId::Copy},
                             {CMD_PASTE, TextId::Paste},
                             {CMD_DELETE, TextId::Delete},
                             {0, {}},
                             {CMD_SELECT_ALL, TextId::SelectAll}};

} // namespace

// True where the parent has answered, or the menu was shown. By a key it comes up at the caret.
bool TextEditor::Inside::OnContextMenu(LPARAM lParam)
{
    constexpr LPARAM BY_KEY = -1;
    const Watch watch(site.Window());
    if (Tell(EN_CONTEXTMENU) || !watch || !IsEnabled()) {
        return true;
    }
    const HWND hwnd = Window();
    SetFocus(hwnd);
    if (!watch) {
        return true;
    }
    POINT pt{static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
    if (lParam == BY_KEY) {
        const EditContext hdc(hwnd, site.Font());
        const RECT rc = Area();
        const POINT ptCaret = CaretPoint(hdc);
        const int64_t y = rc.top + int64_t{ptCaret.y} + (1 - int64_t{nTop}) * nRowHeight;
        pt = {
            static_cast<LONG>(std::clamp<int64_t>(int64_t{rc.left} + ptCaret.x - xScroll, rc.left, rc.right)),
            static_cast<LONG>(std::clamp<int64_t>(y, rc.top, rc.bottom))};
        ClientToScreen(hwnd, &pt);
    }
    const UINT uCommand = RunMenu(pt, lParam == BY_KEY);
    if (watch) {
        RunMenuCommand(uCommand);
    }
    return true;
}

bool TextEditor::Inside::CanRun(UINT uCommand) const
{
    const bool fChange = MayChange();
    const bool fSelection = model.HasSelection();
    switch (uCommand) {
    case CMD_UNDO: return fChange && model.CanUndo();
    case CMD_REDO: return fChange && model.CanRedo();
    case CMD_CUT: return fChange && fSelection && !Mask();
    case CMD_COPY: return fSelection && !Mask();
    case CMD_PASTE: return fChange && IsClipboardFormatAvailable(CF_UNICODETEXT);
    case CMD_DELETE: return fChange && fSelection;
    default: return model.Selection().Length() < model.Length();
    }
}

// What was chosen, or 0.
UINT TextEditor::Inside::RunMenu(POINT ptScreen, bool fByKey) const
{
    std::array<CommandEntry, std::size(ENTRIES)> entries{};
    std::transform(std::begin(ENTRIES), std::end(ENTRIES), entries.begin(), [this](const Entry& entry) {
        return entry.uCommand ? CommandEntry{entry.uCommand, TextOf(entry.text), CanRun(entry.uCommand)}
                              : CommandEntry{};
    });
    return RunCommandMenu(Window(), ptScreen, entries, fByKey);
}

void TextEditor::Inside::RunMenuCommand(UINT uCommand)
{
    switch (uCommand) {
    case CMD_UNDO: SendOwn(WM_UNDO); break;
    case CMD_REDO: TakeBack(&EditModel::Redo); break;
    case CMD_CUT: SendOwn(WM_CUT); break;
    case CMD_COPY: SendOwn(WM_COPY); break;
    case CMD_PASTE: SendOwn(WM_PASTE); break;
    case CMD_DELETE: SendOwn(WM_CLEAR); break;
    case CMD_SELECT_ALL: SelectAll(); break;
    default: break;
    }
}

} // namespace gesso
