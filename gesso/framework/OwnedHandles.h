// Graphics objects that belong to the control that made them; its copies borrow them.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

template <class HANDLE_TYPE> void DeleteGraphics(HANDLE_TYPE hObject)
{
    DeleteObject(hObject);
}

GESSO_API void DestroyImageList(HIMAGELIST hImageList);

using BrushHandle = Owned<HBRUSH, DeleteGraphics<HBRUSH>>;
using FontHandle = Owned<HFONT, DeleteGraphics<HFONT>>;
using ImageListHandle = Owned<HIMAGELIST, DestroyImageList>;
using PenHandle = Owned<HPEN, DeleteGraphics<HPEN>>;

} // namespace gesso
