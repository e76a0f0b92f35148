#include <gallery/SampleFolder.h>

#include <gesso/api.h>

namespace gallery {
namespace {

struct SampleFile
{
    LPCWSTR pszName; // of a folder where it ends with a backslash
    LONG lSize;
};

constexpr SampleFile FILES[] = {
    {L"Documents\\", 0},
    {L"Documents\\Letter to the editor.txt", 1'912},
    {L"Documents\\Notes.txt", 734},
    {L"Documents\\Report 2026.txt", 48'120},
    {L"Documents\\Budget.csv", 6'310},
    {L"Documents\\Old drafts\\", 0},
    {L"Documents\\Old drafts\\Report, first draft.txt", 39'004},
    {L"Documents\\Old drafts\\Report, second draft.txt", 44'871},
    {L"Pictures\\", 0},
    {L"Pictures\\Bridge at noon.png", 318'220},
    {L"Pictures\\Harbour.png", 402'118},
    {L"Pictures\\Lighthouse.jpg", 1'204'551},
    {L"Pictures\\Market square.jpg", 988'102},
    {L"Sounds\\", 0},
    {L"Sounds\\Bell.wav", 88'244},
    {L"Sounds\\Rain.wav", 1'764'044},
    {L"Read me first.txt", 412},
    {L"Shopping list.txt", 96},
};

// Files and folders alike: the same date wherever and whenever they are made.
void SetDate(const std::wstring& path)
{
    const SYSTEMTIME noon{2026, 3, 0, 14, 12, 0, 0, 0};
    FILETIME time{};
    SystemTimeToFileTime(&noon, &time);
    const HANDLE hFile = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (hFile != INVALID_HANDLE_VALUE) {
        SetFileTime(hFile, nullptr, nullptr, &time);
        CloseHandle(hFile);
    }
}

void MakeFile(const std::wstring& path, LONG lSize)
{
    const HANDLE hFile = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (hFile != INVALID_HANDLE_VALUE) {
        SetFilePointer(hFile, lSize, nullptr, FILE_BEGIN);
        SetEndOfFile(hFile);
        CloseHandle(hFile);
    }
}

std::wstring SamplePath()
{
    wchar_t szTemp[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, szTemp);
    return std::wstring(szTemp) + L"Gesso sample files";
}

} // namespace

std::wstring SampleFolder()
{
    const std::wstring path = SamplePath();
    CreateDirectoryW(path.c_str(), nullptr);
    for (const SampleFile& file : FILES) {
        std::wstring full = path + L"\\" + file.pszName;
        if (full.back() == L'\\') {
            full.pop_back();
            CreateDirectoryW(full.c_str(), nullptr);
        } else {
            MakeFile(full, file.lSize);
        }
    }
    for (const SampleFile& file : FILES) {
        SetDate(path + L"\\" + file.pszName);
    }
    return path;
}

bool IsInSampleFolder(const std::wstring& path)
{
    const std::wstring sample = SamplePath();
    return path.compare(0, sample.size(), sample) == 0 &&
           (path.size() == sample.size() || path[sample.size()] == L'\\');
}

} // namespace gallery
