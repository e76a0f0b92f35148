#include <gesso/text/ScriptFaces.h>

#include <algorithm>
#include <new>
#include <set>

namespace gesso {
namespace {

constexpr LPCWSTR LINKS_KEY = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink";

// --- The platform's fonts

constexpr size_t MOST_FACES = 4;

struct ScriptRow
{
    char32_t first;
    char32_t last;
    std::array<LPCWSTR, MOST_FACES> faces;
};

// Ideographs first, a row for each HanStyle. The rows behind them are in ascending order, and the last one is
// for all that is in no other.
constexpr size_t HAN_ROWS = 4;
constexpr ScriptRow ROWS[] = {
    {0x2E80, 0x9FFF, {L"Microsoft YaHei UI", L"Microsoft YaHei", L"SimSun", L"SimSun-ExtB"}},
    {0x2E80, 0x9FFF, {L"Yu Gothic UI", L"Meiryo UI", L"MS UI Gothic", L"MS Gothic"}},
    {0x2E80, 0x9FFF, {L"Malgun Gothic", L"Gulim", L"Batang"}},
    {0x2E80, 0x9FFF, {L"Microsoft JhengHei UI", L"Microsoft JhengHei", L"PMingLiU", L"MingLiU-ExtB"}},

    {0x0000, 0x052F, {L"Segoe UI", L"Tahoma", L"Arial", L"Segoe UI Symbol"}},
    {0x0530, 0x058F, {L"Segoe UI", L"Sylfaen"}},
    {0x0590, 0x06FF, {L"Segoe UI", L"Tahoma", L"Arial"}},
    {0x0700, 0x074F, {L"Segoe UI Historic", L"Estrangelo Edessa"}},
    {0x0750, 0x077F, {L"Segoe UI", L"Tahoma", L"Arial"}},
    {0x0780, 0x07BF, {L"MV Boli"}},
    {0x07C0, 0x07FF, {L"Ebrima"}},
    {0x0800, 0x08FF, {L"Segoe UI", L"Tahoma", L"Segoe UI Historic"}},
    {0x0900, 0x0DFF, {L"Nirmala UI", L"Mangal", L"Vrinda", L"Latha"}},
    {0x0E00, 0x0EFF, {L"Leelawadee UI", L"Leelawadee", L"Tahoma", L"Lao UI"}},
    {0x0F00, 0x0FFF, {L"Microsoft Himalaya"}},
    {0x1000, 0x109F, {L"Myanmar Text"}},
    {0x10A0, 0x10FF, {L"Segoe UI", L"Sylfaen"}},
    {0x1100, 0x11FF, {L"Malgun Gothic", L"Gulim"}},
    {0x1200, 0x139F, {L"Ebrima", L"Nyala"}},
    {0x13A0, 0x167F, {L"Gadugi", L"Plantagenet Cherokee", L"Euphemia"}},
    {0x1680, 0x16FF, {L"Segoe UI Historic", L"Segoe UI Symbol"}},
    {0x1780, 0x17FF, {L"Leelawadee UI", L"Khmer UI"}},
    {0x1800, 0x18AF, {L"Mongolian Baiti"}},
    {0x1950, 0x19FF, {L"Microsoft Tai Le", L"Microsoft New Tai Lue"}},
    {0x1E00, 0x1FFF, {L"Segoe UI", L"Tahoma", L"Arial"}},
    {0x2000, 0x2BFF, {L"Segoe UI Symbol", L"Segoe UI Emoji", L"Cambria Math"}},
    {0x2D30, 0x2D7F, {L"Ebrima"}},
    {0xA000, 0xA4CF, {L"Microsoft Yi Baiti"}},
    {0xA500, 0xA63F, {L"Ebrima"}},
    {0xA840, 0xA87F, {L"Microsoft PhagsPa"}},
    {0xA980, 0xA9DF, {L"Javanese Text"}},
    {0xAC00, 0xD7FF, {L"Malgun Gothic", L"Gulim"}},
    {0xFB1D, 0xFDFF, {L"Segoe UI", L"Tahoma", L"Arial"}},
    {0xFE70, 0xFEFF, {L"Segoe UI", L"Tahoma", L"Arial"}},
    {0x10000, 0x1CFFF, {L"Segoe UI Historic", L"Segoe UI Symbol"}},
    {0x1D000, 0x1DFFF, {L"Cambria Math", L"Segoe UI Symbol"}},
    {0x1F000, 0x1FBFF, {L"Segoe UI Emoji", L"Segoe UI Symbol"}},
    {0, 0x10FFFF, {L"Segoe UI", L"Segoe UI Symbol", L"Arial Unicode MS"}},
};

// Ideographs, and the letters and punctuation that go with them but have no row of their own.
bool IsEastAsian(char32_t c)
{
    return (c >= 0x2E80 && c <= 0x9FFF) || (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) ||
           (c >= 0xFF00 && c <= 0xFFEF) || (c >= 0x20000 && c <= 0x3FFFF);
}

using Name = std::span<const WCHAR>;

FaceName FaceOf(Name name)
{
    FaceName face{};
    std::copy_n(name.data(), std::min(name.size(), face.size() - 1), face.data());
    return face;
}

// What stands in front of the first separator, or all.
Name UpTo(Name text, WCHAR separator)
{
    return text.first(static_cast<size_t>(std::find(text.begin(), text.end(), separator) - text.begin()));
}

Name Behind(Name text, Name front)
{
    return text.subspan(std::min(front.size() + 1, text.size()));
}

// --- The registry's

// "MSGOTHIC.TTC,MS UI Gothic,128,96": a file, and the face in it.
Name FaceOfLink(Name link)
{
    return UpTo(Behind(link, UpTo(link, L',')), L',');
}

// --- What is installed

struct Enumeration
{
    std::vector<InstalledFace> forReading;
    std::vector<InstalledFace> others;
    bool fRefused = false; // there was no memory
};

// The mark that fonts with characters beyond the first 65,536 bear.
bool IsMarkedBeyond(const NEWTEXTMETRICEXW& metrics, DWORD dwType)
{
    constexpr DWORD BIT_57 = 1U << 25;
    return dwType & TRUETYPE_FONTTYPE && metrics.ntmFontSig.fsUsb[1] & BIT_57;
}

// Of a font whose lines are much higher than its letters little is left where it has to fit a line.
bool IsTall(const TEXTMETRICW& metrics)
{
    return int64_t{metrics.tmHeight} * 2 > (int64_t{metrics.tmHeight} - metrics.tmInternalLeading) * 3;
}

int CALLBACK TakeFace(const LOGFONTW* pLog, const TEXTMETRICW* pMetrics, DWORD dwType, LPARAM lParam)
{
    auto& all = *reinterpret_cast<Enumeration*>(lParam);
    if (dwType & RASTER_FONTTYPE || pLog->lfFaceName[0] == L'@') {
        return TRUE;
    }
    constexpr BYTE PITCH = 0x03;
    constexpr BYTE FAMILY = 0xF0;
    const bool fForReading = (pLog->lfPitchAndFamily & FAMILY) == FF_SWISS &&
                             (pLog->lfPitchAndFamily & PITCH) == VARIABLE_PITCH && !IsTall(*pMetrics);
    try {
        (fForReading ? all.forReading : all.others)
            .push_back({FaceOf({pLog->lfFaceName, wcsnlen(pLog->lfFaceName, LF_FACESIZE)}),
                        IsMarkedBeyond(*reinterpret_cast<const NEWTEXTMETRICEXW*>(pMetrics), dwType)});
    } catch (const std::bad_alloc&) {
        all.fRefused = true;
    }
    return !all.fRefused;
}

} // namespace

bool LinkedFaces(LPCWSTR pszFace, std::vector<FaceName>& faces)
{
    constexpr DWORD LARGEST = 0x10000;
    DWORD cb = 0;
    LSTATUS lStatus =
        RegGetValueW(HKEY_LOCAL_MACHINE, LINKS_KEY, pszFace, RRF_RT_REG_MULTI_SZ, nullptr, nullptr, &cb);
    if (lStatus != ERROR_SUCCESS || cb > LARGEST) {
        return lStatus == ERROR_SUCCESS || lStatus == ERROR_FILE_NOT_FOUND ||
               lStatus == ERROR_UNSUPPORTED_TYPE;
    }
    std::vector<WCHAR> texts(cb / sizeof(WCHAR) + 1);
    lStatus =
        RegGetValueW(HKEY_LOCAL_MACHINE, LINKS_KEY, pszFace, RRF_RT_REG_MULTI_SZ, nullptr, texts.data(), &cb);
    if (lStatus != ERROR_SUCCESS) {
        return false;
    }
    Name left(texts.data(), std::min<size_t>(cb / sizeof(WCHAR), texts.size()));
    while (!left.empty()) {
        const Name link = UpTo(left, L'\0');
        const Name face = FaceOfLink(link);
        if (!face.empty()) {
            faces.push_back(FaceOf(face));
        }
        left = Behind(left, link);
    }
    return true;
}

size_t ScriptFacesRow(char32_t c, HanStyle style)
{
    if (IsEastAsian(c)) {
        return static_cast<size_t>(style);
    }
    const auto* const first = std::begin(ROWS) + HAN_ROWS;
    const auto* const found = std::find_if(
        first, std::end(ROWS), [c](const ScriptRow& row) { return c >= row.first && c <= row.last; });
    return static_cast<size_t>(found - std::begin(ROWS));
}

std::vector<FaceName> ScriptFaces(size_t nRow)
{
    std::vector<FaceName> faces;
    for (const LPCWSTR pszFace : ROWS[nRow].faces) {
        if (pszFace) {
            faces.push_back(FaceOf({pszFace, wcslen(pszFace)}));
        }
    }
    return faces;
}

bool EnumerateFaces(HDC hdc, std::vector<InstalledFace>& faces)
{
    Enumeration all;
    LOGFONTW any{};
    any.lfCharSet = DEFAULT_CHARSET;
    const int nLast = EnumFontFamiliesExW(hdc, &any, TakeFace, reinterpret_cast<LPARAM>(&all), 0);
    if (all.fRefused || nLast == 0) {
        return false;
    }
    // A family is told once for each of its character sets.
    std::set<FaceName> seen;
    for (const std::vector<InstalledFace>* pFaces : {&all.forReading, &all.others}) {
        std::copy_if(pFaces->begin(), pFaces->end(), std::back_inserter(faces),
                     [&](const InstalledFace& face) { return seen.insert(face.name).second; });
    }
    return true;
}

} // namespace gesso
