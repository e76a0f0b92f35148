#include <gesso/framework/Colors.h>

namespace gesso {

COLORREF ColorOf(Color color)
{
    switch (color) {
    case Color::LayoutOverlay: return RGB(0xFF, 0x00, 0xFF);
    case Color::FieldText: return RGB(0x00, 0x00, 0x00);
    case Color::FieldDisabledText: return RGB(0x6D, 0x6D, 0x6D);
    case Color::FieldSelection: return RGB(0xAD, 0xD6, 0xFF);

    case Color::TreeBackground: return RGB(0xFF, 0xFF, 0xFF);
    case Color::NavigationHeaderText: return RGB(0x5C, 0x5C, 0x5C);
    case Color::NavigationLine: return RGB(0xE5, 0xE5, 0xE5);

    case Color::RibbonActiveLine: return RGB(0xDB, 0xDB, 0xDB);
    case Color::RibbonActiveFill: return RGB(0xF6, 0xF6, 0xF6);
    case Color::RibbonHotLine: return RGB(0xEB, 0xEB, 0xEB);
    case Color::RibbonHotFill: return RGB(0xFD, 0xFD, 0xFD);
    case Color::RibbonPageLine: return RGB(0xE4, 0xE4, 0xE4);
    case Color::RibbonGroupTitle: return RGB(0x76, 0x76, 0x76);
    case Color::RibbonItemText: return RGB(0x00, 0x00, 0x00);
    case Color::RibbonAfterPage: return RGB(0x00, 0x00, 0x00);
    case Color::ValueMenuFill: return RGB(0xFF, 0xFF, 0xFF);
    case Color::ValueMenuHotFill: return RGB(0xFF, 0xC8, 0x8C);

    case Color::CertText: return RGB(0x00, 0x00, 0x00);
    case Color::CertSecureText: return RGB(0xFF, 0xFF, 0xFF);
    case Color::CertSecureLeft: return RGB(0x00, 0x38, 0x6D);
    case Color::CertSecureRight: return RGB(0x10, 0x75, 0x99);
    case Color::CertUntrustedText: return RGB(0x00, 0x00, 0x00);
    case Color::CertUntrustedLeft: return RGB(0xF2, 0xB1, 0x00);
    case Color::CertUntrustedRight: return RGB(0xFE, 0xCD, 0x48);
    case Color::CertInvalidText: return RGB(0xFF, 0xFF, 0xFF);
    case Color::CertInvalidLeft: return RGB(0xAE, 0x00, 0x00);
    case Color::CertInvalidRight: return RGB(0xE2, 0x00, 0x00);
    case Color::ListText: return RGB(0x00, 0x00, 0x00);
    case Color::ListTileCaption: return RGB(0x76, 0x76, 0x76);
    }
    return CLR_INVALID;
}

COLORREF SystemColor(int nIndex)
{
    return GetSysColor(nIndex);
}

HBRUSH SystemBrush(int nIndex)
{
    return GetSysColorBrush(nIndex);
}

HBRUSH DialogBrush()
{
    return static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

} // namespace gesso
