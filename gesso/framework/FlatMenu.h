// The menu of commands that the library draws by itself: what RunCommandMenu shows in Dark. Keys are those of
// the platform's menus: arrows, Home and End go from entry to entry, Enter chooses, Esc ends it, a mnemonic
// chooses its entry or, where several have it, goes from one to the next. Either button of the mouse chooses.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/containers/OArray.h>
#include <gesso/containers/OString.h>
#include <gesso/framework/CommandMenu.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/MenuLoop.h>

namespace gesso {

class FlatMenu final : public GWnd, private MenuLoop
{
public:
    FlatMenu() = default; // of a window that nobody runs
    // The entries outlive it; the texts, which a program may change meanwhile, are copied.
    FlatMenu(std::span<const CommandEntry> entries, bool fShowsMnemonics);

    // The command, or 0.
    UINT Run(HWND hwndOwner, POINT ptScreen);

    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void OnScaling();
    void Draw(HDC hdc);
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

private:
    HWND LoopWindow() const override { return m_hWnd; }
    bool ShowMenu(HWND hwndOwner) override;
    bool OnMenuKey(WPARAM wKey) override;
    void OnMenuCharacter(wchar_t ch) override;

    // In pixels of a window's scale; an entry's rectangle in the client area.
    SIZE SizeIn(HWND hwnd) const;
    int HeightOf(HWND hwnd, UINT nEntry) const;
    RECT RectOf(UINT nEntry) const;
    UINT EntryAt(POINTS pt) const;

    UINT Count() const { return static_cast<UINT>(m_entries.size()); }
    bool IsCommand(UINT nEntry) const { return nEntry < Count() && m_entries[nEntry].uCommand != 0; }
    void MarkNext(UINT nFrom, bool fDown);
    void Mark(UINT nEntry);
    void Choose(UINT nEntry);
    void OnPointer(POINTS pt);
    void OnRelease(POINTS pt);
    void DrawEntry(HDC hdc, UINT nEntry) const;
    void DrawCaption(HDC hdc, UINT nEntry, const RECT& rc) const;

    LPCWSTR TextOf(UINT nEntry) const;

    std::span<const CommandEntry> m_entries;
    OArray<OString<wchar_t>, OString<wchar_t> const&> m_aTexts; // of the entries, as far as there was memory
    bool m_fShowsMnemonics = false;
    POINT m_ptPlace{};
    HFONT m_hFont = nullptr;
    UINT m_nMarked = NO_INDEX;
    UINT m_uChoice = 0;
};

} // namespace gesso
