// How a tree answers messages: the pointer, scrolling, and what is left of the window procedure. Alike in
// both trees; where their rules part stands in TreeRules.h.
#pragma once

#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/tree/RowGeometry.h>
#include <gesso/tree/TreeActions.h>

#include <algorithm>
#include <climits>

namespace gesso {

// A friend of the classes, whose own members it calls.
struct TreeInput
{
    // --- Scrolling

    template <class CONTROL> static void ScrollTo(CONTROL& tree, int nBar, int64_t nPos)
    {
        const auto nLimited = static_cast<int>(std::clamp<int64_t>(nPos, INT_MIN, INT_MAX));
        tree.GWndScroll::SetScrollPos(nBar, nLimited, 1);
    }

    // By the height of an item, whatever height the rows have. False where there is nothing to do.
    template <class CONTROL>
    static bool ScrollRowIntoView(CONTROL& tree, UINT row, bool fFromAbove, bool fFromBelow)
    {
        const RowPlace place = EvenRows{tree.m_nItemHeight}.PlaceOf(row);
        const auto nPage = static_cast<int>(tree.m_siV.nPage);
        if (fFromAbove && place.nTop < tree.m_siV.nPos) {
            ScrollTo(tree, SB_VERT, place.nTop);
            return true;
        }
        if (fFromBelow && place.nBottom > int64_t{tree.m_siV.nPos} + nPage) {
            ScrollTo(tree, SB_VERT, place.nBottom - nPage);
            return true;
        }
        return false;
    }

    template <class CONTROL> static LRESULT OnVScroll(CONTROL& tree, UINT uCode, UINT nPos)
    {
        using Rules = typename CONTROL::Rules;
        const bool fKnown = uCode != SB_THUMBPOSITION || Rules::THUMB_POSITION_SCROLLS;
        const int64_t nLine = Rules::LINE_IS_FIXED ? Pixels(tree.m_hWnd, Metrics::TREE_SCROLL_LINE)
                                                   : int64_t{tree.m_nItemHeight};
        if (const auto nTarget = ScrollTarget(tree.m_siV, uCode, nPos, nLine); nTarget && fKnown) {
            ScrollTo(tree, SB_VERT, *nTarget);
        }
        tree.Invalidate(0);
        return 0;
    }

    template <class CONTROL> static LRESULT OnMouseWheel(CONTROL& tree, int nDelta)
    {
        const auto nTarget = WheelTarget(tree.m_hWnd, tree.m_siV, nDelta);
        if (!nTarget) {
            return 0;
        }
        ScrollTo(tree, SB_VERT, *nTarget);
        if (Frame::State(tree) & GWS_TRACKING) {
            ChangeHot(tree, HotAt(tree, tree.m_hitMove.pt));
        }
        TreeActions::RedrawAll(tree);
        return 0;
    }

    // --- The pointer

    // What the pointer is over at a point.
    template <class CONTROL> static typename CONTROL::HitTestInfo HotAt(const CONTROL& tree, POINTS pt)
    {
        auto hit = tree.m_hitMove;
        hit.pt = pt;
        tree.HitTest(&hit);
        return hit;
    }

    // The one place of what the pointer is over. Returns whether that is another row or part.
    template <class CONTROL> static bool ChangeHot(CONTROL& tree, const typename CONTROL::HitTestInfo& hit)
    {
        const bool fOther = hit.nItem != tree.m_hitMove.nItem || hit.nPart != tree.m_hitMove.nPart;
        tree.m_hitMove = hit;
        return fOther;
    }

    template <class CONTROL> static LRESULT OnLButtonDown(CONTROL& tree, POINTS pt)
    {
        if (TakePress(tree)) {
            tree.Invalidate(0);
            tree.m_hitDown.pt = pt;
            tree.HitTest(&tree.m_hitDown);
        }
        return 0;
    }

    // Fixed behaviour: GWS_HOT is set where the pointer is over nothing, and cleared over a row; derived
    // classes that read the bit would take the one for the other.
    template <class CONTROL> static LRESULT OnMouseMove(CONTROL& tree, POINTS pt)
    {
        if (Frame::State(tree) & GWS_NCPRESSED) {
            return tree.OnNcMouseMove(HTCLIENT, ToScreen(tree.m_hWnd, pt));
        }
        Frame::TrackLeave(tree);
        const auto hit = HotAt(tree, pt);
        Frame::ChangeState(tree, GWS_HOT, hit.nPart == 0);
        if (ChangeHot(tree, hit)) {
            tree.Invalidate(0);
        }
        return 0;
    }

    template <class CONTROL> static LRESULT OnMouseLeave(CONTROL& tree)
    {
        auto hit = tree.m_hitMove;
        hit.nItem = NO_INDEX;
        ChangeHot(tree, hit);
        return Frame::OnMouseLeave(tree);
    }

    // --- Coming to life and going

    template <class CONTROL> static LRESULT OnNcCreate(CONTROL& tree, const CREATESTRUCTW* pcs)
    {
        SetWindowTheme(tree.m_hWnd, L"explorer", nullptr);
        tree.GWndScroll::OnNcCreate(pcs);
        Frame::SetState(tree, Frame::FirstState(tree));
        tree.m_hTheme.Open(tree.m_hWnd);
        return 1;
    }

    template <class CONTROL> static LRESULT OnNcDestroy(CONTROL& tree)
    {
        tree.GWndScroll::OnNcDestroy();
        tree.m_hTheme.Close();
        return Frame::Detach(tree);
    }

    template <class CONTROL> static void NcDraw(CONTROL& tree, HDC hdc, const RECT& rc)
    {
        tree.m_hTheme.Items().DrawBackground(hdc, rc);
        tree.DrawScrollBar(hdc, Frame::Style(tree));
    }

    // --- Messages

    // What a class does not take for itself.
    template <class CONTROL> static LRESULT OnMessage(CONTROL& tree, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        const auto uHit = static_cast<UINT>(wParam);
        const POINTS pt = PointOf(lParam);
        const auto hwndOther = reinterpret_cast<HWND>(wParam);
        switch (uMsg) {
        case WM_CREATE: return tree.OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
        case WM_DESTROY: return tree.OnDestroy();
        case WM_NCDESTROY: return tree.OnNcDestroy();
        case WM_NCCALCSIZE:
            return tree.OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
        case WM_NCHITTEST: return tree.OnNcHitTest(pt);
        case WM_NCPAINT: return tree.OnNcPaint(wParam);
        case WM_NCMOUSEMOVE: return tree.OnNcMouseMove(uHit, pt);
        case WM_NCMOUSELEAVE: return tree.OnNcMouseLeave();
        case WM_NCLBUTTONDOWN: return tree.OnNcLButtonDown(uHit, pt);
        case WM_NCLBUTTONDBLCLK: return tree.OnNcLButtonDblClk(uHit, pt);
        case WM_NCLBUTTONUP: return tree.OnNcLButtonUp(uHit, pt);
        case WM_PAINT: return PaintControl(tree, tree.m_hWnd);
        case WM_ERASEBKGND: return 1;
        case WM_THEMECHANGED: return tree.OnThemeChanged();
        case WM_STYLECHANGED: return Frame::OnStyleChanged(tree);
        case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(tree, wParam, lParam);
        case WM_SETFONT: return tree.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
        case WM_GETFONT: return tree.OnGetFont();
        case WM_ENABLE: return tree.OnEnable(wParam != 0);
        case WM_SETFOCUS: return tree.OnSetFocus(hwndOther);
        case WM_KILLFOCUS: return tree.OnKillFocus(hwndOther);
        case WM_MOUSEMOVE: return tree.OnMouseMove(wParam, pt);
        case WM_MOUSELEAVE: return tree.OnMouseLeave();
        case WM_LBUTTONDOWN: return tree.OnLButtonDown(wParam, pt);
        case WM_LBUTTONUP: return tree.OnLButtonUp(wParam, pt);
        case WM_LBUTTONDBLCLK: return tree.OnLButtonDblClk(wParam, pt);
        case WM_CAPTURECHANGED: return tree.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
        case WM_MOUSEWHEEL: return tree.OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
        case WM_VSCROLL:
            return tree.OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        default: return Frame::Default(tree, uMsg, wParam, lParam);
        }
    }
};

} // namespace gesso
