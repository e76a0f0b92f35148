// Threads that each have controls of their own, side by side. It runs under ThreadSanitizer too, alone.

#include <gesso/gesso.h>
#include <platform/headless/headless.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <barrier>
#include <thread>

namespace test {
namespace {

namespace desk = gesso::headless;

constexpr int THREADS = 2;
constexpr int ROUNDS = 10;

// What one thread does with controls of several families: it types, presses, scrolls and has them painted.
class Form
{
public:
    explicit Form(wchar_t mark)
        : m_mark(mark), m_host(CreateWindowExW(0, L"#32770", L"Host", WS_POPUP | WS_VISIBLE, 0, 0, 600, 400,
                                               nullptr, nullptr, nullptr, nullptr))
    {
        const HWND hwnd = m_host;
        m_edit.Create(0, 0, 200, 24, hwnd, 1, L"", WS_CHILD | WS_VISIBLE, 0);
        m_button.Create(0, 30, 80, 24, hwnd, 2, L"Press", 0, WS_CHILD | WS_VISIBLE);
        m_list.Create(0, 60, 300, 200, hwnd, 3, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
        m_tree.Create(310, 60, 200, 200, hwnd, 4, 0, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
        m_list.InsertColumn(NO_PLACE, 0, DT_SINGLELINE, 100, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr,
                            nullptr, nullptr);
    }
    ~Form() { DestroyWindow(m_host); }
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    void Type(int count)
    {
        SetFocus(m_edit.GetHwnd());
        for (int i = 0; i < count; ++i) {
            desk::TypeText(std::string(1, static_cast<char>(m_mark)));
            desk::Pump();
        }
    }
    void Fill(int count)
    {
        wchar_t name[2000] = {};
        for (int i = 0; i < count; ++i) {
            // Ever longer ones, so that what texts are prepared in grows.
            std::fill_n(name, std::min<size_t>(static_cast<size_t>(i) * 90 + 2, std::size(name) - 1), m_mark);
            m_list.InsertItem(NO_PLACE, 0, nullptr, 0, name, 0);
            m_tree.InsertItem(nullptr, nullptr, name, 0, 0, nullptr);
        }
        desk::Pump();
    }
    void PressAndScroll()
    {
        desk::Click(40, 42);
        desk::Pump();
        SendMessageW(m_list.GetHwnd(), WM_VSCROLL, SB_PAGEDOWN, 0);
        desk::Advance(1000);
        InvalidateRect(m_tree.GetHwnd(), nullptr, TRUE);
        desk::Pump();
    }
    // Where the list has scrolled to while the arrow below its bar was held.
    int HoldArrow()
    {
        desk::MoveMouse(292, 254);
        desk::PressButton();
        desk::Pump();
        desk::Advance(1500);
        const int position = m_list.GetScrollPos(SB_VERT);
        desk::ReleaseButton();
        desk::Pump();
        return position;
    }
    // How often this thread's mark stands in the edit field, and nothing else.
    int Typed() const
    {
        wchar_t text[64] = {};
        int length = 64;
        m_edit.GetText(text, &length);
        return length == static_cast<int>(std::count(text, text + length, m_mark)) ? length : -1;
    }
    UINT Items() const { return m_list.GetItemCount(); }

private:
    static constexpr UINT NO_PLACE = static_cast<UINT>(-1);

    wchar_t m_mark;
    HWND m_host;
    GEdit m_edit;
    GButton m_button;
    GList m_list;
    GTree m_tree;
};

int HeldAlone()
{
    Form form(L'a');
    form.Fill(20);
    return form.HoldArrow();
}

// `held` is where a list scrolls to that is alone, or 0 where that is not known yet.
void WorkWithControls(wchar_t mark, int held, std::barrier<>& start)
{
    start.arrive_and_wait();
    InitControls();
    for (int round = 1; round <= ROUNDS; ++round) {
        Form form(mark);
        form.Type(round);
        form.Fill(20);
        start.arrive_and_wait();
        const int position = form.HoldArrow();
        EXPECT_TRUE(held == 0 || position == held) << position << ": no other thread's bar has to do with it";
        form.PressAndScroll();
        EXPECT_EQ(form.Typed(), round);
        EXPECT_EQ(form.Items(), 20U);
    }
}

void RunThreads(int held)
{
    std::barrier<> start(THREADS);
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back(WorkWithControls, static_cast<wchar_t>(L'a' + i), held, std::ref(start));
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

TEST(Threads, EachHasControlsOfItsOwn)
{
    RunThreads(0); // classes, cursors and the default font are made by both threads at once
    const desk::Census before = desk::Live();
    const int held = HeldAlone();
    EXPECT_GT(held, 0);
    RunThreads(held);
    EXPECT_EQ(desk::Live(), before);
}

} // namespace test
