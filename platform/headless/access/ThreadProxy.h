// Accessible objects of one thread for clients on another one.
#pragma once

#include "../windows/Desktop.h"

namespace gesso::headless {

// Takes over a reference to an object of another thread and gives an object in its place, of which each call
// goes through that thread. With the lock held.
HRESULT GiveProxy(IUnknown* object, const std::shared_ptr<Desktop>& desktop, REFIID id, void** out);
// Lets go of the object in all that stand in its place; their calls fail from then on. With the lock held, on
// the object's thread.
void DisconnectProxies(IUnknown* object);

} // namespace gesso::headless
