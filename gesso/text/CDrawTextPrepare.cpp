#include <gesso/containers/Misuse.h>
#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>

#include <memory>

using namespace gesso;

namespace {

constexpr int UNLIMITED = 32768;

struct CloseBuffer
{
    void operator()(stcDrawTextBuffer* pBuffer) const { CDrawText::DrawText_CloseHandle(pBuffer); }
};
using BufferOwner = std::unique_ptr<stcDrawTextBuffer, CloseBuffer>;

void* InvalidHandle()
{
    return reinterpret_cast<void*>(static_cast<intptr_t>(-1));
}

UINT CountChars(LPCWSTR pszText, int nChars)
{
    if (nChars < -1) {
        Misuse("CDrawText::DrawText_Prepare: a negative number of characters");
    }
    if (!pszText || nChars < -1) {
        return 0;
    }
    return nChars == -1 ? static_cast<UINT>(wcslen(pszText)) : static_cast<UINT>(nChars);
}

// A rectangle that is empty in one direction is unlimited in both.
RECT TextArea(const RECT* prc)
{
    RECT rc = prc ? *prc : RECT();
    if (rc.right == rc.left || rc.bottom == rc.top) {
        rc.right = WrapAdd(rc.left, UNLIMITED);
        rc.bottom = WrapAdd(rc.top, UNLIMITED);
    }
    return rc;
}

int TotalWidth(const stcDrawTextBuffer& buffer)
{
    int cx = 0;
    for (UINT n = 0; n < buffer.nItems; ++n) {
        cx = WrapAdd(cx, RunWidth(buffer.pRuns[n]));
    }
    return cx;
}

// One line is as tall as the font, with the sign of the line height. Several are that many line heights,
// which carry their sign already.
int TextHeight(const stcDrawTextBuffer& buffer)
{
    if (buffer.nBreaks != 0) {
        return static_cast<int>((buffer.nBreaks + 1) * static_cast<UINT>(buffer.nLineHeight));
    }
    return buffer.nLineHeight < 0 ? -buffer.nFontHeight : buffer.nFontHeight;
}

// The whole text as one line: a CR LF stays on it, and pLogAttr stays unfilled. Working space has room for
// a line already.
bool MakeSingleLine(stcDrawTextBuffer& buffer, RECT* prc)
{
    const int cx = TotalWidth(buffer);
    buffer.nBreaks = 0;
    buffer.pBreaks = buffer.pBreaks ? buffer.pBreaks : AllocateArray<stcDrawTextBreak>(1);
    if (!buffer.pBreaks) {
        return false;
    }
    buffer.pBreaks[0] = {buffer.nItems - 1, buffer.nGlyphs, static_cast<UINT>(cx)};
    buffer.rcText.right = WrapAdd(buffer.rcText.left, cx);
    buffer.rcText.bottom = WrapAdd(buffer.rcText.top, TextHeight(buffer));
    if (prc) {
        prc->right = buffer.rcText.right;
    }
    return true;
}

bool MakeLines(stcDrawTextBuffer& buffer, LPCWSTR pszText, UINT nChars, RECT* prc)
{
    const int cxMax = WrapSubtract(buffer.rcText.right, buffer.rcText.left);
    if (!BreakText(pszText, nChars, static_cast<UINT>(cxMax), buffer)) {
        return false;
    }
    buffer.rcText.bottom = WrapAdd(buffer.rcText.top, TextHeight(buffer));
    if (prc) {
        prc->bottom = buffer.rcText.bottom;
    }
    return true;
}

bool MakeLinesOf(stcDrawTextBuffer& buffer, LPCWSTR pszText, UINT nChars, RECT* prc)
{
    return buffer.uFormat & DT_SINGLELINE ? MakeSingleLine(buffer, prc)
                                          : MakeLines(buffer, pszText, nChars, prc);
}

// False without memory, and *prc is then as it was.
bool MakeText(HDC hdc, stcDrawTextBuffer& buffer, LPCWSTR pszText, UINT nChars, RECT* prc)
{
    return CalculateExactly(hdc, pszText, nChars, buffer) && MakeLinesOf(buffer, pszText, nChars, prc);
}

bool ReadHeight(HDC hdc, PassFont& font)
{
    TEXTMETRICW tm;
    if (!font.fHeightRead && hdc && GetTextMetricsW(hdc, &tm)) {
        font.nHeight = tm.tmHeight;
        font.fHeightRead = true;
    }
    return font.fHeightRead;
}

} // namespace

Prepared gesso::PrepareInSpace(HDC hdc, PassFont& font, LPCWSTR pszText, UINT nChars, UINT uFormat,
                               int nLineHeight, stcDrawTextBuffer& space, TextItems& items)
{
    if (!ReadHeight(hdc, font)) {
        return hdc ? Prepared::No : Prepared::NeedsContext;
    }
    space.nFontHeight = font.nHeight;
    space.rcText = TextArea(nullptr);
    space.uFormat = uFormat;
    space.nLineHeight = nLineHeight;
    const Prepared prepared = CalculateInSpace(hdc, font, pszText, nChars, space, items);
    if (prepared == Prepared::Yes && !MakeLinesOf(space, pszText, nChars, nullptr)) {
        return Prepared::No;
    }
    return prepared;
}

void* CDrawText::DrawText_Prepare(HDC hdc, LPCWSTR pszText, int nChars, RECT* prc, UINT uFormat,
                                  int nLineHeight, UINT* pnLines)
{
    stcDrawTextBuffer* const pBuffer =
        DrawText_Prepare_Int(hdc, pszText, nChars, prc, uFormat, nLineHeight, pnLines);
    return pBuffer ? pBuffer : InvalidHandle();
}

stcDrawTextBuffer* CDrawText::DrawText_Prepare_Int(HDC hdc, LPCWSTR pszText, int nChars, RECT* prc,
                                                   UINT uFormat, int nLineHeight, UINT* pnLines)
{
    TEXTMETRICW tm;
    if (!GetTextMetricsW(hdc, &tm)) {
        return nullptr;
    }
    BufferOwner buffer(new stcDrawTextBuffer());
    buffer->nFontHeight = tm.tmHeight;
    buffer->rcText = TextArea(prc);
    buffer->uFormat = uFormat;
    buffer->nLineHeight = nLineHeight;

    if (!MakeText(hdc, *buffer, pszText, CountChars(pszText, nChars), prc)) {
        return nullptr;
    }
    if (pnLines) {
        *pnLines = buffer->nBreaks + 1;
    }
    return uFormat & DT_CALCRECT ? nullptr : buffer.release();
}

void CDrawText::DrawText_CloseHandle(void* hText)
{
    auto* const pBuffer = static_cast<stcDrawTextBuffer*>(hText);
    if (IsBuffer(pBuffer)) {
        FreeBuffer(pBuffer);
        if (!(pBuffer->fOneBlock & STANDS_IN_BLOCK)) {
            delete pBuffer;
        }
    }
}

LONG CDrawText::DrawTextW(HDC hdc, LPCWSTR pszText, int nChars, RECT rc, UINT uFormat, int nLineHeight,
                          UINT* pnLines)
{
    RECT rcText = rc;
    const BufferOwner buffer(
        DrawText_Prepare_Int(hdc, pszText, nChars, &rcText, uFormat, nLineHeight, pnLines));
    if (!buffer) {
        return E_FAIL;
    }
    DrawText_TextOut_Break(hdc, rc, buffer.get());
    return 0;
}

LONG CDrawText::DrawTextW(HDC hdc, void* hText, RECT rc)
{
    DrawText_TextOut_Break(hdc, rc, static_cast<stcDrawTextBuffer*>(hText));
    return 0;
}
