// A value menu that runs until a choice.
#pragma once

#include <gesso/framework/MenuLoop.h>
#include <gesso/ribbon/GRightClickMenu.h>

namespace gesso {

class TrackedMenu final : public GRightClickMenu, private MenuLoop
{
public:
    TrackedMenu(const LPCWSTR* ppszValues, UINT nCount, UINT uChecked);

    // The index of the choice, or NO_INDEX. The owner may be gone afterwards.
    UINT Run(HWND hwndOwner, POINT pt);

private:
    friend class ::GRightClickMenu; // for what it says of itself to those who do not see it

    static TrackedMenu* Of(HWND hwnd);
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnTrackMessage(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    HWND LoopWindow() const override { return m_hWnd; }
    bool ShowMenu(HWND hwndOwner) override;
    bool OnMenuKey(WPARAM wKey) override;
    void OnMenuWheel(int nDelta) override;
    SIZE SizeOfRows(HWND hwndOwner) const;
    void OnPointer(POINTS pt);
    void OnRelease(POINTS pt);
    void Mark(UINT nRow);
    void TellMark() const;
    UINT RowAt(POINTS pt) const;
    UINT VisibleRows() const;
    void Choose(UINT nRow);

    POINT m_ptPlace{};          // on the screen, where it comes up
    UINT m_nChecked = NO_INDEX; // the row that was marked at first
    UINT m_nChoice = NO_INDEX;
    UINT m_nFirst = 0; // the row at the top, where the monitor is too low for all
    int m_nWheel = 0;  // of a wheel's notch, so far
};

} // namespace gesso
