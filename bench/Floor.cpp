#include <bench/Floor.h>

#include <algorithm>
#include <random>

namespace bench {
namespace {

constexpr int ROUNDS = 11;

// What no control draws.
std::vector<DWORD> Noise(SIZE size)
{
    std::vector<DWORD> pixels(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy));
    std::generate(pixels.begin(), pixels.end(), std::mt19937(1));
    return pixels;
}

HBITMAP MakeBitmap(SIZE size)
{
    const HDC hdcScreen = GetDC(nullptr);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hdcScreen, size.cx, size.cy);
    ReleaseDC(nullptr, hdcScreen);
    return hBitmap;
}

void Repeat(int n, const Work& work)
{
    for (int i = 0; i < n; i++) {
        work();
    }
}

void Redraw(HWND hwnd, int nPaints)
{
    Repeat(nPaints, [&] { RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); });
}

} // namespace

Floor* Floor::s_pPainting = nullptr;

Floor::Floor(HWND hwnd)
    : m_hwnd(hwnd), m_record(RecordPaint(hwnd)), m_nRecorded(m_record.calls.size()), m_pixels(m_record.size),
      m_noise(Noise(m_record.size)), m_hBitmap(MakeBitmap(m_record.size))
{
    OpenContext();
    m_fSame = m_record.nCopies == 1 && LeavesPicture();
    if (m_fSame) {
        DropNeedless();
    }
}

Floor::~Floor()
{
    CloseContext();
    DeleteObject(m_hBitmap);
}

void Floor::OpenContext()
{
    m_hdc = CreateCompatibleDC(nullptr);
    m_hFormer = SelectObject(m_hdc, m_hBitmap);
}

void Floor::CloseContext()
{
    SelectObject(m_hdc, m_hFormer);
    DeleteDC(m_hdc);
}

void Floor::Replay() const
{
    for (const DrawCall& call : m_record.calls) {
        call(m_hdc);
    }
}

// Whatever was there before, and a second time with what the first has left set in the context.
bool Floor::LeavesPicture() const
{
    for (int i = 0; i < 2; i++) {
        m_pixels.Write(m_hdc, m_noise);
        Replay();
        if (m_pixels.Read(m_hdc) != m_record.picture) {
            return false;
        }
    }
    return true;
}

// From the end, so that a state is put back in vain before it is set in vain.
void Floor::DropNeedless()
{
    std::vector<DrawCall>& calls = m_record.calls;
    for (size_t i = calls.size(); i-- > 0;) {
        const auto place = calls.begin() + static_cast<std::ptrdiff_t>(i);
        const DrawCall call = *place;
        calls.erase(place);
        CloseContext();
        OpenContext();
        if (!LeavesPicture()) {
            calls.insert(calls.begin() + static_cast<std::ptrdiff_t>(i), call);
        }
    }
    CloseContext();
    OpenContext();
    m_fSame = LeavesPicture();
}

void Floor::Print() const
{
    SendMessageW(m_hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(m_hdc), PRF_CLIENT);
}

bool Floor::PrintsSame() const
{
    Print();
    return m_pixels.Read(m_hdc) == m_record.picture;
}

void Floor::Paint() const
{
    PAINTSTRUCT paint{};
    const HDC hdc = BeginPaint(m_hwnd, &paint);
    if (m_fDraw) {
        Replay();
        BitBlt(hdc, 0, 0, m_record.size.cx, m_record.size.cy, m_hdc, 0, 0, SRCCOPY);
    }
    EndPaint(m_hwnd, &paint);
}

LRESULT CALLBACK Floor::PaintProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_PAINT: s_pPainting->Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    default: return CallWindowProcW(s_pPainting->m_formerProc, hwnd, uMsg, wParam, lParam);
    }
}

void Floor::BeginPaints(bool fDraw)
{
    s_pPainting = this;
    m_fDraw = fDraw;
    m_formerProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PaintProc)));
}

void Floor::EndPaints()
{
    SetWindowLongPtrW(m_hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_formerProc));
    s_pPainting = nullptr;
}

void MeasureFloor(HWND hwnd, int nPaints)
{
    Bench bench(ROUNDS);
    // What is cached from the second paint on shall be.
    Redraw(hwnd, 3);
    Floor floor(hwnd);
    if (!floor.IsSame()) {
        bench.Print("  the floor leaves another picture", -1, -1);
        return;
    }
    const auto paint = [&](bool fDraw) {
        floor.BeginPaints(fDraw);
        Redraw(hwnd, nPaints);
        floor.EndPaints();
    };
    bench.Measure(
        "  that paint / its floor", nPaints, [&] { Redraw(hwnd, nPaints); }, [&] { paint(true); });
    if (floor.PrintsSame()) {
        bench.Measure(
            "  its drawing alone / its floor", nPaints, [&] { Repeat(nPaints, [&] { floor.Print(); }); },
            [&] { Repeat(nPaints, [&] { floor.Replay(); }); });
    } else {
        bench.Print("  it prints another picture", -1, -1);
    }
    bench.MeasureAlone("  of either: the window's part", nPaints, [&] { paint(false); });
    bench.Print("  calls that draw", static_cast<long long>(floor.CallsOfPaint()),
                static_cast<long long>(floor.Calls()));
}

} // namespace bench
