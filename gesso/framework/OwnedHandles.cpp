#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/OwnedHandles.h>

namespace gesso {

void DestroyImageList(HIMAGELIST hImageList)
{
    IsolationAwareImageList_Destroy(hImageList);
}

} // namespace gesso
