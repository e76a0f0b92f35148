// A GEdit that was made in Modern: a text field in its window, with bars and a frame.
#pragma once

#include <gesso/edit/GEditInside.h>
#include <gesso/edit/TextEditor.h>

struct GEdit::Modern final : private gesso::EditorSite
{
    // dwStyle is the one that the window was made with.
    Modern(GEdit& owner, DWORD dwStyle);

    // What the control does with a message. False where it does the same as in Classic.
    bool OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    void Draw(HDC hdc, const RECT& rcShown);
    bool StartText(LPCWSTR psz);
    // WM_SETTEXT, which tells of a field of one line.
    LRESULT SetTextAndTell(LPCWSTR psz);

    GEdit& edit;
    gesso::TextEditor editor;

private:
    const GWnd& Window() const override { return edit; }
    HFONT Font() const override { return edit.m_hFont; }
    DWORD EditStyle() const override;
    RECT TextRect() const override { return edit.TextRect(); }
    LRESULT Tell(UINT uCode) override;
    LRESULT Send(UINT uCode) const;
    void SetRange(int nBar, int nMax, UINT nPage, int nPos) override;
    bool TakesDropAt(POINT pt) const override; // not on bars and frame

    LRESULT Paint();
    void OnFocus(bool fGained);
    void OnStyleChanged(WPARAM wWhich, const STYLESTRUCT& styles);
    void KeepStyle();

    DWORD m_dwBars; // WS_VSCROLL and WS_HSCROLL as the host gave them
    bool m_fOwnStyle = false;
};
