// The simulated visual style, the system's settings, and image lists.
#include <platform/headless/gdi/DeviceContext.h>

#include <gtest/gtest.h>

using namespace gesso::headless;

namespace {

class Theme : public testing::Test
{
protected:
    void TearDown() override { ResetGraphics(); }
};

COLORREF TextColor(HTHEME theme, int part, int state)
{
    COLORREF color = CLR_INVALID;
    GetThemeColor(theme, part, state, TMT_TEXTCOLOR, &color);
    return color;
}

int ContentMargin(HTHEME theme, int part, int state)
{
    MARGINS margins{};
    EXPECT_EQ(GetThemeMargins(theme, nullptr, part, state, TMT_CONTENTMARGINS, nullptr, &margins), S_OK);
    return margins.cxLeftWidth;
}

} // namespace

TEST_F(Theme, HandlesAreOpenedOnceAndClosedOnce)
{
    const Census before = Live();
    const HTHEME theme = OpenThemeData(nullptr, L"NoSuchClass;BUTTON");
    ASSERT_NE(theme, nullptr);
    EXPECT_EQ(Live()[Kind::Theme], before[Kind::Theme] + 1);
    EXPECT_EQ(CloseThemeData(theme), S_OK);
    EXPECT_EQ(CloseThemeData(theme), E_HANDLE);
    EXPECT_EQ(CloseThemeData(nullptr), E_HANDLE);
    EXPECT_EQ(Live(), before);
    EXPECT_EQ(OpenThemeData(nullptr, L"NoSuchClass"), nullptr);
}

TEST_F(Theme, WithoutAStyleNothingOpensAndNothingIsAnswered)
{
    SetThemed(false);
    EXPECT_FALSE(IsThemeActive() || IsAppThemed());
    EXPECT_EQ(OpenThemeData(nullptr, L"BUTTON"), nullptr);
    MARGINS margins = {9, 9, 9, 9};
    EXPECT_EQ(GetThemeMargins(nullptr, nullptr, 1, 1, TMT_CONTENTMARGINS, nullptr, &margins), E_HANDLE);
    EXPECT_EQ(margins.cxLeftWidth, 0);
    SIZE size{};
    EXPECT_EQ(GetThemePartSize(nullptr, nullptr, 1, 1, nullptr, TS_TRUE, &size), E_HANDLE);
    const RECT rect = {0, 0, 1, 1};
    EXPECT_EQ(DrawThemeBackground(nullptr, nullptr, 1, 1, &rect, nullptr), E_HANDLE);
}

TEST_F(Theme, StateZeroStandsForEveryStateThatIsNotSet)
{
    const HTHEME theme = OpenThemeData(nullptr, L"Button");
    SetThemeColor("BUTTON", 1, 0, TMT_TEXTCOLOR, RGB(1, 1, 1));
    SetThemeColor("button", 1, 2, TMT_TEXTCOLOR, RGB(2, 2, 2));
    EXPECT_EQ(TextColor(theme, 1, 1), RGB(1, 1, 1));
    EXPECT_EQ(TextColor(theme, 1, 2), RGB(2, 2, 2));
    EXPECT_EQ(TextColor(theme, 3, 2), RGB(0, 0, 0));
    SetThemeMargins("BUTTON", 1, 0, TMT_CONTENTMARGINS, {8, 0, 0, 0});
    EXPECT_EQ(ContentMargin(theme, 1, 3), 8);
    ResetGraphics();
    EXPECT_EQ(ContentMargin(theme, 1, 3), 3);
    int value = 0;
    EXPECT_EQ(GetThemeInt(theme, 0, 0, TMT_BORDERSIZE, &value), S_OK);
    EXPECT_EQ(value, 1);
    EXPECT_NE(GetThemeInt(theme, 0, 0, TMT_ALPHALEVEL, &value), S_OK);
    CloseThemeData(theme);
}

TEST_F(Theme, PartsAndClassesCanBeMissing)
{
    const HTHEME theme = OpenThemeData(nullptr, L"LISTVIEW");
    EXPECT_TRUE(IsThemePartDefined(theme, 1, 0));
    SetThemePartAvailable("LISTVIEW", 1, false);
    EXPECT_FALSE(IsThemePartDefined(theme, 1, 0));
    const HDC hdc = CreateCompatibleDC(nullptr);
    const RECT rect = {0, 0, 1, 1};
    EXPECT_TRUE(FAILED(DrawThemeBackground(theme, hdc, 1, 1, &rect, nullptr)));
    EXPECT_EQ(DrawThemeBackground(theme, hdc, 2, 1, &rect, nullptr), S_OK);
    DeleteDC(hdc);
    CloseThemeData(theme);
    SetThemeClassAvailable("LISTVIEW", false);
    EXPECT_EQ(OpenThemeData(nullptr, L"LISTVIEW"), nullptr);
}

TEST_F(Theme, TextsAreMeasuredInThePartsFontOrTheContexts)
{
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HTHEME theme = OpenThemeData(nullptr, L"BUTTON");
    RECT extent{};
    const RECT bounds = {2, 3, 200, 100};
    EXPECT_EQ(GetThemeTextExtent(theme, hdc, 1, 1, L"abcd", 4, DT_SINGLELINE, &bounds, &extent), S_OK);
    EXPECT_EQ(extent.right, 2 + 4 * 7) << "the context's own system font";
    EXPECT_EQ(GetThemeTextExtent(theme, hdc, 6, 1, L"abcd", 4, DT_SINGLELINE, &bounds, &extent), S_OK);
    EXPECT_EQ(extent.right, 2 + 4 * 8) << "the 12-point font of a command link";
    EXPECT_EQ(extent.bottom, 3 + 20);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    CloseThemeData(theme);
    DeleteDC(hdc);
}

TEST_F(Theme, TheDefaultFontHasRoundMeasures)
{
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontW(-MulDiv(9, GetDeviceCaps(hdc, LOGPIXELSY), 72), 0, 0, 0, FW_NORMAL, 0, 0,
                                   0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HGDIOBJ former = SelectObject(hdc, font);
    TEXTMETRICW metrics{};
    ASSERT_TRUE(GetTextMetricsW(hdc, &metrics));
    EXPECT_EQ(metrics.tmAveCharWidth, 6);
    EXPECT_EQ(metrics.tmHeight, 15);
    EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, 15);
    INT fit = 0;
    SIZE size{};
    EXPECT_TRUE(GetTextExtentExPointW(hdc, L"abcdef", 6, 20, &fit, nullptr, &size));
    EXPECT_EQ(fit, 3);
    EXPECT_EQ(size.cx, 36);
    SelectObject(hdc, former);
    DeleteObject(font);
    DeleteDC(hdc);
}

TEST_F(Theme, SettingsAnswerAndGoBack)
{
    SetSystemMetric(SM_CXVSCROLL, 20);
    SetSystemColor(COLOR_WINDOW, RGB(1, 2, 3));
    SetKeyboardRepeat(3, 7);
    SetDpi(144);
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), 20);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), DWORD{RGB(1, 2, 3)});
    int delay = 0;
    DWORD speed = 0;
    EXPECT_TRUE(SystemParametersInfoW(SPI_GETKEYBOARDDELAY, 0, &delay, 0));
    EXPECT_TRUE(SystemParametersInfoW(SPI_GETKEYBOARDSPEED, 0, &speed, 0));
    EXPECT_EQ(delay, 3);
    EXPECT_EQ(speed, 7u);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    EXPECT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0));
    EXPECT_EQ(metrics.lfMessageFont.lfHeight, -18);
    ResetGraphics();
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), 17);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), DWORD{RGB(255, 255, 255)});
}

TEST_F(Theme, ImageListsServeBothTheirInterfaceAndTheirFunctions)
{
    const Census before = Live();
    const HIMAGELIST handle = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4);
    auto* list = reinterpret_cast<IImageList*>(handle);
    const HBITMAP strip = CreateBitmap(48, 16, 1, 32, nullptr);
    EXPECT_EQ(ImageList_Add(handle, strip, nullptr), 0);
    EXPECT_EQ(ImageList_Add(handle, strip, nullptr), 3);
    EXPECT_EQ(ImageList_Add(handle, nullptr, nullptr), -1);
    DeleteObject(strip);
    int count = 0;
    int cx = 0;
    int cy = 0;
    EXPECT_EQ(list->GetImageCount(&count), S_OK);
    EXPECT_EQ(list->GetIconSize(&cx, &cy), S_OK);
    EXPECT_EQ(count, 6);
    EXPECT_EQ(cx, 16);

    const HWND hwnd = reinterpret_cast<HWND>(uintptr_t{0x7774});
    const HDC hdc = CreateWindowContext(hwnd, {100, 100}, false);
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    params.himl = handle;
    params.i = 5;
    params.hdcDst = hdc;
    params.x = 3;
    params.rgbBk = CLR_NONE;
    EXPECT_EQ(list->Draw(&params), S_OK);
    params.i = 6;
    EXPECT_NE(list->Draw(&params), S_OK);
    EXPECT_TRUE(ImageList_DrawEx(handle, 0, hdc, 1, 2, 8, 8, CLR_NONE, CLR_NONE, ILD_BLEND));
    EXPECT_EQ(Drawing(hwnd), (std::vector<std::string>{"ImageList_Draw 5 (3,0,19,16) 0x0000",
                                                       "ImageList_Draw 0 (1,2,9,10) 0x0004"}));
    DeleteWindowContext(hdc);
    ForgetDrawing(hwnd);

    void* same = nullptr;
    EXPECT_EQ(list->QueryInterface(IID_IImageList, &same), S_OK);
    EXPECT_EQ(list->Release(), 1u);
    EXPECT_TRUE(ImageList_Destroy(handle));
    EXPECT_FALSE(ImageList_Destroy(handle));
    EXPECT_EQ(Live(), before);
}
