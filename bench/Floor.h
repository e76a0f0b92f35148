// The least that a control's picture costs: the bare calls of the platform that leave it, and nothing that
// finds out which ones they are. They are replayed from the record of one paint, less those without which the
// picture is the same, into a bitmap that is there.
//
// No control is asked to paint without the window's part of it: the update region, WM_PAINT, BeginPaint and
// EndPaint. The floor has it too, by the same RedrawWindow. What it takes by itself has a row of its own, and
// so has the drawing without it and without the copy to the window, into a context that is given.
#pragma once

#include <bench/Bench.h>
#include <bench/DrawRecord.h>

namespace bench {

class Floor
{
public:
    explicit Floor(HWND hwnd);
    ~Floor();
    Floor(const Floor&) = delete;
    Floor& operator=(const Floor&) = delete;

    // Whether the calls leave the control's own picture, pixel by pixel.
    bool IsSame() const { return m_fSame; }
    size_t CallsOfPaint() const { return m_nRecorded; }
    size_t Calls() const { return m_record.calls.size(); }

    // From now on until EndPaints the window paints by these calls, or not at all.
    void BeginPaints(bool fDraw);
    void EndPaints();

    // Into the floor's own bitmap: what the control prints, and the calls.
    void Print() const;
    void Replay() const;
    // Whether what the control prints is what it paints.
    bool PrintsSame() const;

private:
    static LRESULT CALLBACK PaintProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    void Paint() const;
    bool LeavesPicture() const;
    void DropNeedless();
    void OpenContext();
    void CloseContext();

    HWND m_hwnd;
    DrawRecord m_record;
    size_t m_nRecorded;
    PixelBuffer m_pixels;
    std::vector<DWORD> m_noise;
    HBITMAP m_hBitmap;
    HDC m_hdc = nullptr;
    HGDIOBJ m_hFormer = nullptr;
    bool m_fSame = false;
    bool m_fDraw = true;
    WNDPROC m_formerProc = nullptr;

    static Floor* s_pPainting;
};

// Sets a Gesso control's paint beside its floor.
void MeasureFloor(HWND hwnd, int nPaints);

} // namespace bench
