// How a window is asked for its description: by the platform's message, from other programs and from tests.
#include <gesso/access/AccessibleObject.h>
#include <gesso/access/BarSide.h>
#include <gesso/access/OleApi.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/GWndScroll.h>

#include <utility>

namespace gesso {
namespace {

// The library's own question, by which it finds the thing itself and no interface: the object id is one that
// the platform leaves to programs, and the answer goes where this thread's last question says. Nobody else
// can ask it.
constexpr LPARAM OWN_QUESTION = 0x6E6F6465;
struct Question
{
    std::optional<AccessibleThing> answer;
};
constinit thread_local Question* s_pQuestion = nullptr;

LRESULT GiveObject(const AccessibleThing& thing, WPARAM wParam)
{
    const OleApi* pApi = FindOleApi();
    AccessibleObject* pObject = pApi ? AccessibleObject::Make(thing) : nullptr;
    if (!pObject) {
        return 0;
    }
    const LRESULT lAnswer =
        pApi->pfnLresultFromObject(ID_ACCESSIBLE, wParam, static_cast<IAccessible*>(pObject));
    pObject->Release();
    return lAnswer;
}

bool IsBar(LONG nObject)
{
    return nObject == OBJID_VSCROLL || nObject == OBJID_HSCROLL;
}

} // namespace

bool AnswersGetObject(GWnd& wnd, HWND hwnd, const AccessibleSide& side, WPARAM wParam, LPARAM lParam,
                      LRESULT* plAnswer)
{
    const auto nObject = static_cast<LONG>(lParam); // sent with or without its sign
    const bool fOwn =
        lParam == OWN_QUESTION && s_pQuestion && wParam == reinterpret_cast<WPARAM>(s_pQuestion);
    const AccessibleSide* pBar = IsBar(nObject) ? BarSideOf(wnd) : nullptr;
    if (!fOwn && nObject != OBJID_CLIENT && !pBar) {
        return false;
    }
    LinkRef link = AccessibleLinks::Connect(wnd, hwnd);
    if (!link) {
        return false;
    }
    if (fOwn) {
        s_pQuestion->answer.emplace(std::move(link), side, WHOLE);
        *plAnswer = 1;
    } else {
        const AccessibleId id = pBar ? BarId(nObject == OBJID_VSCROLL ? SB_VERT : SB_HORZ) : WHOLE;
        *plAnswer = GiveObject({std::move(link), pBar ? *pBar : side, id}, wParam);
    }
    return true;
}

std::optional<AccessibleThing> FindThing(HWND hwnd)
{
    if (!hwnd || GetWindowThreadProcessId(hwnd, nullptr) != GetCurrentThreadId()) {
        return {};
    }
    Question question;
    Question* pOuter = std::exchange(s_pQuestion, &question);
    SendMessageW(hwnd, WM_GETOBJECT, reinterpret_cast<WPARAM>(&question), OWN_QUESTION);
    s_pQuestion = pOuter;
    return std::move(question.answer);
}

} // namespace gesso
