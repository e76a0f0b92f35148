// The objects of the graphics half and the handles under which the program knows them.
#pragma once

#include "../core/Area.h"
#include "../core/Arithmetic.h"

#include <memory>

namespace gesso::headless {

struct Object
{
    explicit Object(Kind k) : kind(k) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    Kind kind;
    bool stock = false; // the platform's own: neither counted nor deleted
};

struct Pen : Object
{
    static constexpr Kind KIND = Kind::Pen;
    explicit Pen(const LOGPEN& l) : Object(KIND), log(l) {}
    LOGPEN log;
};

struct Brush : Object
{
    static constexpr Kind KIND = Kind::Brush;
    explicit Brush(const LOGBRUSH& l, int index = -1) : Object(KIND), log(l), systemColor(index) {}
    LOGBRUSH log;
    int systemColor; // the index of a brush of GetSysColorBrush, or -1
};

struct Font : Object
{
    static constexpr Kind KIND = Kind::Font;
    explicit Font(const LOGFONTW& l) : Object(KIND), log(l) {}
    LOGFONTW log;
};

struct Bitmap : Object
{
    static constexpr Kind KIND = Kind::Bitmap;
    Bitmap(int w, int h, int bitsOfPixel);

    int width;
    int height;
    int bits;
    std::vector<std::byte> pixels; // only a DIB section has any
    std::vector<std::string> drawing;
};

struct Region : Object
{
    static constexpr Kind KIND = Kind::Region;
    explicit Region(const Area& a) : Object(KIND), area(a) {}
    Area area;
};

// An icon or a cursor.
struct Icon : Object
{
    static constexpr Kind KIND = Kind::Icon;
    Icon(int w, int h, std::string n) : Object(KIND), width(w), height(h), name(std::move(n)) {}
    int width;
    int height;
    std::string name; // what the drawing record calls it
};

// Takes an object over and gives its handle. Handles are not used again, so that a stale one is found out.
HANDLE AddObject(std::unique_ptr<Object> object);
HANDLE AddStock(std::unique_ptr<Object> object);
// Ends an object; false if there is none of that handle.
bool RemoveObject(HANDLE handle);
Object* FindObject(HANDLE handle);

// The object of a handle, or null if it is stale or of another kind.
template <typename OBJECT> OBJECT* Find(HANDLE handle)
{
    Object* object = FindObject(handle);
    return object && object->kind == OBJECT::KIND ? static_cast<OBJECT*>(object) : nullptr;
}

template <typename HANDLE_TYPE, typename OBJECT, typename... ARGS> HANDLE_TYPE MakeObject(ARGS&&... args)
{
    return static_cast<HANDLE_TYPE>(AddObject(std::make_unique<OBJECT>(std::forward<ARGS>(args)...)));
}

template <typename HANDLE_TYPE, typename OBJECT, typename... ARGS> HANDLE_TYPE MakeStock(ARGS&&... args)
{
    return static_cast<HANDLE_TYPE>(AddStock(std::make_unique<OBJECT>(std::forward<ARGS>(args)...)));
}

// The bitmap that a new memory context holds.
HBITMAP DefaultBitmap();

} // namespace gesso::headless
