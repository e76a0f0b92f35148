// The plain top-level window, and the bases of hosts' classes.

#include "Plain.h"

#include <gesso/framework/GWindow2.h>

namespace attack {

namespace {

// Its objects outlive their windows, and are the host's to free.
class TopWorld : public World
{
public:
    explicit TopWorld(Source& source) : World(Operations(), source) {}
    ~TopWorld() override
    {
        for (GWnd* pWnd : m_made) {
            pWnd->Delete(pWnd);
        }
    }
    void* Object() override { return m_made.empty() ? &m_window : static_cast<GWindow2*>(m_made.back()); }
    HWND Window() override { return static_cast<GWindow2*>(Object())->GetHwnd(); }
    void Make(Source& source) override
    {
        const Quiet quiet(*this);
        desk::ClearFaults();
        const int x = source.Integer();
        const int y = source.Integer();
        const int cx = source.Size();
        if (const HWND hwnd = m_window.Create(x, y, cx, source.Size(), AnyParent(source))) {
            m_made.push_back(static_cast<GWindow2*>(GWnd::FromHwnd(hwnd)));
        }
    }

private:
    static const Table& Operations()
    {
        static const Table TABLE = [] {
            Table table{OP(GWindow2, Destroy),    OP(GWindow2, Invalidate), OP(GWindow2, MoveWindow),
                        OP(GWindow2, SetVisible), OP(GWindow2, GetPos),     OP(GWindow2, GetParent)};
            AddLife(table);
            AddMessages(table);
            AddInput(table);
            AddSurroundings(table);
            AddSettings(table);
            AddFaults(table);
            return table;
        }();
        return TABLE;
    }

    GWindow2 m_window;
    std::vector<GWindow2*> m_made;
};

} // namespace

void AddBases(std::vector<AttackedClass>& classes)
{
    AddHostBases(classes);
    classes.push_back(OfWorld<TopWorld>("GWindow2"));
}

} // namespace attack
