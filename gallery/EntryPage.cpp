#include <gallery/EntryCombos.h>
#include <gallery/EntryEdits.h>
#include <gallery/Pages.h>

namespace gallery {
namespace {

class EntryPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Entry", L"Text that the user edits, and combo boxes to choose from.");
        m_edits.Build(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        m_combos.Build(canvas, {RIGHT_BLOCK, FIRST_BLOCK});
    }

    LRESULT OnCommand(UINT, UINT uCode, HWND hwndFrom) override
    {
        m_edits.OnCommand(uCode, hwndFrom);
        m_combos.OnCommand(uCode, hwndFrom);
        return 0;
    }

    std::vector<Exhibit> Exhibits() override { return {m_combos.OpenList()}; }

private:
    EntryEdits m_edits;
    EntryCombos m_combos;
};

} // namespace

std::unique_ptr<Page> MakeEntryPage()
{
    return std::make_unique<EntryPage>();
}

} // namespace gallery
