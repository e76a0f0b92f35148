// The kernel services of the simulated desktop.
#include <platform/headless/headless.h>

#include <gtest/gtest.h>

using namespace gesso::headless;

namespace {

std::span<const std::byte> Bytes(std::string_view text)
{
    return std::as_bytes(std::span(text));
}

HANDLE CreateContextOf(HMODULE module)
{
    ACTCTXW source{};
    source.cbSize = sizeof(source);
    source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    source.lpSource = L"any";
    source.lpResourceName = MAKEINTRESOURCEW(3);
    source.hModule = module;
    return CreateActCtxW(&source);
}

bool FindsCommonControls()
{
    ACTCTX_SECTION_KEYED_DATA data{};
    data.cbSize = sizeof(data);
    return FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION, L"Comctl32.dll",
                                    &data);
}

} // namespace

TEST(Kernel, ResourcesAreFoundByModuleTypeAndName)
{
    const HMODULE host = HostModule();
    AddResource(host, L"Kind", L"Name", Bytes("first"));
    AddResource(host, L"KIND", MAKEINTRESOURCEW(7), Bytes("second!"));
    AddResource(LibraryModule(), L"KIND", L"NAME", Bytes("other"));
    const HRSRC found = FindResourceW(nullptr, L"nAmE", L"kind");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(SizeofResource(host, found), 5u);
    EXPECT_EQ(memcmp(LockResource(LoadResource(host, found)), "first", 5), 0);
    EXPECT_EQ(FindResourceW(host, L"#7", L"Kind"), FindResourceW(host, MAKEINTRESOURCEW(7), L"KIND"));
    EXPECT_EQ(FindResourceW(host, L"missing", L"Kind"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
    EXPECT_EQ(FindResourceW(host, L"Name", MAKEINTRESOURCEW(99)), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_TYPE_NOT_FOUND});
    RemoveResources(host);
    RemoveResources(LibraryModule());
    EXPECT_EQ(FindResourceW(host, L"Name", L"Kind"), nullptr);
}

TEST(Kernel, ResourceFilesAreTakenApart)
{
    constexpr unsigned char RESOURCE_FILE[] = {// the empty entry that opens a file
                                               0, 0, 0, 0, 32, 0, 0, 0, 0xFF, 0xFF, 0, 0, 0xFF, 0xFF, 0, 0, 0,
                                               0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                               // type "T", name 5, three bytes and padding
                                               3, 0, 0, 0, 32, 0, 0, 0, 'T', 0, 0, 0, 0xFF, 0xFF, 5, 0, 0, 0,
                                               0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, //
                                               'a', 'b', 'c', 0,
                                               // type 10, name "N", one byte
                                               1, 0, 0, 0, 32, 0, 0, 0, 0xFF, 0xFF, 10, 0, 'N', 0, 0, 0, 0, 0,
                                               0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, //
                                               'd'};
    const auto bytes = std::as_bytes(std::span(RESOURCE_FILE));
    EXPECT_TRUE(AddResourceFile(HostModule(), bytes));
    const HRSRC first = FindResourceW(nullptr, MAKEINTRESOURCEW(5), L"T");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(SizeofResource(nullptr, first), 3u);
    EXPECT_EQ(*static_cast<const char*>(LockResource(LoadResource(nullptr, first))), 'a');
    EXPECT_NE(FindResourceW(nullptr, L"N", MAKEINTRESOURCEW(10)), nullptr);
    for (size_t size = 1; size < bytes.size(); ++size) {
        AddResourceFile(HostModule(), bytes.first(size)); // must not read past what it was given
    }
    EXPECT_FALSE(AddResourceFile(HostModule(), bytes.first(40)));
    RemoveResources(HostModule());
}

TEST(Kernel, TheLibraryHasTheResourcesItWasBuiltWith)
{
    const LPCWSTR manifest = MAKEINTRESOURCEW(24);
    EXPECT_NE(FindResourceW(LibraryModule(), MAKEINTRESOURCEW(3), manifest), nullptr);
    RemoveResources(LibraryModule());
    EXPECT_NE(FindResourceW(LibraryModule(), MAKEINTRESOURCEW(3), manifest), nullptr);
    EXPECT_EQ(FindResourceW(HostModule(), MAKEINTRESOURCEW(3), manifest), nullptr);
}

TEST(Kernel, StringsStandInTablesOfSixteen)
{
    const HMODULE host = HostModule();
    AddString(host, 17, "seventeen");
    AddString(host, 31, "\xC3\xA4");
    wchar_t text[20];
    EXPECT_EQ(LoadStringW(host, 17, text, 20), 9);
    EXPECT_EQ(wcscmp(text, L"seventeen"), 0);
    EXPECT_EQ(LoadStringW(host, 17, text, 4), 3) << "cut to the buffer";
    EXPECT_EQ(LoadStringW(host, 31, text, 20), 1);
    EXPECT_EQ(text[0], 0xE4);
    EXPECT_EQ(LoadStringW(host, 18, text, 20), 0);
    EXPECT_EQ(LoadStringW(host, 99, text, 20), 0);
    const HRSRC table = FindResourceW(host, MAKEINTRESOURCEW(2), MAKEINTRESOURCEW(6));
    const auto* units = static_cast<const wchar_t*>(LockResource(LoadResource(host, table)));
    EXPECT_EQ(units[0], 0) << "entry 16 is empty";
    EXPECT_EQ(units[1], 9) << "entry 17 begins with its length";
    RemoveResources(host);
}

TEST(Kernel, ModulesAreFoundLoadedAndNamed)
{
    EXPECT_EQ(GetModuleHandleW(nullptr), HostModule());
    EXPECT_EQ(GetModuleHandleW(L"GESSO.DLL"), LibraryModule());
    EXPECT_EQ(GetModuleHandleW(L"unknown.dll"), nullptr);
    HMODULE module = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(6, reinterpret_cast<LPCWSTR>(&module), &module));
    EXPECT_EQ(module, LibraryModule());
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH + 1);
    EXPECT_EQ(length, wcslen(path));
    EXPECT_EQ(GetModuleFileNameW(module, path, 5), 5u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});

    const HMODULE controls = LoadLibraryW(L"Comctl32.dll");
    EXPECT_NE(GetProcAddress(controls, "ImageList_Create"), nullptr);
    EXPECT_EQ(GetProcAddress(controls, "Missing"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
    EXPECT_TRUE(FreeLibrary(controls));
    EXPECT_EQ(LoadLibraryW(L"missing.dll"), nullptr);
}

TEST(Kernel, ActivationContextsNestAndRedirect)
{
    const Census before = Live();
    EXPECT_EQ(CreateContextOf(HostModule()), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_TYPE_NOT_FOUND});
    AddResource(HostModule(), MAKEINTRESOURCEW(24), MAKEINTRESOURCEW(3),
                Bytes("<assemblyIdentity name='Microsoft.Windows.Common-Controls'/>"));
    const HANDLE context = CreateContextOf(HostModule());
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR outer = 0;
    ULONG_PTR inner = 0;
    EXPECT_TRUE(ActivateActCtx(context, &outer));
    EXPECT_TRUE(FindsCommonControls());
    EXPECT_TRUE(ActivateActCtx(nullptr, &inner));
    EXPECT_EQ(ActivationDepth(), 2);
    EXPECT_FALSE(FindsCommonControls()) << "the process's own context redirects nothing";
    EXPECT_TRUE(DeactivateActCtx(0, inner));
    EXPECT_FALSE(DeactivateActCtx(0, 0));
    ReleaseActCtx(context);
    EXPECT_EQ(ActivationDepth(), 1);
    EXPECT_TRUE(FindsCommonControls()) << "an active context lives on";
    EXPECT_TRUE(DeactivateActCtx(0, outer));
    EXPECT_EQ(Live(), before);
    RemoveResources(HostModule());
}
