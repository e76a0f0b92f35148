#include <gesso/access/AccessibleThing.h>
#include <gesso/containers/Index.h>
#include <gesso/containers/StringOf.h>
#include <gesso/framework/Frame.h>

namespace gesso {

HRESULT AccessibleThing::Check() const
{
    if (!m_link->IsOfThisThread()) {
        return RPC_E_WRONG_THREAD;
    }
    if (!m_link->Control()) {
        return CO_E_OBJNOTCONNECTED;
    }
    return m_pSide->Has(Control(), m_id) ? S_OK : E_INVALIDARG;
}

bool AccessibleThing::operator==(const AccessibleThing& other) const
{
    return &*m_link == &*other.m_link && m_pSide == other.m_pSide && m_id == other.m_id;
}

// --- Texts

AccessString AccessibleThing::OwnName() const
{
    AccessString strName = m_pSide->NameOf(Control(), m_id);
    const bool fByLabel = m_id == WHOLE && !strName.GetLength() && m_pSide->TakesLabel();
    return fByLabel ? LabelBefore(Window()).name : strName;
}

AccessString AccessibleThing::OwnDescription() const
{
    return m_pSide->DescriptionOf(Control(), m_id);
}

AccessString AccessibleThing::OwnValue() const
{
    return m_pSide->ValueOf(Control(), m_id);
}

// A control counts as child 0, and its items as they do for the control; -1 for what is below those.
int AccessibleThing::ChildNumber() const
{
    if (m_id == WHOLE) {
        return 0;
    }
    const UINT nIndex = m_pSide->IndexOf(Control(), WHOLE, m_id);
    return nIndex == NO_INDEX ? -1 : static_cast<int>(nIndex) + 1;
}

// Each of the texts may be the host's to give, who may end the control when it is asked.
AccessibleThing::Texts AccessibleThing::TextsBy(const AccessibleLink::Words& words) const
{
    const bool fWhole = m_id == WHOLE;
    Texts texts;
    texts.name = fWhole && words.fName ? words.name : OwnName();
    if (Check() == S_OK) {
        texts.description = fWhole && words.fDescription ? words.description : OwnDescription();
    }
    if (Check() == S_OK) {
        texts.value = OwnValue();
    }
    const int nChild = Check() == S_OK ? ChildNumber() : -1;
    if (nChild < 0) {
        return texts;
    }
    AccessibleText text{GetRole(), texts.name, texts.description, texts.value};
    if (!words.pfnDescribe(Window(), nChild, &text, words.pContext)) {
        return texts;
    }
    return {StringOf(text.name), StringOf(text.description), StringOf(text.value)};
}

AccessString AccessibleThing::Name() const
{
    const auto words = m_link->WordsOf();
    if (words && words->pfnDescribe) {
        return TextsBy(*words).name;
    }
    return words && words->fName && m_id == WHOLE ? words->name : OwnName();
}

AccessString AccessibleThing::Description() const
{
    const auto words = m_link->WordsOf();
    if (words && words->pfnDescribe) {
        return TextsBy(*words).description;
    }
    return words && words->fDescription && m_id == WHOLE ? words->description : OwnDescription();
}

AccessString AccessibleThing::Value() const
{
    const auto words = m_link->WordsOf();
    return words && words->pfnDescribe ? TextsBy(*words).value : OwnValue();
}

AccessString AccessibleThing::Shortcut() const
{
    const GWnd& wnd = Control();
    AccessString strOwn = m_pSide->ShortcutOf(wnd, m_id);
    const bool fByLabel = m_id == WHOLE && !strOwn.GetLength() && m_pSide->TakesLabel() &&
                          !m_pSide->NameOf(wnd, m_id).GetLength();
    return fByLabel ? LabelBefore(Window()).shortcut : strOwn;
}

// --- State and place

UINT AccessibleThing::State() const
{
    return m_pSide->StateOf(Control(), m_id);
}

RECT AccessibleThing::Rect() const
{
    RECT rc{};
    if (m_id == WHOLE) {
        GetWindowRect(Window(), &rc);
        return rc;
    }
    rc = m_pSide->RectOf(Control(), m_id);
    if (IsRectEmpty(&rc)) {
        return {};
    }
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

AccessibleId AccessibleThing::IdAt(POINT ptScreen) const
{
    ScreenToClient(Window(), &ptScreen);
    return m_pSide->HitTest(Control(), ptScreen);
}

// --- Actions

// To be asked again after whatever may ask the host, who may end the control then.
bool AccessibleThing::IsEnabled() const
{
    const bool fEnabled =
        Check() == S_OK && IsWindowEnabled(Window()) && !(State() & STATE_SYSTEM_UNAVAILABLE);
    return fEnabled && Check() == S_OK;
}

bool AccessibleThing::Act() const
{
    return IsEnabled() && Action() != AccessibleAction::None && Check() == S_OK &&
           m_pSide->Act(Control(), m_id);
}

bool AccessibleThing::Focus() const
{
    return IsEnabled() && m_pSide->Focus(Control(), m_id);
}

bool AccessibleThing::Choose(AccessibleChoice choice) const
{
    return IsEnabled() && m_pSide->Choose(Control(), m_id, choice);
}

bool AccessibleThing::Open(bool fOpen) const
{
    return IsEnabled() && m_pSide->Open(Control(), m_id, fOpen);
}

bool AccessibleThing::Show() const
{
    return IsEnabled() && m_pSide->Show(Control(), m_id);
}

bool AccessibleThing::SetValue(LPCWSTR pszValue) const
{
    return IsEnabled() && m_pSide->SetValue(Control(), m_id, pszValue ? pszValue : L"");
}

} // namespace gesso
