// Dialog templates built in memory, as a resource compiler would lay them out.
#pragma once

#include <platform/platform.h>

#include <span>
#include <vector>

namespace test {

class DialogTemplate
{
public:
    // An extended template (DLGTEMPLATEEX) of a popup dialog; sizes in dialog units.
    DialogTemplate(DWORD dwStyle, SHORT cx, SHORT cy);

    // Adds a control of a named class, with creation data that holds the text, as a library control wants it.
    DialogTemplate& Add(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx, SHORT cy,
                        LPCWSTR pszText);
    // The same without creation data.
    DialogTemplate& AddBare(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx,
                            SHORT cy);

    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }
    std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(m_words)); }

private:
    void Word(WORD w) { m_words.push_back(w); }
    void Double(DWORD dw);
    void Text(LPCWSTR psz);
    void Item(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx, SHORT cy);

    std::vector<WORD> m_words;
};

} // namespace test
