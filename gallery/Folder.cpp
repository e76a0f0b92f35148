#include <gallery/Folder.h>
#include <gallery/Slices.h>

#include <shellapi.h>

#include <algorithm>
#include <cwctype>

namespace gallery {
namespace {

ULONGLONG Joined(DWORD high, DWORD low)
{
    return static_cast<ULONGLONG>(high) << 32 | low;
}

std::wstring TypeOf(const WIN32_FIND_DATAW& found)
{
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        return L"Folder";
    }
    const std::wstring name = found.cFileName;
    const size_t dot = name.rfind(L'.');
    std::wstring type = dot == std::wstring::npos ? L"" : name.substr(dot + 1) + L" ";
    std::transform(type.begin(), type.end(), type.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
    return type + L"file";
}

std::wstring SizeText(ULONGLONG size)
{
    std::wstring text = std::to_wstring((size + 1023) / 1024);
    for (size_t i = text.size(); i > 3; i -= 3) {
        text.insert(i - 3, L",");
    }
    return text + L" KB";
}

std::wstring DateText(const FILETIME& time)
{
    FILETIME local{};
    SYSTEMTIME system{};
    FileTimeToLocalFileTime(&time, &local);
    FileTimeToSystemTime(&local, &system);
    wchar_t szText[32];
    swprintf(szText, std::size(szText), L"%04d-%02d-%02d %02d:%02d", system.wYear, system.wMonth, system.wDay,
             system.wHour, system.wMinute);
    return szText;
}

HIMAGELIST FileImages(LPCWSTR pszName, DWORD dwAttributes, UINT uSize, UINT* pImage)
{
    SHFILEINFOW info{};
    const UINT uFlags = SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES | uSize;
    const auto hImages =
        reinterpret_cast<HIMAGELIST>(SHGetFileInfoW(pszName, dwAttributes, &info, sizeof(info), uFlags));
    *pImage = static_cast<UINT>(info.iIcon);
    return hImages;
}

UINT TypeIndex(Folder& folder, const std::wstring& type)
{
    const auto found = std::find(folder.types.begin(), folder.types.end(), type);
    const auto index = static_cast<UINT>(found - folder.types.begin());
    if (found == folder.types.end()) {
        folder.types.push_back(type);
    }
    return index;
}

void AddFile(Folder& folder, const WIN32_FIND_DATAW& found)
{
    if (found.cFileName[0] == L'.') {
        return;
    }
    const bool fDirectory = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    File file{};
    file.fFolder = fDirectory;
    file.name = found.cFileName;
    file.type = TypeOf(found);
    file.typeIndex = TypeIndex(folder, file.type);
    file.size = Joined(found.nFileSizeHigh, found.nFileSizeLow);
    file.sizeText = fDirectory ? L"" : SizeText(file.size);
    file.date = Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
    file.dateText = DateText(found.ftLastWriteTime);
    FileImages(found.cFileName, found.dwFileAttributes, SHGFI_SMALLICON, &file.image);
    folder.files.push_back(file);
}

// Calls a function with each entry until it answers false.
template <class FUNCTION> void ForEachFile(const std::wstring& path, FUNCTION function)
{
    WIN32_FIND_DATAW found{};
    const HANDLE hFind = FindFirstFileW((path + L"\\*").c_str(), &found);
    if (hFind == INVALID_HANDLE_VALUE) {
        return;
    }
    while (function(found) && FindNextFileW(hFind, &found)) {
    }
    FindClose(hFind);
}

// Links are left out: they may lead around in circles.
bool IsShownFolder(const WIN32_FIND_DATAW& found)
{
    constexpr DWORD KINDS = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return (found.dwFileAttributes & KINDS) == FILE_ATTRIBUTE_DIRECTORY && found.cFileName[0] != L'.';
}

bool HasSubfolders(const std::wstring& path)
{
    bool fFound = false;
    ForEachFile(path, [&](const WIN32_FIND_DATAW& found) {
        fFound = IsShownFolder(found);
        return !fFound;
    });
    return fFound;
}

} // namespace

Folder ReadFolder(const std::wstring& path)
{
    Folder folder{path, {}, {}};
    ForEachFile(path, [&](const WIN32_FIND_DATAW& found) {
        AddFile(folder, found);
        return true;
    });
    return folder;
}

FolderReader::FolderReader(const std::wstring& path) : m_folder{path, {}, {}}
{
    ForEachFile(path, [&](const WIN32_FIND_DATAW& found) {
        m_found.push_back(found);
        return true;
    });
}

UINT FolderReader::ReadNext()
{
    if (m_nRead < m_found.size()) {
        AddFile(m_folder, m_found[m_nRead++]);
    }
    return Slices::Share(m_nRead, m_found.size());
}

Folder ReadSystemFolder()
{
    wchar_t szPath[MAX_PATH] = L"";
    GetSystemDirectoryW(szPath, MAX_PATH);
    return ReadFolder(szPath);
}

std::vector<Subfolder> SubfoldersOf(const std::wstring& path)
{
    std::vector<Subfolder> subfolders;
    ForEachFile(path, [&](const WIN32_FIND_DATAW& found) {
        if (IsShownFolder(found)) {
            subfolders.push_back({found.cFileName, HasSubfolders(path + L"\\" + found.cFileName)});
        }
        return true;
    });
    std::sort(subfolders.begin(), subfolders.end(), [](const Subfolder& a, const Subfolder& b) {
        return lstrcmpiW(a.name.c_str(), b.name.c_str()) < 0;
    });
    return subfolders;
}

HIMAGELIST SmallFileImages()
{
    UINT image = 0;
    return FileImages(L"", FILE_ATTRIBUTE_NORMAL, SHGFI_SMALLICON, &image);
}

HIMAGELIST LargeFileImages()
{
    UINT image = 0;
    return FileImages(L"", FILE_ATTRIBUTE_NORMAL, SHGFI_LARGEICON, &image);
}

UINT FolderImage()
{
    UINT image = 0;
    FileImages(L"folder", FILE_ATTRIBUTE_DIRECTORY, SHGFI_SMALLICON, &image);
    return image;
}

} // namespace gallery
