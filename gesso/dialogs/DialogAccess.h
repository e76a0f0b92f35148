// What the library's dialogs say of themselves: their caption, the instruction, and what they paint.
#pragma once

#include <gesso/access/AccessibleSide.h>
#include <gesso/access/WindowText.h>
#include <gesso/framework/Frame.h>

#include <vector>

namespace gesso {

// Something that a dialog paints itself.
struct PaintedPart
{
    Role role; // StaticText, or Graphic for an icon
    AccessString strName;
    RECT rc; // in the client area
};

// Tells, while a dialog runs, which of the system's icons (IDI_, null for none) an icon was loaded from.
class NamedIcon
{
public:
    NamedIcon(HICON hIcon, LPCWSTR pszIcon);
    ~NamedIcon();
    NamedIcon(const NamedIcon&) = delete;
    NamedIcon& operator=(const NamedIcon&) = delete;

    // "error", "warning", "information", "question" or "shield"; empty for any other icon.
    static LPCWSTR NameOf(HICON hIcon);

private:
    HICON m_hIcon;
    LPCWSTR m_pszIcon;
    const NamedIcon* m_pOuter;
};

// Their parts are few and collected anew at each question.
template <class DIALOG> class DialogSide : public SideOf<DIALOG>
{
public:
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE || (id.nKind == PART && id.nIndex < this->CountOf(wnd, WHOLE));
    }
    Role RoleOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? Role::Dialog : PartOf(wnd, id).role;
    }
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? TextOfWindow(Frame::Handle(wnd)) : PartOf(wnd, id).strName;
    }
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const UINT uState = this->StateOfWindow(Frame::Handle(wnd), id == WHOLE);
        return id == WHOLE ? uState : (uState & STATE_SYSTEM_INVISIBLE) | STATE_SYSTEM_READONLY;
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override { return PartOf(wnd, id).rc; }
    UINT CountOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE ? static_cast<UINT>(PartsOf(this->Of(wnd)).size()) : 0;
    }
    AccessibleId ChildOf(const GWnd&, AccessibleId, UINT nIndex) const override { return {PART, nIndex, 0}; }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        const std::vector<PaintedPart> parts = PartsOf(this->Of(wnd));
        for (UINT n = 0; n < parts.size(); ++n) {
            if (PtInRect(&parts[n].rc, pt)) {
                return {PART, n, 0};
            }
        }
        return WHOLE;
    }

protected:
    ~DialogSide() = default;
    // In the order of reading.
    virtual std::vector<PaintedPart> PartsOf(const DIALOG& dialog) const = 0;

private:
    static constexpr UINT PART = 1;
    PaintedPart PartOf(const GWnd& wnd, AccessibleId id) const
    {
        std::vector<PaintedPart> parts = PartsOf(this->Of(wnd));
        return id.nIndex < parts.size() ? parts[id.nIndex] : PaintedPart{};
    }
};

// Adds a text that shows; nothing for an empty one.
void AddPainted(std::vector<PaintedPart>& parts, LPCWSTR pszText, const RECT& rc);
// An icon by its name, as large as the system's icons are in the dialog.
void AddPainted(std::vector<PaintedPart>& parts, LPCWSTR pszIcon, HWND hDlg, POINT pt);

} // namespace gesso
