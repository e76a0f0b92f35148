// The texts of a combo box that was made in Modern, in its face and its rows: in visual order, and in the
// fonts that they need.
#pragma once

#include <gesso/api.h>

#include <string>
#include <unordered_map>

namespace gesso {

// Those that were drawn last stay prepared, by what they say: a list that is painted again prepares nothing.
class ComboTexts
{
public:
    ComboTexts() = default;
    ~ComboTexts() { Forget(); }
    ComboTexts(const ComboTexts&) = delete;
    ComboTexts& operator=(const ComboTexts&) = delete;

    // One line, in the context's font, which is that of all of them. uFormat may be DT_VCENTER; what does not
    // fit is cut off at the right.
    void Draw(HDC hdc, LPCWSTR psz, const RECT& rc, COLORREF cr, UINT uFormat = 0);
    // There is another font.
    void Forget();

private:
    using Texts = std::unordered_map<std::u16string, void*>; // by the format and the text

    static void Release(Texts& texts);
    void* Get(HDC hdc, LPCWSTR psz, UINT uFormat);

    Texts m_young;
    Texts m_old; // that were not drawn since there were too many
};

// In pixels.
int ComboTextWidth(HDC hdc, LPCWSTR psz);

} // namespace gesso
