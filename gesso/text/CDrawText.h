// CDrawText: text in any script, prepared once and painted any number of times.
//
// Preparing splits a text into items of one script and direction, shapes them into glyphs, measures these and
// breaks the text into lines. Painting replays the result: it measures nothing and allocates nothing.
//
//     RECT rc = {0, 0, 200, 1000};
//     void* hText = CDrawText::DrawText_Prepare(hdc, L"Some text", -1, &rc, DT_CENTER, 18, nullptr);
//     CDrawText::DrawTextW(hdc, hText, rc); // at each paint, with the same font selected
//     CDrawText::DrawText_CloseHandle(hText);
//
// A handle belongs to the caller, from DrawText_Prepare to DrawText_CloseHandle. Null and the invalid handle
// (all bits set) may be passed wherever a handle or a buffer is taken: nothing is done for them.
//
// The device context must have the font selected that the text was prepared with. Text colour, background
// mode and clip region are the context's. Coordinates, widths and heights are its logical units.
//
// Of the DT_ flags only DT_SINGLELINE, DT_CALCRECT, DT_CENTER, DT_RIGHT, DT_VCENTER and DT_BOTTOM have an
// effect. Text without DT_SINGLELINE is always wrapped; there are no ellipses, prefixes, tabs or clipping.
//
// Threads may prepare and paint texts at the same time. One buffer is for one thread at a time, painting
// included.
#pragma once

#include <gesso/api.h>

// One item of a text, shaped.
struct stcDrawTextRun
{
    int nChars;
    int nGlyphs;
    UINT nFirstGlyph; // in the buffer's glyph arrays
    ABC abc;          // abcA + abcB + abcC is how far the item moves the pen
};

// The end of one line.
struct stcDrawTextBreak
{
    UINT nItem;  // the item in which the line ends
    UINT nGlyph; // the glyph at which it ends, and at which the next line starts
    UINT nWidth; // as measured: of the lines between two breaks the first glyph is left out
};

// One prepared text. The counts say how much of each array is in use.
struct stcDrawTextBuffer
{
    RECT rcText;     // the caller's rectangle, with the side set that preparing measures
    int nLineHeight; // from line to line; lines go upwards if it is negative
    UINT uFormat;    // DT_ flags
    int nFontHeight;
    UINT fOneBlock; // the library's own: how the arrays lie and are painted; 0 at first
    SCRIPT_CACHE scriptCache;

    UINT nItems;
    UINT nItemsAlloc; // capacity of pItems and pRuns
    SCRIPT_ITEM* pItems;
    stcDrawTextRun* pRuns; // one an item

    UINT nChars;
    UINT nCharsAlloc;         // capacity of pLogClust and pLogAttr
    WORD* pLogClust;          // a character's glyph, counted over the whole text in 16 bits
    SCRIPT_LOGATTR* pLogAttr; // filled by DrawText_Break only

    UINT nGlyphs;
    UINT nGlyphsAlloc; // capacity of the four arrays that follow
    WORD* pGlyphs;
    SCRIPT_VISATTR* pVisAttr;
    int* pAdvance;
    GOFFSET* pOffset;

    UINT nBreaks;
    stcDrawTextBreak* pBreaks; // nBreaks + 1 records, one a line; the last is {nItems - 1, nGlyphs, width}
};

class GESSO_API CDrawText
{
public:
    // Prepares nChars characters, or with -1 those up to the terminator, in the context's font. Null text and
    // other negative counts make an empty text.
    //   prc          the area; null, or one empty in either direction, is 32768 by 32768. On return `bottom`
    //                ends the text, or with DT_SINGLELINE `right` does; no other side is changed.
    //   nLineHeight  from line to line. A text of one line is as tall as the font instead, upwards if
    //                nLineHeight is negative.
    //   pnLines      receives the number of lines; may be null.
    // Returns a handle, or the invalid handle if the context has no font to measure with or there is no
    // memory (prc and pnLines are then unchanged), and always with DT_CALCRECT, which only measures.
    static void* DrawText_Prepare(HDC hdc, LPCWSTR pszText, int nChars, RECT* prc, UINT uFormat,
                                  int nLineHeight, UINT* pnLines);
    // The same, with null in the place of the invalid handle.
    static stcDrawTextBuffer* DrawText_Prepare_Int(HDC hdc, LPCWSTR pszText, int nChars, RECT* prc,
                                                   UINT uFormat, int nLineHeight, UINT* pnLines);
    static void DrawText_CloseHandle(void* hText);

    // Prepares, paints in rc and forgets. Returns 0, or E_FAIL where DrawText_Prepare gives no handle, so
    // always with DT_CALCRECT.
    static LONG DrawTextW(HDC hdc, LPCWSTR pszText, int nChars, RECT rc, UINT uFormat, int nLineHeight,
                          UINT* pnLines);
    // Paints a prepared text in rc, as DrawText_TextOut_Break does. Returns 0.
    static LONG DrawTextW(HDC hdc, void* hText, RECT rc);

    // Building a buffer by hand. It starts as all zero, and the order is PrepareBuffer, DrawText_Calculate,
    // DrawText_Break, painting, FreeBuffer.

    // Allocates arrays of the given capacities, 3 items at least, and zeroes nChars and nGlyphs. Neither
    // former arrays nor a former cache are released. Without memory the arrays have the least capacities.
    static void PrepareBuffer(stcDrawTextBuffer* pBuffer, UINT nItems, UINT nChars, UINT nGlyphs);
    // Shrinks the arrays to their counts. pItems and pRuns lose their contents, so that the buffer can only
    // be freed. Without memory the buffer is as it was.
    static void OptimizeBuffer(stcDrawTextBuffer* pBuffer);
    // Releases all that the buffer owns, but not the buffer.
    static void FreeBuffer(stcDrawTextBuffer* pBuffer);

    // Itemizes, shapes and measures nChars characters in the buffer's own arrays, which grow as needed.
    // nChars and nGlyphs of the buffer go on from where they stand. Without memory these stay, and there are
    // no items.
    static void DrawText_Calculate(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer* pBuffer);
    // The same in working space that the library keeps; the buffer, which need not be prepared, gets arrays
    // that fit exactly in the place of its own. Without memory the buffer keeps those that it has.
    static void DrawText_Calculate_Optimized(HDC hdc, LPCWSTR pszText, UINT nChars,
                                             stcDrawTextBuffer* pBuffer);
    // Breaks a calculated text, given once more, into lines narrower than cxMax, a signed width. Without
    // memory the lines are as they were.
    static void DrawText_Break(LPCWSTR pszText, UINT nChars, UINT cxMax, stcDrawTextBuffer* pBuffer);

    // Painting a buffer. (x, y) is the top left corner of the first glyph. Items stand in logical order from
    // left to right, unless the text was prepared in Modern and has right-to-left items, or such as other
    // fonts show: then each line has its items as they are read, and each operation paints what it names,
    // once.

    // The whole text, aligned in rc and line by line. A line that is too wide is cut before the glyph that
    // reaches the right side. Nothing if rc has no width.
    static void DrawText_TextOut_Break(HDC hdc, RECT rc, stcDrawTextBuffer* pBuffer);
    // The whole text on one line.
    static void DrawText_TextOut(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer);
    // nCount glyphs from nStart on.
    static void DrawText_TextOut_Start_Glyph(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nStart,
                                             UINT nCount);
    // One line, cut before the glyph that reaches the width cxMax. Nothing if there is no such line.
    static void DrawText_TextOut_cxMax(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nLine,
                                       UINT cxMax);
    // The items from nItem to the last. Their glyphs are taken from the start of the text, whatever nItem is.
    static void DrawText_TextOut_Item(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nItem,
                                      UINT nReserved);
    // The first nGlyphs glyphs of the text.
    static void DrawText_TextOut_Char(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nGlyphs);
    // One line, whole: each glyph of it once. Nothing if there is no such line.
    static void DrawText_TextOut_Line(HDC hdc, int x, int y, stcDrawTextBuffer* pBuffer, UINT nLine);
};
