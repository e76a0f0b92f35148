#include <gesso/framework/Colors.h>

namespace gesso {

COLORREF ColorOf(Color color)
{
    switch (color) {
    case Color::LayoutOverlay: return RGB(0xFF, 0x00, 0xFF);
    case Color::FieldText: return RGB(0x00, 0x00, 0x00);
    case Color::FieldDisabledText: return RGB(0x6D, 0x6D, 0x6D);
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

} // namespace gesso
