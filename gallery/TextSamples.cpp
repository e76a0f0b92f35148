#include <gallery/Scale.h>
#include <gallery/TextSamples.h>

#include <string_view>

namespace gallery {
namespace {

constexpr int FONT_HEIGHT = -14;

bool HasCharacters(HDC hdc, std::wstring_view text)
{
    std::vector<WORD> glyphs(text.size());
    GetGlyphIndicesW(hdc, text.data(), static_cast<int>(text.size()), glyphs.data(),
                     GGI_MARK_NONEXISTING_GLYPHS);
    for (const WORD glyph : glyphs) {
        if (glyph == 0xFFFF) {
            return false;
        }
    }
    return true;
}

// Glyphs outside the first plane cannot be asked for: for them the face's name must do.
bool HasSurrogates(std::wstring_view text)
{
    return text.find_first_of(L"\xD83C\xD83D\xD83E") != text.npos;
}

bool Serves(HDC hdc, HFONT hFont, LPCWSTR pszFace, std::wstring_view text)
{
    const HGDIOBJ hFormer = SelectObject(hdc, hFont);
    wchar_t szFace[LF_FACESIZE] = {};
    GetTextFaceW(hdc, LF_FACESIZE, szFace);
    const bool fServes =
        HasSurrogates(text) ? std::wstring_view(szFace) == pszFace : HasCharacters(hdc, text);
    SelectObject(hdc, hFormer);
    return fServes;
}

} // namespace

const std::vector<TextSample>& TextSamples()
{
    static const std::vector<TextSample> s_samples = {
        {L"Latin",
         L"Cre\u0300me bru\u0302le\u0301e in A\u030Angstro\u0308m\u2019s cafe\u0301, with marks that combine",
         {L"Segoe UI", L"Noto Sans"}},
        {L"Cyrillic", L"Съешь же ещё этих мягких французских булок, да выпей чаю", {L"Segoe UI"}},
        {L"Greek", L"Ξεσκεπάζω την ψυχοφθόρα βδελυγμία", {L"Segoe UI"}},
        {L"Hebrew", L"דג סקרן שט בים מאוכזב", {L"Segoe UI", L"Noto Sans Hebrew"}},
        {L"Arabic", L"نص حكيم له سر قاطع وذو شأن", {L"Segoe UI", L"Noto Sans Arabic"}},
        {L"Devanagari", L"ऋषियों को सताने वाले राक्षसों के राजा", {L"Nirmala UI", L"Noto Sans Devanagari"}},
        {L"Thai", L"เป็นมนุษย์สุดประเสริฐ เลิศคุณค่า น้ำใจ", {L"Leelawadee UI", L"Noto Sans Thai"}},
        {L"Japanese",
         L"いろはにほへと、散りぬるを。我が世誰ぞ、常ならむ。",
         {L"Yu Gothic UI", L"MS UI Gothic", L"VL PGothic"}},
        {L"Emoji",
         L"\U0001F600 \U0001F44D \u2708 \u2602 \U0001F3B5 \U0001F331",
         {L"Segoe UI Emoji", L"Symbola"}},
    };
    return s_samples;
}

HFONT MakeSampleFont(HDC hdc, const TextSample& sample)
{
    HFONT hFont = nullptr;
    for (const LPCWSTR pszFace : sample.faces) {
        if (hFont) {
            DeleteObject(hFont);
        }
        hFont = CreateFontW(Scaled(FONT_HEIGHT), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                            pszFace);
        if (Serves(hdc, hFont, pszFace, sample.pszText)) {
            break;
        }
    }
    return hFont;
}

} // namespace gallery
