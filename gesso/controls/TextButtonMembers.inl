// The members by which GButton, GCheckBox and GRadioButton come to life alike: with one text, the default
// font and the "BUTTON" theme. Included where the class is named `Control`.

#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>

HWND Control::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwExStyle,
                     DWORD dwStyle)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    return gesso::Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                                      dwExStyle, dwStyle);
}

void Control::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

LRESULT Control::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = gesso::Frame::FIRST_STATE;
    m_hTheme.Reset(OpenThemeData(m_hWnd, L"BUTTON"));
    m_hFont = g_hDefaultFont;
    return 0;
}

LRESULT Control::OnDestroy()
{
    m_hTheme.Reset();
    m_pszText.Reset();
    return gesso::Frame::Detach(*this);
}

LRESULT Control::OnThemeChanged()
{
    return gesso::Frame::OnThemeChanged(*this, m_hTheme, L"BUTTON");
}
