// The fonts that show what another one lacks, in its size and manner: made when a text first needs one, and
// shared by all texts of the process that do. Those that were used last are kept for a while without a text.
#pragma once

#include <gesso/api.h>

#include <span>
#include <utility>

struct stcDrawTextBuffer;

namespace gesso {

enum class Told
{
    No,
    Yes,
    Nothing // the platform failed
};

// The font of a context, as another one has to be like.
struct BaseFont
{
    LOGFONTW log;
    TEXTMETRICW metrics;
    WCHAR szFace[LF_FACESIZE]; // of the font that is really there

    // False if the context does not tell.
    bool Read(HDC hdc);
    // Whether its characters are letters, and not signs in their places.
    bool HasLetters() const { return metrics.tmCharSet != SYMBOL_CHARSET; }
    // Whether the glyph that stands for what it lacks stands for nothing else. In a font of bitmaps it is
    // that of some character.
    bool TellsOfMissing() const { return metrics.tmPitchAndFamily & (TMPF_VECTOR | TMPF_TRUETYPE); }
};

class RunFont;

// A share in such a font, or none.
class RunFontRef
{
public:
    RunFontRef() = default;
    // Takes over a share that has been counted.
    explicit RunFontRef(RunFont* pFont) : m_pFont(pFont) {}
    RunFontRef(const RunFontRef& other);
    static RunFontRef Share(RunFont* pFont);
    RunFontRef(RunFontRef&& other) noexcept : m_pFont(std::exchange(other.m_pFont, nullptr)) {}
    RunFontRef& operator=(RunFontRef other)
    {
        std::swap(m_pFont, other.m_pFont);
        return *this;
    }
    ~RunFontRef();

    RunFont* Get() const { return m_pFont; }
    RunFont* Release() { return std::exchange(m_pFont, nullptr); }
    explicit operator bool() const { return m_pFont; }

private:
    RunFont* m_pFont = nullptr;
};

// Gives the font of a face, in a size that a line of the base font has room for. No if there is no such size.
Told OpenRunFont(HDC hdc, const BaseFont& base, LPCWSTR pszFace, RunFontRef* pFont);
// Ends those that no text uses. The others stay with their texts, and no other text gets them.
void ForgetRunFonts();
// Counts those calls.
LONG RunFontGeneration();

// A font, selected for as long as it is used. Nobody else uses it meanwhile, since its cache is one for all.
class RunFontScope
{
public:
    RunFontScope(HDC hdc, RunFont& font);
    ~RunFontScope();
    RunFontScope(const RunFontScope&) = delete;
    RunFontScope& operator=(const RunFontScope&) = delete;

    bool IsSelected() const { return m_hFormer; }
    SCRIPT_CACHE& Cache() const;
    // From where a line in the base font is painted to where it is in this one, so that they stand on one
    // line: of the point that the context aligns, and in its logical units.
    int Drop() const;
    // The glyph that stands for what this font lacks.
    WORD DefaultGlyph() const;

private:
    HDC m_hdc;
    RunFont& m_font;
    HGDIOBJ m_hFormer;
};

// The font of one item of a text; null for that of the context.
RunFont* FontOfItem(const stcDrawTextBuffer& buffer, UINT nItem);
// The fonts of all items, as the buffer holds them behind its arrays; empty where all are the context's.
std::span<RunFont* const> FontsOf(const stcDrawTextBuffer& buffer);

} // namespace gesso
