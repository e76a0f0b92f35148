// Image lists: the common controls' interface, and the functions on top of it. A handle is an interface
// pointer.
#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../gdi/Record.h"

using namespace gesso::headless;

extern "C" {
const GUID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const GUID IID_IImageList = {0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};
}

namespace {

bool SameGuid(const GUID& a, const GUID& b)
{
    return memcmp(&a, &b, sizeof(GUID)) == 0;
}

// COM interfaces have no virtual destructor: the last Release ends the object by its own class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The images are kept by number alone: nothing reads their pixels.
class List final : public IImageList
{
public:
    List(int cx, int cy) : m_cx(cx), m_cy(cy) { Track(Kind::ImageList, this); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    HRESULT QueryInterface(REFIID id, void** object) override;
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override;

    HRESULT Add(HBITMAP image, HBITMAP mask, int* index) override;
    HRESULT AddMasked(HBITMAP image, COLORREF mask, int* index) override;
    HRESULT ReplaceIcon(int index, HICON icon, int* placed) override;
    HRESULT Remove(int index) override;
    HRESULT Draw(IMAGELISTDRAWPARAMS* params) override;
    HRESULT GetIcon(int index, UINT flags, HICON* icon) override;
    HRESULT GetImageRect(int index, RECT* rect) override;
    HRESULT GetIconSize(int* cx, int* cy) override;
    HRESULT SetIconSize(int cx, int cy) override;
    HRESULT GetImageCount(int* count) override;
    HRESULT SetImageCount(UINT count) override;
    HRESULT SetBkColor(COLORREF color, COLORREF* former) override;
    HRESULT GetBkColor(COLORREF* color) override;

    // Not part of the simulated desktop.
    HRESULT SetOverlayImage(int, int) override { return E_NOTIMPL; }
    HRESULT Replace(int, HBITMAP, HBITMAP) override { return E_NOTIMPL; }
    HRESULT GetImageInfo(int, IMAGEINFO*) override { return E_NOTIMPL; }
    HRESULT Copy(int, IUnknown*, int, UINT) override { return E_NOTIMPL; }
    HRESULT Merge(int, IUnknown*, int, int, int, REFIID, PVOID*) override { return E_NOTIMPL; }
    HRESULT Clone(REFIID, PVOID*) override { return E_NOTIMPL; }
    HRESULT BeginDrag(int, int, int) override { return E_NOTIMPL; }
    HRESULT EndDrag() override { return E_NOTIMPL; }
    HRESULT DragEnter(HWND, int, int) override { return E_NOTIMPL; }
    HRESULT DragLeave(HWND) override { return E_NOTIMPL; }
    HRESULT DragMove(int, int) override { return E_NOTIMPL; }
    HRESULT SetDragCursorImage(IUnknown*, int, int, int) override { return E_NOTIMPL; }
    HRESULT DragShowNolock(BOOL) override { return E_NOTIMPL; }
    HRESULT GetDragImage(POINT*, POINT*, REFIID, PVOID*) override { return E_NOTIMPL; }
    HRESULT GetItemFlags(int, DWORD*) override { return E_NOTIMPL; }
    HRESULT GetOverlayImage(int, int*) override { return E_NOTIMPL; }

private:
    ~List() { Untrack(Kind::ImageList, this); }
    bool Has(int index) const { return index >= 0 && index < m_count; }

    ULONG m_references = 1;
    int m_cx;
    int m_cy;
    int m_count = 0;
    COLORREF m_background = CLR_NONE;
};

#pragma GCC diagnostic pop

HRESULT List::QueryInterface(REFIID id, void** object)
{
    if (!SameGuid(id, IID_IUnknown) && !SameGuid(id, IID_IImageList)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IImageList*>(this);
    return S_OK;
}

ULONG List::Release()
{
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

// A bitmap holds as many images, side by side, as its width has room for.
HRESULT List::Add(HBITMAP image, HBITMAP, int* index)
{
    const auto* bitmap = Find<Bitmap>(image);
    *index = -1;
    if (!bitmap) {
        return E_FAIL;
    }
    *index = m_count;
    m_count += bitmap->width / m_cx;
    return S_OK;
}

HRESULT List::AddMasked(HBITMAP image, COLORREF, int* index)
{
    return Add(image, nullptr, index);
}

// An index of -1 adds the icon at the end.
HRESULT List::ReplaceIcon(int index, HICON icon, int* placed)
{
    *placed = -1;
    if (!Find<Icon>(icon) || (index != -1 && !Has(index))) {
        return E_INVALIDARG;
    }
    *placed = index == -1 ? m_count++ : index;
    return S_OK;
}

// An index of -1 removes all.
HRESULT List::Remove(int index)
{
    if (index != -1 && !Has(index)) {
        return E_INVALIDARG;
    }
    m_count = index == -1 ? 0 : m_count - 1;
    return S_OK;
}

HRESULT List::Draw(IMAGELISTDRAWPARAMS* params)
{
    if (FaultFires("IImageList::Draw")) {
        return FaultResult();
    }
    const bool known =
        params->cbSize == sizeof(IMAGELISTDRAWPARAMS) || params->cbSize == IMAGELISTDRAWPARAMS_V3_SIZE;
    if (!known || !Has(params->i) || !FindContext(params->hdcDst)) {
        return E_INVALIDARG;
    }
    const int cx = params->cx != 0 ? params->cx : m_cx;
    const int cy = params->cy != 0 ? params->cy : m_cy;
    Line line(params->hdcDst, "ImageList_Draw");
    line.Number(params->i).Size(params->x, params->y, cx, cy).Hex(params->fStyle);
    if (params->rgbBk != CLR_NONE && params->rgbBk != CLR_DEFAULT) {
        line.Color("back", params->rgbBk);
    }
    return S_OK;
}

HRESULT List::GetIcon(int index, UINT, HICON* icon)
{
    if (FaultFires("IImageList::GetIcon")) {
        return FaultResult();
    }
    *icon = Has(index) ? MakeObject<HICON, Icon>(m_cx, m_cy, "list:" + std::to_string(index)) : nullptr;
    return *icon ? S_OK : E_INVALIDARG;
}

HRESULT List::GetImageRect(int index, RECT* rect)
{
    if (!Has(index)) {
        return E_INVALIDARG;
    }
    *rect = Spanned(Saturated(int64_t{index} * m_cx), 0, m_cx, m_cy);
    return S_OK;
}

HRESULT List::GetIconSize(int* cx, int* cy)
{
    if (FaultFires("IImageList::GetIconSize")) {
        return FaultResult();
    }
    *cx = m_cx;
    *cy = m_cy;
    return S_OK;
}

HRESULT List::SetIconSize(int cx, int cy)
{
    if (cx <= 0 || cy <= 0) {
        return E_INVALIDARG;
    }
    m_cx = cx;
    m_cy = cy;
    m_count = 0;
    return S_OK;
}

HRESULT List::GetImageCount(int* count)
{
    if (FaultFires("IImageList::GetImageCount")) {
        return FaultResult();
    }
    *count = m_count;
    return S_OK;
}

HRESULT List::SetImageCount(UINT count)
{
    constexpr UINT MOST = 0xFFFF;
    if (count > MOST) {
        return E_OUTOFMEMORY;
    }
    m_count = static_cast<int>(count);
    return S_OK;
}

HRESULT List::SetBkColor(COLORREF color, COLORREF* former)
{
    *former = m_background;
    m_background = color;
    return S_OK;
}

HRESULT List::GetBkColor(COLORREF* color)
{
    *color = m_background;
    return S_OK;
}

IImageList* ListOf(HIMAGELIST handle)
{
    // Lists are tracked by the address of the object, of which the interface is the only base.
    return IsLive(Kind::ImageList, handle) ? reinterpret_cast<IImageList*>(handle) : nullptr;
}

} // namespace

HIMAGELIST WINAPI ImageList_Create(INT cx, INT cy, UINT, INT, INT)
{
    if (FaultFires("ImageList_Create") || cx <= 0 || cy <= 0) {
        return nullptr;
    }
    return reinterpret_cast<HIMAGELIST>(static_cast<IImageList*>(new List(cx, cy)));
}

BOOL WINAPI ImageList_Destroy(HIMAGELIST handle)
{
    if (FaultFires("ImageList_Destroy")) {
        return FALSE;
    }
    IImageList* list = ListOf(handle);
    if (!list) {
        return FALSE;
    }
    list->Release();
    return TRUE;
}

INT WINAPI ImageList_Add(HIMAGELIST handle, HBITMAP image, HBITMAP mask)
{
    if (FaultFires("ImageList_Add")) {
        return -1;
    }
    IImageList* list = ListOf(handle);
    int index = -1;
    return list && SUCCEEDED(list->Add(image, mask, &index)) ? index : -1;
}

INT WINAPI ImageList_GetImageCount(HIMAGELIST handle)
{
    const CallsBy platform(Caller::Platform);
    IImageList* list = ListOf(handle);
    int count = 0;
    return list && SUCCEEDED(list->GetImageCount(&count)) ? count : 0;
}

BOOL WINAPI ImageList_DrawIndirect(IMAGELISTDRAWPARAMS* params)
{
    const CallsBy platform(Caller::Platform);
    IImageList* list = ListOf(params->himl);
    return list && SUCCEEDED(list->Draw(params));
}

BOOL WINAPI ImageList_DrawEx(HIMAGELIST handle, INT index, HDC hdc, INT x, INT y, INT cx, INT cy,
                             COLORREF back, COLORREF fore, UINT style)
{
    if (FaultFires("ImageList_DrawEx")) {
        return FALSE;
    }
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    params.himl = handle;
    params.i = index;
    params.hdcDst = hdc;
    params.x = x;
    params.y = y;
    params.cx = cx;
    params.cy = cy;
    params.rgbBk = back;
    params.rgbFg = fore;
    params.fStyle = style;
    return ImageList_DrawIndirect(&params);
}
