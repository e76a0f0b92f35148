#include "Objects.h"

#include "../core/Accounting.h"
#include "../core/TableLock.h"

#include <unordered_map>

namespace gesso::headless {
namespace {

std::unordered_map<HANDLE, std::unique_ptr<Object>>& Table()
{
    static std::unordered_map<HANDLE, std::unique_ptr<Object>> s_table;
    return s_table;
}

HANDLE NextHandle()
{
    static constinit uintptr_t s_last = 0x0A000000;
    s_last += 4;
    return reinterpret_cast<HANDLE>(s_last);
}

} // namespace

Bitmap::Bitmap(int w, int h, int bitsOfPixel) : Object(KIND), width(w), height(h), bits(bitsOfPixel) {}

HANDLE AddObject(std::unique_ptr<Object> object)
{
    const TableLock lock;
    const HANDLE handle = NextHandle();
    Track(object->kind, handle);
    Table().emplace(handle, std::move(object));
    return handle;
}

HANDLE AddStock(std::unique_ptr<Object> object)
{
    const TableLock lock;
    const HANDLE handle = NextHandle();
    object->stock = true;
    Table().emplace(handle, std::move(object));
    return handle;
}

bool RemoveObject(HANDLE handle)
{
    const TableLock lock;
    const auto found = Table().find(handle);
    if (found == Table().end()) {
        return false;
    }
    Untrack(found->second->kind, handle);
    Table().erase(found);
    return true;
}

Object* FindObject(HANDLE handle)
{
    const TableLock lock;
    const auto found = Table().find(handle);
    return found != Table().end() ? found->second.get() : nullptr;
}

HBITMAP DefaultBitmap()
{
    const TableLock lock; // before the one who makes it: he takes the lock as well
    static const auto STOCK_BITMAP = MakeStock<HBITMAP, Bitmap>(1, 1, 1);
    return STOCK_BITMAP;
}

} // namespace gesso::headless
