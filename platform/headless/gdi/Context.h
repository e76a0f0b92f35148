// Device contexts: what is selected and set in them, and what they draw into.
#pragma once

#include "Objects.h"

#include <optional>

namespace gesso::headless {

// What SaveDC keeps.
struct ContextState
{
    ContextState();

    HPEN pen;
    HBRUSH brush;
    HFONT font;
    HBITMAP bitmap = nullptr; // of a memory context
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backColor = RGB(255, 255, 255);
    COLORREF brushColor = RGB(255, 255, 255); // of DC_BRUSH
    int backMode = OPAQUE;
    UINT textAlign = TA_TOP | TA_LEFT; // recorded text has the point that was given, whatever it aligns
    POINT windowOrigin{};
    POINT viewportOrigin{};
    POINT position{};         // where LineTo starts
    std::optional<Area> clip; // in device coordinates, as all areas here
    DWORD layout = 0;
};

struct Context : Object
{
    static constexpr Kind KIND = Kind::DeviceContext;
    Context() : Object(KIND) {}

    bool IsMemory() const { return state.bitmap != nullptr; }
    bool IsMirrored() const { return (state.layout & LAYOUT_RTL) != 0; }
    // Changes the layout, and leaves the clipping where it is on the surface.
    void SetLayout(DWORD layout);
    // The device coordinates of a mirrored context count from the right edge of what it draws into; these are
    // those from the left.
    POINT OnSurface(POINT device) const;
    RECT OnSurface(const RECT& device) const;
    POINT WindowOrigin() const;
    POINT ToDevice(POINT logical) const;
    POINT ToLogical(POINT device) const;
    RECT ToDevice(const RECT& logical) const;
    RECT ToLogical(const RECT& device) const;
    // The whole of what it draws into, and the part that drawing can reach.
    RECT Bounds() const;
    Area Reach() const;

    HWND window = nullptr;
    bool wholeWindow = false;
    SIZE size{};                 // of a window's area
    std::optional<Area> visible; // what BeginPaint left of it, as the window counts
    bool mirroredWindow = false;
    ContextState state;
    std::vector<ContextState> saved;
};

// Null, with the last error set, for a handle that is no device context.
Context* FindContext(HDC hdc);

// True if a context holds the object, now or in a saved state.
bool IsSelected(HGDIOBJ object);
// Ends an object, one that a context holds as soon as none does any more; false if there is none of that
// handle, and the second time.
bool RemoveOnceReleased(HGDIOBJ object);
// Whether it is one that goes so: as good as gone to the program.
bool IsDoomed(HGDIOBJ object);
// Ends what RemoveOnceReleased left. Called when a context has given something up.
void RemoveReleased();

} // namespace gesso::headless
