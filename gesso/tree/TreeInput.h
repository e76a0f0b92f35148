// How a tree answers messages: the pointer, scrolling, and what is left of the window procedure. Alike in
// both trees; where their rules part stands in TreeRules.h.
#pragma once

#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ExplorerStyle.h>
#include <gesso/framework/FlatPart.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ScrollSteps.h>
#include <gesso/tree/RowGeometry.h>
#include <gesso/tree/TreeActions.h>

#include <algorithm>
#include <climits>
#include <utility>

namespace gesso {

// A friend of the classes, whose own members it calls.
struct TreeInput
{
    // --- Scrolling

    template <class CONTROL> static void ScrollTo(CONTROL& tree, int nBar, int64_t nPos)
    {
        const auto nLimited = static_cast<int>(std::clamp<int64_t>(nPos, INT_MIN, INT_MAX));
        tree.GWndScroll::SetScrollPos(nBar, nLimited, 1);
        TreeActions::PlaceEdit(tree);
    }

    // False where there is nothing to do.
    template <class CONTROL>
    static bool ScrollRowIntoView(CONTROL& tree, UINT row, bool fFromAbove, bool fFromBelow)
    {
        const RowPlace place = tree.PlaceOf(row);
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
        // Most rows of children that are only counted stand beyond what the message's 16 bits lead to.
        const UINT nThumb = tree.m_aVisible.Inside().rows.HasRuns() ? TrackedPos(tree.m_siV, nPos)
                                                                    : TrackedPos(tree, tree.m_siV, nPos);
        if (const auto nTarget = ScrollTarget(tree.m_siV, uCode, nThumb, nLine); nTarget && fKnown) {
            ScrollTo(tree, SB_VERT, *nTarget);
        }
        tree.Invalidate(0);
        TreeActions::TellScrolled(tree);
        return 0;
    }

    template <class CONTROL> static LRESULT OnMouseWheel(CONTROL& tree, int nDelta)
    {
        const auto nTarget = WheelTarget(tree, tree.m_siV, nDelta);
        if (!nTarget) {
            return 0;
        }
        ScrollTo(tree, SB_VERT, *nTarget);
        if (Frame::State(tree) & GWS_TRACKING) {
            if (!AskAt(tree, tree.m_hitMove.pt)) {
                return 0;
            }
            ChangeHot(tree, HotAt(tree, tree.m_hitMove.pt));
        }
        TreeActions::RedrawAll(tree);
        TreeActions::TellScrolled(tree);
        return 0;
    }

    // --- The pointer

    // Of the row at a point of the client area, where points hit rows. False where there is nothing to go on
    // with.
    template <class CONTROL> static bool AskAt(CONTROL& tree, POINTS pt)
    {
        if constexpr (requires { tree.AskForRow(NO_INDEX); }) {
            RECT rc{};
            if (tree.m_aVisible.Inside().rows.HasRuns() && GetClientRect(tree.m_hWnd, &rc) && pt.x >= 0 &&
                pt.y >= 0 && pt.x <= rc.right && pt.y <= rc.bottom)
            {
                return tree.AskForRow(tree.RowAt(pt.y));
            }
        }
        return true;
    }

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

    // --- Type-ahead

    template <class CONTROL> static LRESULT OnTyped(CONTROL& tree, wchar_t c)
    {
        auto& typed = tree.m_aVisible.Inside().typed;
        if (!typed.Add(c)) {
            return 0;
        }
        const auto textOf = [&](UINT row) -> LPCWSTR {
            const bool fSelectable = tree.SelectableFrom(row, true) == row;
            return fSelectable ? static_cast<LPCWSTR>(tree.m_aVisible[row]->strName) : nullptr;
        };
        const UINT row = tree.m_aVisible.Inside().rows.HasRuns()
                             ? FindAmongKnown(tree, textOf)
                             : typed.Find(tree.m_nSelected, tree.m_aVisible.GetLength(), textOf);
        if (row != NO_INDEX) {
            tree.View().SelectRow(row);
            tree.EnsureVisible(row);
            TreeActions::RedrawAll(tree);
            if (TreeActions::TellSelection(tree)) {
                TreeActions::TellScrolled(tree);
            }
        }
        return 0;
    }

    // The same where rows are not all known: those that are not have no text, and are not counted through.
    template <class CONTROL, class TEXT_OF> static UINT FindAmongKnown(CONTROL& tree, TEXT_OF textOf)
    {
        const auto& inside = tree.m_aVisible.Inside();
        const auto find = [&](UINT row, UINT rowEnd) {
            while ((row = inside.rows.NextKnown(row)) < rowEnd &&
                   inside.typed.Find(0, 1, [&](UINT) { return textOf(row); }) != 0)
            {
                ++row;
            }
            return row < rowEnd ? row : NO_INDEX;
        };
        const UINT rowFirst = inside.typed.First(tree.m_nSelected, tree.m_aVisible.GetLength());
        const UINT row = find(rowFirst, NO_INDEX);
        return row != NO_INDEX ? row : find(0, rowFirst);
    }

    // A key that is none of a word's ends the word. Whether it is a blank that goes on with one.
    template <class CONTROL> static bool GoesOnWithWord(CONTROL& tree, UINT uKey)
    {
        auto& typed = tree.m_aVisible.Inside().typed;
        if (uKey == VK_SPACE && typed.IsUnderWay()) {
            return true;
        }
        if (uKey == VK_RETURN || (uKey >= VK_PRIOR && uKey <= VK_DOWN)) {
            typed.Forget();
        }
        return false;
    }

    // --- The right button

    // A press selects the item under the pointer at once, and the release tells of it, unless the press began
    // elsewhere: then the item is the one of the release.
    template <class CONTROL> static LRESULT OnRButtonDown(CONTROL& tree, POINTS pt)
    {
        const Watch watch(tree);
        SetFocus(tree.m_hWnd);
        if (watch) {
            SelectUnder(tree, tree.SelectableAt(pt));
        }
        return 0;
    }

    template <class CONTROL> static LRESULT OnRButtonDblClk(CONTROL& tree, POINTS pt)
    {
        const UINT row = tree.SelectableAt(pt);
        auto* item = tree.m_aVisible[row];
        const auto hold = tree.View().Hold(item);
        const Watch watch(tree);
        OnRButtonDown(tree, pt);
        if (watch) {
            SendRightClick(tree, static_cast<UINT>(NM_RDBLCLK), item, row, pt);
        }
        return 0;
    }

    // The platform's handling of the release asks for the context menu.
    template <class CONTROL> static LRESULT OnRButtonUp(CONTROL& tree, WPARAM wParam, LPARAM lParam)
    {
        const HWND hwnd = tree.m_hWnd;
        const POINTS pt = PointOf(lParam);
        const UINT row = tree.SelectableAt(pt);
        auto* item = tree.m_aVisible[row];
        const auto hold = tree.View().Hold(item);
        const Watch watch(tree);
        if (!SelectUnder(tree, row)) {
            return 0;
        }
        const LRESULT lAnswer = SendRightClick(tree, static_cast<UINT>(NM_RCLICK), item, row, pt);
        return watch && lAnswer == 0 ? Frame::Default(hwnd, WM_RBUTTONUP, wParam, lParam) : 0;
    }

    template <class CONTROL>
    static LRESULT OnRightButton(CONTROL& tree, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (Has(tree, Quirk::TreeRightClickIsSilent)) {
            return Frame::Default(tree, uMsg, wParam, lParam);
        }
        switch (uMsg) {
        case WM_RBUTTONDOWN: return OnRButtonDown(tree, PointOf(lParam));
        case WM_RBUTTONDBLCLK: return OnRButtonDblClk(tree, PointOf(lParam));
        default: return OnRButtonUp(tree, wParam, lParam);
        }
    }

    // --- Coming to life and going

    template <class CONTROL> static LRESULT OnNcCreate(CONTROL& tree, const CREATESTRUCTW* pcs)
    {
        TakeExplorerStyle(tree.m_hWnd);
        tree.GWndScroll::OnNcCreate(pcs);
        Frame::SetState(tree, Frame::FirstState(tree));
        tree.m_hTheme.Open(tree.m_hWnd);
        StartAnew(tree);
        return 1;
    }

    // What a former window and its user have left.
    template <class CONTROL> static void StartAnew(CONTROL& tree)
    {
        auto& inside = tree.m_aVisible.Inside();
        if (std::exchange(inside.fHadWindow, true) && !Has(tree, Quirk::StateOutlivesWindow)) {
            tree.m_hitDown.nItem = tree.m_hitMove.nItem = NO_INDEX;
            tree.m_hitDown.nPart = tree.m_hitMove.nPart = 0;
            tree.View().ChangeSelection(nullptr, NO_INDEX);
        }
        inside.pToldSelection = tree.m_pSelected;
        TreeActions::HearAsItIs(tree);
    }

    template <class CONTROL> static LRESULT OnNcDestroy(CONTROL& tree)
    {
        tree.GWndScroll::OnNcDestroy();
        tree.m_hTheme.Close();
        return Frame::Detach(tree);
    }

    // Around the selected row, or the client area where there is none: what has the focus, and in Contrast
    // what is disabled. In Light nothing shows it, and in Dark a selected row does by itself.
    template <class CONTROL>
    static void DrawEdges(const CONTROL& tree, HDC hdc, const RECT& rcClient, const RECT& rcSelected)
    {
        if (!IsDrawnFlat()) {
            return;
        }
        const bool fSelected = tree.m_nSelected != NO_INDEX;
        if (Frame::Style(tree) & WS_DISABLED) {
            DrawDisabledEdge(tree.m_hWnd, hdc, rcClient);
        } else if (GetFocus() == tree.m_hWnd && !(tree.m_dwState & GWS_HIDEFOCUS) &&
                   (IsContrast() || !fSelected)) {
            DrawFocusFrame(tree.m_hWnd, hdc, fSelected ? rcSelected : rcClient,
                           ColorOf(fSelected ? ColorRole::SelectionText : ColorRole::WindowText));
        }
    }

    template <class CONTROL> static void NcDraw(CONTROL& tree, HDC hdc, const RECT& rc)
    {
        tree.m_hTheme.Items().DrawBackground(tree.m_hWnd, hdc, rc);
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
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_RBUTTONUP: return OnRightButton(tree, uMsg, wParam, lParam);
        case WM_CAPTURECHANGED: return tree.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
        case WM_MOUSEWHEEL: return tree.OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
        case WM_VSCROLL:
            return tree.OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        default: return Frame::Default(tree, uMsg, wParam, lParam);
        }
    }

    // What a tree says of itself to those who do not see it (TreeSide.h).
    template <class CONTROL> class Side;

private:
    // False where there is nothing to go on with.
    template <class CONTROL> static bool SelectUnder(CONTROL& tree, UINT row)
    {
        if (row != NO_INDEX) {
            tree.View().SelectRow(row);
        }
        return TreeActions::TellSelection(tree);
    }

    // Of no item, or of one that is still there.
    template <class CONTROL, class ITEM>
    static LRESULT SendRightClick(CONTROL& tree, UINT uCode, ITEM* item, UINT rowFormer, POINTS pt)
    {
        const UINT row = tree.m_aVisible[rowFormer] == item ? rowFormer : tree.View().FindRow(item);
        return TreeActions::SendItem(tree, uCode, row, 0, pt.x, pt.y);
    }
};

} // namespace gesso
