#include <gesso/dialogs/CertContent.h>
#include <gesso/dialogs/DialogAccess.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/dialogs/GWndCertFailure.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/framework/Metrics.h>

#include <iterator>
#include <utility>

using gesso::AccessibleId;
using gesso::AccessString;
using gesso::AddPainted;
using gesso::PaintedPart;

namespace gesso {
namespace {

struct IconName
{
    WORD wId; // of the system's icon
    LPCWSTR pszName;
};
constexpr IconName ICON_NAMES[] = {{32513, L"error"},
                                   {32514, L"question"},
                                   {32515, L"warning"},
                                   {32516, L"information"},
                                   {32518, L"shield"}};

LPCWSTR NameOfId(LPCWSTR pszIcon)
{
    for (const IconName& icon : ICON_NAMES) {
        if (pszIcon == MAKEINTRESOURCEW(icon.wId)) {
            return icon.pszName;
        }
    }
    return L"";
}

// The icons of the messages that this thread shows.
constinit thread_local const NamedIcon* s_pInnermost = nullptr;

RECT RectOfIcon(HWND hDlg, POINT pt)
{
    return {pt.x, pt.y, pt.x + SystemMetric(hDlg, SM_CXICON), pt.y + SystemMetric(hDlg, SM_CYICON)};
}

} // namespace

NamedIcon::NamedIcon(HICON hIcon, LPCWSTR pszIcon)
    : m_hIcon(hIcon), m_pszIcon(pszIcon), m_pOuter(std::exchange(s_pInnermost, this))
{}

NamedIcon::~NamedIcon()
{
    s_pInnermost = m_pOuter;
}

LPCWSTR NamedIcon::NameOf(HICON hIcon)
{
    for (const NamedIcon* p = s_pInnermost; p; p = p->m_pOuter) {
        if (p->m_hIcon == hIcon) {
            return NameOfId(p->m_pszIcon);
        }
    }
    return L"";
}

void AddPainted(std::vector<PaintedPart>& parts, LPCWSTR pszText, const RECT& rc)
{
    if (pszText && *pszText) {
        parts.push_back({Role::StaticText, AccessString::Build(L"%s", pszText), rc});
    }
}

void AddPainted(std::vector<PaintedPart>& parts, LPCWSTR pszIcon, HWND hDlg, POINT pt)
{
    parts.push_back({Role::Graphic, AccessString::Build(L"%s", pszIcon), RectOfIcon(hDlg, pt)});
}

} // namespace gesso

// --- The task dialog

class GTaskDialog::Access final : public gesso::DialogSide<GTaskDialog>
{
public:
    AccessString DescriptionOf(const GWnd& wnd, AccessibleId id) const override
    {
        const bool fWhole = id == gesso::WHOLE && Of(wnd).m_pszMainInstruction;
        return AccessString::Build(L"%s", fWhole ? Of(wnd).m_pszMainInstruction : L"");
    }

private:
    std::vector<PaintedPart> PartsOf(const GTaskDialog& dialog) const override
    {
        std::vector<PaintedPart> parts;
        if (const HICON hIcon = dialog.m_pConfig->hMainIcon) {
            AddPainted(parts, gesso::NamedIcon::NameOf(hIcon), dialog.m_hWnd,
                       {dialog.m_rcIcon.left, dialog.m_rcIcon.top});
        }
        AddPainted(parts, dialog.m_pszMainInstruction, dialog.m_rcMainInstruction);
        AddPainted(parts, dialog.m_pszContent, dialog.m_rcContent);
        return parts;
    }
};

const gesso::AccessibleSide& GTaskDialog::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// --- The message dialog of Modern

namespace gesso {

class MessageDialog::Access final : public DialogSide<MessageDialog>
{
public:
    AccessString DescriptionOf(const GWnd& wnd, AccessibleId id) const override
    {
        const LPCWSTR pszInstruction = Of(wnd).m_content.pszInstruction;
        return AccessString::Build(L"%s", id == WHOLE && pszInstruction ? pszInstruction : L"");
    }

private:
    std::vector<PaintedPart> PartsOf(const MessageDialog& dialog) const override
    {
        const auto scrolled = [&dialog](RECT rc) {
            OffsetRect(&rc, 0, -dialog.m_nPosition);
            return rc;
        };
        std::vector<PaintedPart> parts;
        if (const HICON hIcon = dialog.m_content.hIcon) {
            AddPainted(parts, NamedIcon::NameOf(hIcon), dialog.m_hWnd,
                       {dialog.m_ptIcon.x, dialog.m_ptIcon.y - dialog.m_nPosition});
        }
        AddPainted(parts, dialog.m_content.pszInstruction, scrolled(dialog.m_rcInstruction));
        AddPainted(parts, dialog.m_content.pszContent, scrolled(dialog.m_rcContent));
        return parts;
    }
};

const AccessibleSide& MessageDialog::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

} // namespace gesso

// --- The wizard's frame, which paints nothing to read

class GWizard::Access final : public gesso::DialogSide<GWizard>
{
    std::vector<PaintedPart> PartsOf(const GWizard&) const override { return {}; }
};

const gesso::AccessibleSide& GWizard::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// --- The certificate dialog

class GWndCertFailure::Access final : public gesso::DialogSide<GWndCertFailure>
{
public:
    AccessString DescriptionOf(const GWnd& wnd, AccessibleId id) const override
    {
        return AccessString::Build(L"%s", id == gesso::WHOLE ? gesso::TextOf(SeverityOf(wnd).header) : L"");
    }

private:
    static const gesso::CertSeverity& SeverityOf(const GWnd& wnd)
    {
        return gesso::SeverityOf(Of(wnd).m_pConfig->dwType);
    }

    // The icons beside the lines say what the lines say.
    std::vector<PaintedPart> PartsOf(const GWndCertFailure& dialog) const override
    {
        constexpr LPCWSTR NAMES[] = {L"information", L"warning", L"error"};
        std::vector<PaintedPart> parts;
        for (UINT n = 0; n < dialog.m_aElements.GetLength(); ++n) {
            const auto& element = *static_cast<const CertElement*>(dialog.m_aElements[n]);
            if (element.uKind == gesso::KIND_TEXT) {
                AddPainted(parts, element.text.psz, element.text.rc);
            } else if (IsMainIcon(dialog, n)) {
                const size_t nSeverity = std::min<size_t>(dialog.m_pConfig->dwType, std::size(NAMES) - 1);
                AddPainted(parts, NAMES[nSeverity], dialog.m_hWnd, {element.icon.x, element.icon.y});
            }
        }
        return parts;
    }

    // The first one stands in the header.
    static bool IsMainIcon(const GWndCertFailure& dialog, UINT nElement)
    {
        for (UINT n = 0; n < nElement; ++n) {
            if (static_cast<const CertElement*>(dialog.m_aElements[n])->uKind == gesso::KIND_ICON) {
                return false;
            }
        }
        return true;
    }
};

const gesso::AccessibleSide& GWndCertFailure::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
